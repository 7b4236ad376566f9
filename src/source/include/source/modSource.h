#pragma once

#include "source/LineType.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Every question about one source line: its kind, its statements, its comment, and whether it
/// begins or ends a definition. There is no tokeniser: each recogniser looks at the start of the
/// text with a fixed table, and the blind spots of that are relied upon by statistics and rules.
///
/// Comparison and search ignore case. Trimming removes blanks only; tabs go where a function says so.
/// Views that come back point into the text handed in (or to a constant) and live as long as it does.
/// Nothing here allocates but what returns a `std::string` or a record.
namespace dorvik::modSource {

// Classification ---------------------------------------------------------------------------------

LineType SourceLineType(std::string_view line);
/// Nothing but blanks and tabs.
bool IsBlankLine(std::string_view line);
bool IsCommentOnlyLine(std::string_view line);
bool HasInLineComment(std::string_view line);
bool IsMultiStatementLine(std::string_view line) noexcept;
/// A text in column 1 up to a colon, without blank and bracket. `Else: x = 1` is one too.
bool IsLineLabel(std::string_view line) noexcept;
/// A line `Object = ...` that names the file of a component.
bool IsOCXObjectDefinition(std::string_view line);

// Statements and comments ------------------------------------------------------------------------

/// Cuts the first statement off `rest`, which keeps what follows it. `more` is false only for
/// the call after the last statement, which gives an empty one; callers end their loop by it.
std::string_view NextStatementFromSourceLine(std::string_view& rest, bool& more) noexcept;
/// The byte position, from 1, of the first `character` (ASCII) outside a string; 0 if there is none.
/// A quote is never outside.
std::size_t IntelligentSeek(std::string_view text, char character, bool stripComment) noexcept;
std::string_view StripInLineComment(std::string_view line) noexcept;
/// The line with every string emptied: its two quotes stay side by side.
std::string StripQuotedText(std::string_view line);
/// The same without a copy where there is nothing to empty: the view points into `line` or `buffer`.
std::string_view StripQuotedText(std::string_view line, std::string& buffer);
/// Quoted text, comment and outer white space removed.
std::string StripSourceLine(std::string_view line);
std::string_view StripTabsAndSpaces(std::string_view line);
/// The line as the keyword tests see it: cut at the first single quote, also one in a string.
std::string_view StripTabsAndComment(std::string_view line);
/// The text without a quote at its start and one at its end, each looked at by itself.
std::string_view RemoveQuotes(std::string_view text);

// Definitions ------------------------------------------------------------------------------------

struct ProcedureDefinition {
    std::string Name;
    std::string
        ProcedureType;  ///< "Sub", "Function", or "Property Get" and the like as the line spells it
    std::string Scope;  ///< as `ScopeFromDef`
    bool IsStatic = false;
};

struct EventDefinition {
    std::string Name;
    std::string Scope;
};

/// An `Enum` or a `Type`.
struct BlockDefinition {
    std::string Scope;
    std::string Name;
};

struct DeclareStatement {
    std::string Scope;
    std::string ProcedureType;
    std::string Name;
    std::string Library;
    std::string Alias;
};

struct ImplementsStatement {
    std::string Library;  ///< empty where the interface is not qualified
    std::string Interface;
};

struct ArgumentInfo {
    std::string ArgumentList;  ///< as written, without the outer brackets
    std::int32_t ArgumentCount = 0;
    std::string ReturnType;  ///< a type, a type suffix character, or empty
};

bool IsSubDef(std::string_view line);
bool IsFunctionDef(std::string_view line);
bool IsPropertyDef(std::string_view line);
std::optional<ProcedureDefinition> IsProcedureDefinition(std::string_view line);
/// `End Sub`, `End Function` or `End Property`; also anything that only begins so.
bool IsProcedureDefinitionEnd(std::string_view line);
bool IsEnumDefEnd(std::string_view line);
bool IsTypeDefEnd(std::string_view line);
bool IsConstDef(std::string_view line);
/// Everything that begins with a scope word or `Dim`: to be tested last.
bool IsVariableDef(std::string_view line);
std::optional<EventDefinition> IsEventDef(std::string_view line);
std::optional<BlockDefinition> IsEnumDef(std::string_view line);
std::optional<BlockDefinition> IsTypeDef(std::string_view line);
/// A text that cannot be cut into its parts is logged and is none.
std::optional<DeclareStatement> IsDeclareStatement(std::string_view line);
std::optional<ImplementsStatement> IsImplementsStatement(std::string_view line);

/// "Private", "Public", "Global", "Friend" or empty. A text without a blank is logged and has none.
std::string_view ScopeFromDef(std::string_view line);

/// A definition without "(" is logged and leaves `info` as it was.
void ExtractArgumentInfoFromDef(std::string_view definition, ArgumentInfo& info);

}  // namespace dorvik::modSource
