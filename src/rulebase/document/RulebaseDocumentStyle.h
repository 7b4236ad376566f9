#pragma once

#include <string_view>

namespace dorvik {

/// The style sheet of the rulebase document: light and dark by the reader's choice, and for paper.
inline constexpr std::string_view kRulebaseDocumentStyle = R"css(
:root {
  color-scheme: light dark;
  --page: #ffffff; --card: #f7f8fa; --text: #1d2430; --soft: #5b6575; --line: #dde1e8;
  --link: #1f5fbf; --code: #eef1f5;
  --s1: #b3261e; --s2: #b45309; --s3: #8a6d00; --s4: #2f6f4f; --s5: #44546a;
}
@media (prefers-color-scheme: dark) {
  :root {
    --page: #14181f; --card: #1c222b; --text: #e4e8ef; --soft: #9aa5b5; --line: #2f3744;
    --link: #86b4ff; --code: #252c37;
    --s1: #ff8a80; --s2: #ffb36b; --s3: #e6cf6a; --s4: #8fd3ae; --s5: #aebbd0;
  }
}
* { box-sizing: border-box; }
html { scroll-behavior: smooth; }
body {
  margin: 0 auto; padding: 2.5rem 1.25rem 4rem; max-width: 54rem; background: var(--page);
  color: var(--text); font: 1rem/1.55 system-ui, "Segoe UI", Roboto, "Helvetica Neue", sans-serif;
}
h1 { margin: 0; font-size: 2rem; line-height: 1.2; text-wrap: balance; overflow-wrap: anywhere; }
h2 { margin: 3rem 0 .5rem; padding-bottom: .35rem; border-bottom: 2px solid var(--line);
  font-size: 1.4rem; overflow-wrap: anywhere; }
h3 { margin: 0; font-size: 1.05rem; line-height: 1.35; overflow-wrap: anywhere; }
p { margin: .5rem 0; white-space: pre-line; overflow-wrap: anywhere; }
a { color: var(--link); text-decoration: none; }
a:hover, a:focus-visible { text-decoration: underline; }
.facts { margin: .35rem 0 0; color: var(--soft); }
.lead { max-width: 44rem; font-size: 1.05rem; }
nav { margin: 1.75rem 0 0; padding: 1rem 1.25rem; background: var(--card);
  border: 1px solid var(--line); border-radius: .5rem; }
nav p { margin: 0 0 .35rem; font-weight: 600; }
nav ol { margin: 0; padding-left: 1.4rem; columns: 18rem; }
nav li { break-inside: avoid; overflow-wrap: anywhere; }
.rule { margin: 1rem 0; padding: 1rem 1.15rem; background: var(--card);
  border: 1px solid var(--line); border-left: .3rem solid var(--mark, var(--line));
  border-radius: .4rem; break-inside: avoid; }
.s1 { --mark: var(--s1); } .s2 { --mark: var(--s2); } .s3 { --mark: var(--s3); }
.s4 { --mark: var(--s4); } .s5 { --mark: var(--s5); }
.marks { margin: .2rem 0 .5rem; color: var(--soft); font-size: .875rem; }
.severity { color: var(--mark); font-weight: 600; }
.off { padding: 0 .4rem; border: 1px solid var(--line); border-radius: .25rem; }
dl { display: grid; grid-template-columns: minmax(7rem, max-content) 1fr; gap: .3rem 1rem;
  margin: .6rem 0 0; font-size: .9375rem; }
dt { color: var(--soft); }
dd { margin: 0; min-width: 0; white-space: pre-line; overflow-wrap: anywhere; }
code, pre { font: .875em/1.5 ui-monospace, "Cascadia Mono", Consolas, "DejaVu Sans Mono", monospace;
  background: var(--code); border-radius: .25rem; }
code { padding: .1rem .3rem; white-space: pre-wrap; overflow-wrap: anywhere; }
pre { margin: 0; padding: .6rem .75rem; overflow-x: auto; tab-size: 4; white-space: pre; }
.scroll { overflow-x: auto; }
table { width: 100%; margin: .75rem 0; border-collapse: collapse; font-size: .9375rem; }
th { text-align: left; color: var(--soft); font-weight: 600; border-bottom: 2px solid var(--line); }
td { border-bottom: 1px solid var(--line); overflow-wrap: anywhere; white-space: pre-line; }
th, td { padding: .35rem .75rem .35rem 0; vertical-align: top; }
.none { color: var(--soft); }
@media (max-width: 34rem) {
  dl { grid-template-columns: 1fr; gap: 0; }
  dd { margin-bottom: .5rem; }
}
@media print {
  :root {
    --page: #fff; --card: #fff; --text: #000; --soft: #444; --line: #bbb; --link: #000;
    --code: #f3f3f3;
    --s1: #8c1d18; --s2: #8a3f06; --s3: #6b5500; --s4: #23543c; --s5: #333;
  }
  body { max-width: none; padding: 0; font-size: 10.5pt; }
  h2 { break-after: avoid; }
  pre { white-space: pre-wrap; overflow-wrap: anywhere; }
  @page { margin: 18mm; }
}
)css";

}  // namespace dorvik
