#include "ModernReportPage.h"

#include "ModernReportAssets.h"
#include "ModernReportColumns.h"
#include "ModernReportData.h"
#include "foundation/text/modHtmlText.h"
#include "reports/format/modReportFormat.h"

#include <algorithm>

namespace dorvik::modModernReport {

namespace {

using modHtmlText::Escape;

unsigned HexDigit(char digit) {
    constexpr unsigned kTen = 10;
    return digit <= '9' ? static_cast<unsigned>(digit - '0')
                        : static_cast<unsigned>(digit - 'a') + kTen;
}

/// Hexadecimal as base 64, the form of a content security policy.
std::string Base64OfHex(std::string_view hex) {
    constexpr std::string_view kDigits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    constexpr unsigned kHexBits = 4;
    constexpr unsigned kBits = 6;
    std::string text;
    unsigned held = 0;
    unsigned bits = 0;
    const auto put = [&](unsigned value) {
        text += kDigits[value & (kDigits.size() - 1)];
    };
    for (const char digit : hex) {
        held = held << kHexBits | HexDigit(digit);
        bits += kHexBits;
        if (bits >= kBits) {
            bits -= kBits;
            put(held >> bits);
        }
    }
    if (bits > 0) {
        put(held << (kBits - bits));
    }
    text.append((kHexBits - text.size() % kHexBits) % kHexBits, '=');
    return text;
}

std::string Policy() {
    return "default-src 'none'; script-src 'sha256-" +
           Base64OfHex(modModernReportAssets::kScriptSha256) + "'; style-src 'sha256-" +
           Base64OfHex(modModernReportAssets::kStyleSha256) +
           "'; base-uri 'none'; form-action 'none'";
}

std::string Head(const ModernReportData& data) {
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"" +
           Policy() +
           "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
           "<meta name=\"referrer\" content=\"no-referrer\">\n"
           "<meta name=\"color-scheme\" content=\"light dark\">\n<title>" +
           Escape(data.ProjectName) + ": Dorvik review</title>\n<style>" +
           std::string(modModernReportAssets::kStyle) + "</style>\n</head>\n";
}

std::string TopBar() {
    return R"(<a class="skip" href="#content">Skip to the content</a>
<div class="topbar">
<p class="mark">Dorvik<span> review</span></p>
<nav aria-label="Sections"><ul>
<li><a href="#summary">Summary</a></li>
<li><a href="#charts">Charts</a></li>
<li><a href="#hotspots">Hotspots</a></li>
<li class="needs-script" hidden><a href="#files">Files</a></li>
<li class="needs-script" hidden><a href="#violations">Violations</a></li>
<li><a href="#criteria">Criteria</a></li>
</ul></nav>
<button type="button" id="theme" class="needs-script" hidden>Theme: automatic</button>
</div>
)";
}

constexpr std::string_view kWithoutScript =
    "<noscript><p class=\"notice\">Scripts are switched off, so the tables of files and of "
    "violations "
    "are not shown. Everything else on this page is complete.</p></noscript>\n";

/// The headings of a table that the script fills. Each has the key by which the script sorts.
template <typename Columns>
std::string SortableHead(const Columns& columns) {
    std::string head = "<thead role=\"rowgroup\"><tr role=\"row\">";
    for (const modModernReportColumns::Column& column : columns) {
        if (column.Title.empty()) {
            continue;
        }
        head.append("<th role=\"columnheader\" scope=\"col\" aria-sort=\"none\" data-key=\"")
            .append(column.Key)
            .append(column.IsNumber ? "\" class=\"number\">" : "\">")
            .append("<button type=\"button\" class=\"sort\">")
            .append(column.Title)
            .append("</button></th>");
    }
    return head + "</tr></thead>\n";
}

std::string Pager(std::string_view table, std::string_view place) {
    const std::string of(table);
    return "<nav class=\"pager\" data-table=\"" + of + "\" aria-label=\"Pages of the " + of + ", " +
           std::string(place) +
           "\" hidden><button type=\"button\" data-step=\"-1\">Previous</button>"
           "<span class=\"page-number\"></span>"
           "<button type=\"button\" data-step=\"1\">Next</button></nav>\n";
}

template <typename Columns>
std::string TableFrame(const std::string& name, std::string_view caption, const Columns& columns) {
    return "<div class=\"table-bar\"><p id=\"" + name +
           "-status\" class=\"status\" role=\"status\"></p>\n" + Pager(name, "top") + "</div>\n" +
           "<table role=\"table\" id=\"" + name + "-table\" class=\"list " + name +
           "\">\n<caption class=\"unseen\">" + std::string(caption) + "</caption>\n" +
           SortableHead(columns) + "<tbody role=\"rowgroup\"></tbody>\n</table>\n" +
           Pager(name, "bottom");
}

std::string SeverityFilter(const ModernReportData& data) {
    std::string html =
        "<fieldset class=\"severities\"><legend>Severity</legend>\n<div class=\"chips\">";
    const SeverityFigures& counts = data.Violations.Counts();
    for (const Severity severity : kSeverities) {
        const std::string level = std::to_string(NumberOf(severity));
        html.append("<label class=\"chip\"><input type=\"checkbox\" checked id=\"severity-")
            .append(level)
            .append("\" value=\"")
            .append(level)
            .append("\">")
            .append(SeverityShape(severity))
            .append(" ")
            .append(Escape(data.Severities.at(IndexOf(severity)).Title))
            .append(" <span class=\"count\">")
            .append(
                modReportFormat::FormatNumber(counts.at(IndexOf(severity)), 0, /*showZero=*/true))
            .append("</span></label>\n");
    }
    return html + "</div></fieldset>\n";
}

}  // namespace

std::string FilesSection() {
    return "<section id=\"files\" class=\"needs-script\" aria-labelledby=\"files-title\" hidden>\n"
           "<h2 id=\"files-title\">Files</h2>\n"
           "<div class=\"filters\" role=\"search\" aria-label=\"Filter the files\">\n"
           "<label class=\"field wide\">Name or folder contains <input type=\"search\" "
           "id=\"files-text\" "
           "autocomplete=\"off\" spellcheck=\"false\"></label>\n"
           "<label class=\"field\">Show <select id=\"files-show\">"
           "<option value=\"all\">all files</option>"
           "<option value=\"failed\">failed or not reviewed</option>"
           "<option value=\"found\">files with violations</option>"
           "</select></label>\n</div>\n" +
           TableFrame(
               "files",
               "Files with their verdicts and figures. The headings sort.",
               modModernReportColumns::kFiles) +
           "</section>\n";
}

std::string ViolationsSection(const ModernReportData& data) {
    return "<section id=\"violations\" class=\"needs-script\" "
           "aria-labelledby=\"violations-title\" hidden>\n"
           "<h2 id=\"violations-title\">Violations</h2>\n"
           "<div class=\"filters\" role=\"search\" aria-label=\"Filter the violations\">\n" +
           SeverityFilter(data) +
           "<label class=\"field\">Category <select id=\"violations-category\">"
           "<option value=\"\">all categories</option></select></label>\n"
           "<label class=\"field\">File <select id=\"violations-file\">"
           "<option value=\"\">all files</option></select></label>\n"
           "<label class=\"field wide\">Text <input type=\"search\" id=\"violations-text\" "
           "autocomplete=\"off\" spellcheck=\"false\"></label>\n"
           "<label class=\"field check\" hidden><input type=\"checkbox\" id=\"violations-open\"> "
           "Without completed</label>\n"
           "<div class=\"actions\"><button type=\"button\" id=\"violations-reset\">Reset "
           "filters</button> <button type=\"button\" id=\"violations-details\" "
           "aria-pressed=\"false\">Show all details</button></div>\n</div>\n" +
           TableFrame(
               "violations",
               "Violations. The headings sort; the title of a violation opens its details.",
               modModernReportColumns::kViolationColumns) +
           "</section>\n";
}

std::string Page(const ModernReportData& data) {
    std::string page = Head(data) + "<body>\n" + SymbolSheet() + TopBar() +
                       "<main id=\"content\" tabindex=\"-1\">\n" + SummarySection(data) +
                       std::string(kWithoutScript) + ChartsSection(data) + HotspotsSection(data) +
                       FilesSection() + ViolationsSection(data) + CriteriaSection(data) +
                       "</main>\n";
    page += "<script type=\"application/json\" id=\"review-data\">";
    page += DataBlock(data);
    page.append("</script>\n<script>")
        .append(modModernReportAssets::kScript)
        .append("</script>\n</body>\n</html>\n");
    return page;
}

}  // namespace dorvik::modModernReport
