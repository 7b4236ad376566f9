#include "parser/SourceObject.h"

#include "modNames.h"
#include "source/PropertyName.h"
#include "source/modSource.h"

#include <array>

namespace dorvik {

void SourceObject::SetStatement(std::string_view statement) {
    m_statement = statement;
    m_isStatementStripped = false;
}

const std::string& SourceObject::StrippedStatement() const {
    if (!m_isStatementStripped) {
        m_strippedStatement = modSource::StripSourceLine(m_statement);
        m_isStatementStripped = true;
    }
    return m_strippedStatement;
}

const std::string& SourceObject::StrippedLine() const {
    if (!m_isLineStripped) {
        m_strippedLine = modSource::StripSourceLine(m_line);
        m_isLineStripped = true;
    }
    return m_strippedLine;
}

std::string_view SourceObject::CommentBlock() const {
    if (m_commentBlock == nullptr) {
        return {};
    }
    return std::string_view(*m_commentBlock).substr(0, m_commentBlockSize);
}

void SourceObject::SetLine(const CurrentSourceLine& line) {
    m_physicalLine = line.PhysicalText;
    m_physicalLineCount = line.PhysicalLineCount;
    m_line = line.LogicalText;
    m_lineNumber = line.LineNumber;
    m_lineType = line.Type;
    m_isMultiStatement = line.IsMultiStatement;
    if (m_commentBlock != line.CommentBlock) {
        m_commentBlock = line.CommentBlock;
    }
    m_commentBlockSize = m_commentBlock == nullptr ? 0 : m_commentBlock->size();
    m_statement.clear();
    m_isLineStripped = false;
    m_isStatementStripped = false;
}

const std::string* SourceObject::FindText(std::string_view propertyName) const {
    using Source = SourceObject;
    struct Row {
        std::string_view Name;
        const std::string& (*Text)(const Source&);
    };
    static constexpr std::array kTexts = {
        Row{propertyname::kStrippedStatement,
            [](const Source& s) -> const std::string& {
                return s.StrippedStatement();
            }},
        Row{propertyname::kStatement,
            [](const Source& s) -> const std::string& {
                return s.m_statement;
            }},
        Row{propertyname::kStrippedLine,
            [](const Source& s) -> const std::string& {
                return s.StrippedLine();
            }},
        Row{propertyname::kLine,
            [](const Source& s) -> const std::string& {
                return s.m_line;
            }},
        Row{propertyname::kPhysicalLine,
            [](const Source& s) -> const std::string& {
                return s.m_physicalLine;
            }},
    };
    const Row* row = modNames::FindRow(kTexts, propertyName);
    return row == nullptr ? nullptr : &row->Text(*this);
}

std::optional<Variant> SourceObject::FindProperty(std::string_view propertyName) const {
    using Source = SourceObject;
    struct Row {
        std::string_view Name;
        Variant (*Value)(const Source&);
    };
    static constexpr std::array kProperties = {
        Row{propertyname::kIsBlank,
            [](const Source& s) {
                return Variant(s.m_lineType == LineType::Blank);
            }},
        Row{propertyname::kIsCode,
            [](const Source& s) {
                return Variant(
                    s.m_lineType == LineType::Code || s.m_lineType == LineType::CodeWithComment);
            }},
        Row{propertyname::kIsComment,
            [](const Source& s) {
                return Variant(s.m_lineType == LineType::CommentOnly);
            }},
        Row{propertyname::kIsMultiStatement,
            [](const Source& s) {
                return Variant(s.m_isMultiStatement);
            }},
        Row{propertyname::kPhysicalLineCount,
            [](const Source& s) {
                return Variant(s.m_physicalLineCount);
            }},
        Row{propertyname::kLineNumber,
            [](const Source& s) {
                return Variant(s.m_lineNumber);
            }},
        Row{propertyname::kCommentBlock,
            [](const Source& s) {
                return Variant(s.CommentBlock());
            }},
    };
    if (const std::string* text = FindText(propertyName)) {
        return Variant(*text);
    }
    if (const Row* row = modNames::FindRow(kProperties, propertyName)) {
        return row->Value(*this);
    }
    return std::nullopt;
}

}  // namespace dorvik
