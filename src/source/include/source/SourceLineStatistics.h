#pragma once

#include "source/LineType.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace dorvik {

/// Counts source lines by kind. A logical line counts once, however many physical lines it has.
class SourceLineStatistics {
public:
    std::int32_t BlankLines() const { return m_blankLines; }
    void SetBlankLines(std::int32_t count) { m_blankLines = count; }
    std::int32_t CommentOnlyLines() const { return m_commentOnlyLines; }
    void SetCommentOnlyLines(std::int32_t count) { m_commentOnlyLines = count; }
    std::int32_t InLineCommentLines() const { return m_inLineCommentLines; }
    void SetInLineCommentLines(std::int32_t count) { m_inLineCommentLines = count; }
    std::int32_t CodeLines() const { return m_codeLines; }
    void SetCodeLines(std::int32_t count) { m_codeLines = count; }
    std::int32_t TotalLines() const { return m_totalLines; }
    void SetTotalLines(std::int32_t count) { m_totalLines = count; }

    /// The share of comment lines in the code and comment lines, from 0 to 1; nothing where there are none of either.
    /// In-line comments count as comments, and are in the whole a second time, since their lines are code lines too.
    std::optional<double> CommentShare() const;
    /// The same in per cent, rounded half to even; 0 where there are no such lines.
    std::int32_t CommentPercentage() const;

    /// Counts one line. A line of type `Continued` (the last of a file) or `None` counts nowhere.
    void IncrementCount(LineType lineType);

    /// The counter that a rule knows as "TotalLineCount", "CodeLineCount", "BlankLineCount",
    /// "CommentLineCount" or "InLineCommentCount" (in any case). For any other name the result is
    /// false and `value` stays as it is.
    bool SourceLineStatByName(std::string_view name, std::int32_t& value) const;

private:
    std::int32_t m_blankLines = 0;
    std::int32_t m_commentOnlyLines = 0;
    std::int32_t m_inLineCommentLines = 0;
    std::int32_t m_codeLines = 0;
    std::int32_t m_totalLines = 0;
};

}  // namespace dorvik
