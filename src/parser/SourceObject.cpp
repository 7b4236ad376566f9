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
    struct Row {
        std::string_view Name;
        const std::string& (*Text)(const SourceObject&);
    };
    static constexpr std::array kTexts = {
        Row{propertyname::kStrippedStatement,
            [](const SourceObject& s) -> const std::string& {
                return s.StrippedStatement();
            }},
        Row{propertyname::kStatement,
            [](const SourceObject& s) -> const std::string& {
                return s.m_statement;
            }},
        Row{propertyname::kStrippedLine,
            [](const SourceObject& s) -> const std::string& {
                return s.StrippedLine();
            }},
        Row{propertyname::kLine,
            [](const SourceObject& s) -> const std::string& {
                return s.m_line;
            }},
        Row{propertyname::kPhysicalLine,
            [](const SourceObject& s) -> const std::string& {
                return s.m_physicalLine;
            }},
    };
    const Row* row = modNames::FindRow(kTexts, propertyName);
    return row == nullptr ? nullptr : &row->Text(*this);
}

std::optional<Variant> SourceObject::FindProperty(std::string_view propertyName) const {
    struct Row {
        std::string_view Name;
        Variant (*Value)(const SourceObject&);
    };
    static constexpr std::array kProperties = {
        Row{propertyname::kIsBlank,
            [](const SourceObject& s) {
                return Variant(s.m_lineType == LineType::Blank);
            }},
        Row{propertyname::kIsCode,
            [](const SourceObject& s) {
                return Variant(
                    s.m_lineType == LineType::Code || s.m_lineType == LineType::CodeWithComment);
            }},
        Row{propertyname::kIsComment,
            [](const SourceObject& s) {
                return Variant(s.m_lineType == LineType::CommentOnly);
            }},
        Row{propertyname::kIsMultiStatement,
            [](const SourceObject& s) {
                return Variant(s.m_isMultiStatement);
            }},
        Row{propertyname::kPhysicalLineCount,
            [](const SourceObject& s) {
                return Variant(s.m_physicalLineCount);
            }},
        Row{propertyname::kLineNumber,
            [](const SourceObject& s) {
                return Variant(s.m_lineNumber);
            }},
        Row{propertyname::kCommentBlock,
            [](const SourceObject& s) {
                return Variant(s.CommentBlock());
            }},
    };
    if (const Row* row = modNames::FindRow(kProperties, propertyName)) {
        return row->Value(*this);
    }
    // A script has searched the texts before it comes here.
    const std::string* const text = FindText(propertyName);
    return text == nullptr ? std::nullopt : std::optional<Variant>(*text);
}

}  // namespace dorvik
