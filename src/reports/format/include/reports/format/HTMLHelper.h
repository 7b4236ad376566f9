#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// Builds the page of a panel that shows a few paragraphs: upper-case tags, single-quoted attributes,
/// nothing escaped. The pages of reports are built by `HTMLHelper2`.
class HTMLHelper {
public:
    void Clear() { m_document.clear(); }
    /// Sets the document to its first tag.
    void BeginDocument();
    void BeginHeader();
    void SetTitle(std::string_view title);
    void EndHeader();
    void BeginBody();
    void AddHTML(std::string_view text);
    /// `size` in points, 0 for none; `align` is 1 left, 2 centre, 3 right, 4 justified.
    // Required: without a colour the quote around the style stays open.
    void AddHeading(
        std::int16_t level,
        std::string_view text,
        std::string_view font = {},
        std::int16_t size = 0,
        std::string_view colour = {},
        std::int32_t align = 0);
    /// An empty text gives an empty paragraph, whatever the style.
    void AddParagraph(
        std::string_view text,
        std::string_view font = {},
        std::int16_t size = 0,
        bool bold = false);
    void StartLabel(std::string_view name);
    void EndLabel();
    void AddBreak();
    void AddHyperlink(std::string_view text, std::string_view url);
    void EndBody();
    // Required: replaces the whole document by its last tags. Do not call it; read `Document`.
    void EndDocument();
    const std::string& Document() const { return m_document; }

private:
    std::string m_document;
};

}  // namespace dorvik
