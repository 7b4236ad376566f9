#pragma once

#include "reports/format/HTMLHelper2.h"

#include <exception>
#include <string_view>

namespace dorvik {

/// A start tag, and its end tag at the end of the scope. An element that is begun in one operation and ended
/// in another, or never, uses `StartTag` and says why.
class HtmlTag {
public:
    /// REQUIRES: `html`, and the text of `tag`, outlive this.
    HtmlTag(HTMLHelper2& html, std::string_view tag, HTMLHelper2::Attributes attributes = {})
        : m_html(html), m_tag(tag), m_failures(std::uncaught_exceptions()) {
        m_html.StartTag(tag, attributes);
    }
    /// After a failure the page is not written, so it needs no end tag.
    ~HtmlTag() noexcept(false) {
        if (std::uncaught_exceptions() == m_failures) {
            m_html.EndTag(m_tag);
        }
    }
    HtmlTag(const HtmlTag&) = delete;
    HtmlTag& operator=(const HtmlTag&) = delete;

private:
    HTMLHelper2& m_html;
    std::string_view m_tag;
    int m_failures;
};

}  // namespace dorvik
