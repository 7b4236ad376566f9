#pragma once

#include "base/Variant.h"
#include "parser/CurrentSourceLine.h"
#include "parser/Location.h"
#include "parser/ParserEvent.h"
#include "source/LineType.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class VirtualObject;

/// Where the parser stands: the current line and statement, the objects in scope, the event now
/// being fired. The parser writes it; rules, naming conventions and the violation log read it.
/// One state serves the whole review of a project.
class VB6ParserState {
public:
    VB6ParserState() = default;
    VB6ParserState(const VB6ParserState&) = delete;
    VB6ParserState& operator=(const VB6ParserState&) = delete;

    // The current line. Before the first line of the first file there is none.
    LineType CurrentLineType() const { return m_lineType; }
    const std::string& PhysicalSourceLine() const { return m_physicalLine; }
    std::int32_t SourceLineNumber() const { return m_sourceLineNumber; }
    const std::string& SourceStatement() const { return m_statement; }
    void SetSourceStatement(std::string_view statement);
    /// The statement without comment, white space around it, and contents of strings. Computed once
    /// per statement.
    const std::string& StrippedSourceStatement() const;
    void SetCurrentSourceLine(const CurrentSourceLine& line);
    /// After this no line is current: all empty or 0, the line type 5.
    void ResetCurrentSourceLine();

    // Where the parser stands.
    const std::string& CurrentProcedureName() const { return m_currentProcedureName; }
    void SetCurrentProcedureName(std::string_view name) { m_currentProcedureName = name; }
    const std::string& CurrentControlName() const { return m_currentControlName; }
    void SetCurrentControlName(std::string_view name) { m_currentControlName = name; }
    Location CurrentLocation() const { return m_currentLocation; }
    void SetCurrentLocation(Location location) { m_currentLocation = location; }
    /// Line of the procedure, enum or type being read, and its text as in the file.
    std::int32_t ObjectStartLineNumber() const { return m_objectStartLineNumber; }
    const std::string& ObjectStartSourceLine() const { return m_objectStartSourceLine; }
    void SetObjectStartLine(std::int32_t lineNumber, std::string_view physicalText);
    void ResetCurrentProcedure();

    // The event now being fired and the rule now being applied.
    dorvik::ParserEvent ParserEvent() const { return m_parserEvent; }
    void SetParserEvent(dorvik::ParserEvent event) { m_parserEvent = event; }
    std::string_view GetParserEventText() const;
    const std::string& CurrentRuleID() const { return m_currentRuleID; }
    void SetCurrentRuleID(std::string_view ruleID) { m_currentRuleID = ruleID; }

    // The tags worked out for the name that a naming convention looks at.
    void SetArrayTag(std::string_view tag) { m_arrayTag = tag; }
    void SetControlTag(std::string_view tag) { m_controlTag = tag; }
    void SetScopeTag(std::string_view tag) { m_scopeTag = tag; }
    void SetDataTypeTag(std::string_view tag) { m_dataTypeTag = tag; }

    /// Brings an object into scope. Raises `kyErrKeyInUse` if the name is already in scope.
    void Attach(std::shared_ptr<VirtualObject> object, std::string_view name);
    /// Takes an object out of scope. An unknown name is logged, no more.
    void Detach(std::string_view name);
    /// The object in scope under that name, in any case, or nothing.
    std::shared_ptr<VirtualObject> GetVirtualObject(std::string_view name) const;
    /// The same without taking a share; null if the name is not in scope.
    VirtualObject* FindVirtualObject(std::string_view name) const;
    /// The names in scope, in the order of attachment.
    std::vector<std::string> ScopeNames() const;

    /// Counts a line on every object in scope that keeps line statistics.
    void IncrementLineStats(LineType lineType);
    /// Raises `kyErrNoSuchItem` if the object is not in scope.
    void IncrementMemberStats(std::string_view objectName, std::string_view memberName);

    /// The answer to a question of the form object-dot-property. `ok` tells whether there is one; if
    /// not, the value is the empty text and `errorText` says why.
    Variant GetObjectProperty(
        std::string_view objectName,
        std::string_view propertyName,
        bool& ok,
        std::string& errorText) const;
    /// The same for those properties of `Source` that are a line or statement, without a copy; null for all others.
    /// It holds until the next statement.
    const std::string* FindSourceText(std::string_view propertyName) const;

private:
    struct ScopeEntry {
        std::string Name;
        std::shared_ptr<VirtualObject> Object;
    };

    /// The value of a property; where there is none, an empty one and the reason.
    struct Answer {
        Variant Value;
        std::optional<std::string> Error;
    };

    const ScopeEntry* FindEntry(std::string_view name) const;
    Answer AnswerOf(std::string_view objectName, std::string_view propertyName) const;
    Answer NamingConventionProperty(std::string_view propertyName) const;
    Answer SourceProperty(std::string_view propertyName) const;
    const std::string& StrippedLine() const;
    std::string_view CommentBlock() const;

    std::vector<ScopeEntry> m_scope;
    std::string m_arrayTag;
    std::string m_controlTag;
    std::string m_scopeTag;
    std::string m_dataTypeTag;

    std::string m_physicalLine;
    std::int32_t m_physicalLineCount = 0;
    std::string m_line;
    mutable std::string m_strippedLine;
    mutable bool m_isLineStripped = false;
    std::int32_t m_sourceLineNumber = 0;
    LineType m_lineType = LineType::None;
    bool m_isMultiStatement = false;
    std::shared_ptr<const std::string> m_commentBlock;
    std::size_t m_commentBlockSize = 0;  // the block may go on growing behind this
    std::string m_statement;
    mutable std::string m_strippedStatement;
    mutable bool m_isStatementStripped = false;

    std::string m_currentProcedureName;
    std::int32_t m_objectStartLineNumber = 0;
    std::string m_objectStartSourceLine;
    dorvik::ParserEvent m_parserEvent = dorvik::ParserEvent::None;
    Location m_currentLocation = Location::None;
    std::string m_currentControlName;
    std::string m_currentRuleID;
};

}  // namespace dorvik
