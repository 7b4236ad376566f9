#pragma once

#include "foundation/text/StringBuilder.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace dorvik {

/// Builds a classic page: lower-case tags, double-quoted attributes, line ends only where an operation says so, so
/// that a table is one long line.
///
/// Nothing is escaped: texts of a rulebase or of a source line are written unchanged. The text is UTF-8;
/// `modReportFile` converts it when it writes the file.
class HTMLHelper2 {
public:
    /// Name and value alternating. REQUIRES: an even number.
    using Attributes = std::initializer_list<std::string_view>;

    /// The whole text so far.
    std::string DocumentText() const { return m_builder.Text(); }

    /// Begins a new document, in place of any earlier one. `style` is a whole style element.
    void StartDocument(std::string_view title, std::string_view style);
    void EndDocument();

    void StartTag(std::string_view tag, Attributes attributes = {});
    void TagValue(std::string_view value) { Append(value); }
    void EndTag(std::string_view tag);
    /// Start tag, value, end tag.
    void InsertQuickTag(std::string_view tag, std::string_view value, Attributes attributes = {});
    void InsertBreak();
    /// A line end in the text of the page, which a browser does not show.
    void InsertBlankLine();

    /// `href` is written unchanged; `modReportLinks` makes one of the name of a file.
    void InsertHyperlinkedText(std::string_view href, std::string_view text);
    void InsertHyperlinkedLI(std::string_view href, std::string_view text);

    /// Required: the width is written even if it is empty.
    void InsertTableHeading(
        std::string_view value, std::string_view width = {}, std::string_view className = {});
    /// An attribute with an empty value is omitted.
    void InsertTableCell(
        std::string_view value,
        std::string_view align = {},
        std::string_view className = {},
        std::string_view width = {});
    void InsertHyperLinkedTableCell(
        std::string_view value,
        std::string_view href,
        std::string_view align = {},
        std::string_view className = {},
        std::string_view width = {});

private:
    void Append(std::string_view text);
    void AppendAttribute(std::string_view name, std::string_view value);
    void
    StartTableCellTag(std::string_view align, std::string_view className, std::string_view width);

    StringBuilder m_builder;
};

}  // namespace dorvik
