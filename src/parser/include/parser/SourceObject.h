#pragma once

#include "base/Variant.h"
#include "parser/CurrentSourceLine.h"
#include "source/LineType.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

/// The current line of the parser and the current statement in it. Rules read both as the properties of the
/// object "Source".
class SourceObject {
public:
    LineType Type() const { return m_lineType; }
    const std::string& PhysicalLine() const { return m_physicalLine; }
    std::int32_t LineNumber() const { return m_lineNumber; }
    const std::string& Statement() const { return m_statement; }
    /// The statement without comment, white space around it, and contents of strings. Computed once
    /// per statement.
    const std::string& StrippedStatement() const;

    /// Makes a line the current one. Its statement is empty until it is set.
    void SetLine(const CurrentSourceLine& line);
    void SetStatement(std::string_view statement);

    /// The value of a property; nothing for an unknown name.
    std::optional<Variant> FindProperty(std::string_view propertyName) const;
    /// The same for those properties that are a line or a statement, without a copy; null for all others.
    /// Valid until the next statement.
    const std::string* FindText(std::string_view propertyName) const;

private:
    const std::string& StrippedLine() const;
    std::string_view CommentBlock() const;

    std::string m_physicalLine;
    std::int32_t m_physicalLineCount = 0;
    std::string m_line;
    mutable std::string m_strippedLine;
    mutable bool m_isLineStripped = false;
    std::int32_t m_lineNumber = 0;
    LineType m_lineType = LineType::None;
    bool m_isMultiStatement = false;
    std::shared_ptr<const std::string> m_commentBlock;
    std::size_t m_commentBlockSize = 0;  // of this line; its owner may append to the block later
    std::string m_statement;
    mutable std::string m_strippedStatement;
    mutable bool m_isStatementStripped = false;
};

}  // namespace dorvik
