#pragma once

#include "base/Variant.h"
#include "parser/CurrentSourceLine.h"
#include "parser/NamingTags.h"
#include "parser/ObjectScope.h"
#include "parser/ParserEvent.h"
#include "parser/SourceObject.h"
#include "source/LineType.h"
#include "source/Location.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class VirtualObject;

/// The current position of the parser: the line and statement, the objects in scope, and the event that is being
/// fired. The parser writes it; rules, naming conventions and the violation log read it. One state serves the
/// whole review of a project.
class VB6ParserState {
public:
    VB6ParserState() = default;
    VB6ParserState(const VB6ParserState&) = delete;
    VB6ParserState& operator=(const VB6ParserState&) = delete;

    // The current line and statement. Before the first line of the first file there is none.
    LineType CurrentLineType() const { return m_source.Type(); }
    const std::string& PhysicalSourceLine() const { return m_source.PhysicalLine(); }
    std::int32_t SourceLineNumber() const { return m_source.LineNumber(); }
    const std::string& SourceStatement() const { return m_source.Statement(); }
    void SetSourceStatement(std::string_view statement) { m_source.SetStatement(statement); }
    const std::string& StrippedSourceStatement() const { return m_source.StrippedStatement(); }
    void SetCurrentSourceLine(const CurrentSourceLine& line) { m_source.SetLine(line); }
    /// After this no line is current: all empty or 0, the line type 5.
    void ResetCurrentSourceLine() { m_source.SetLine({}); }
    const SourceObject& Source() const { return m_source; }

    // The section of the file, and the procedure or control in it.
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

    // The event that is being fired and the rule that is being applied.
    dorvik::ParserEvent ParserEvent() const { return m_parserEvent; }
    void SetParserEvent(dorvik::ParserEvent event) { m_parserEvent = event; }
    std::string_view GetParserEventText() const;
    const std::string& CurrentRuleID() const { return m_currentRuleID; }
    void SetCurrentRuleID(std::string_view ruleID) { m_currentRuleID = ruleID; }

    // The tags for the name that a naming convention tests.
    void SetArrayTag(std::string_view tag) { m_namingTags.Array = tag; }
    void SetControlTag(std::string_view tag) { m_namingTags.Control = tag; }
    void SetScopeTag(std::string_view tag) { m_namingTags.Scope = tag; }
    void SetDataTypeTag(std::string_view tag) { m_namingTags.DataType = tag; }

    /// Brings an object into scope. Raises `kyErrKeyInUse` if the name is already in scope.
    void Attach(std::shared_ptr<VirtualObject> object, std::string_view name);
    /// Takes an object out of scope. An unknown name is only logged.
    void Detach(std::string_view name);
    /// The object in scope under that name, in any case, or nothing.
    std::shared_ptr<VirtualObject> GetVirtualObject(std::string_view name) const;
    /// The same without sharing ownership; null if the name is not in scope.
    VirtualObject* FindVirtualObject(std::string_view name) const;
    /// The names in scope, in the order of attachment.
    std::vector<std::string> ScopeNames() const;

    /// Counts a line on every object in scope that keeps line statistics.
    void IncrementLineStats(LineType lineType);
    /// Raises `kyErrNoSuchItem` if the object is not in scope.
    void IncrementMemberStats(std::string_view objectName, std::string_view memberName);

    /// The value of a property of an object in scope, or of "Source" or "NamingConvention". If there is none, `ok`
    /// is false, the value is the empty text and `errorText` is the reason.
    Variant GetObjectProperty(
        std::string_view objectName,
        std::string_view propertyName,
        bool& ok,
        std::string& errorText) const;

private:
    /// The value of a property; where there is none, an empty one and the reason.
    struct Answer {
        Variant Value;
        std::optional<std::string> Error;
    };

    Answer AnswerOf(std::string_view objectName, std::string_view propertyName) const;

    ObjectScope m_scope;
    NamingTags m_namingTags;
    SourceObject m_source;
    std::string m_currentProcedureName;
    std::int32_t m_objectStartLineNumber = 0;
    std::string m_objectStartSourceLine;
    dorvik::ParserEvent m_parserEvent = dorvik::ParserEvent::None;
    Location m_currentLocation = Location::None;
    std::string m_currentControlName;
    std::string m_currentRuleID;
};

}  // namespace dorvik
