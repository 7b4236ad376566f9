#include "source/SourceLineStatistics.h"

#include "base/modText.h"
#include "base/modTextCase.h"

namespace dorvik {

std::optional<double> SourceLineStatistics::CommentShare() const {
    const double comments = static_cast<double>(m_commentOnlyLines) + m_inLineCommentLines;
    const double base = m_codeLines + comments;
    return base > 0 ? std::optional(comments / base) : std::nullopt;
}

std::int32_t SourceLineStatistics::CommentPercentage() const {
    return modText::RoundToLong(CommentShare().value_or(0) * 100);
}

void SourceLineStatistics::IncrementCount(LineType lineType) {
    switch (lineType) {
        case LineType::Blank: ++m_blankLines; break;
        case LineType::CommentOnly: ++m_commentOnlyLines; break;
        case LineType::CodeWithComment: ++m_inLineCommentLines; [[fallthrough]];
        case LineType::Code: ++m_codeLines; break;
        case LineType::Continued:
        case LineType::None: return;  // Required: not even in the total.
    }
    ++m_totalLines;
}

bool SourceLineStatistics::SourceLineStatByName(std::string_view name, std::int32_t& value) const {
    struct Row {
        std::string_view Name;
        std::int32_t SourceLineStatistics::*Counter;
    };
    static constexpr Row kRows[] = {
        {"TotalLineCount", &SourceLineStatistics::m_totalLines},
        {"CodeLineCount", &SourceLineStatistics::m_codeLines},
        {"BlankLineCount", &SourceLineStatistics::m_blankLines},
        {"CommentLineCount", &SourceLineStatistics::m_commentOnlyLines},
        {"InLineCommentCount", &SourceLineStatistics::m_inLineCommentLines},
    };
    for (const Row& row : kRows) {
        if (modTextCase::Equal(row.Name, name)) {
            value = this->*row.Counter;
            return true;
        }
    }
    return false;
}

}  // namespace dorvik
