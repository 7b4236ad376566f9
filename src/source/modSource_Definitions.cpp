// The recognisers of definitions: keyword tables, and the cutting of what they recognise.

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "foundation/log/Trap.h"
#include "source/modKeyword.h"
#include "source/modSource.h"

#include <algorithm>
#include <initializer_list>

namespace dorvik::modSource {

namespace {

using modKeyword::MakeTable;

// clang-format off
constexpr auto kSub = MakeTable(
    "PRIVATE STATIC SUB ", "FRIEND STATIC SUB ", "PUBLIC STATIC SUB ",
    "PRIVATE SUB ", "STATIC SUB ", "FRIEND SUB ", "PUBLIC SUB ", "SUB ");
constexpr auto kFunction = MakeTable(
    "PRIVATE STATIC FUNCTION ", "FRIEND STATIC FUNCTION ", "PUBLIC STATIC FUNCTION ",
    "PRIVATE FUNCTION ", "STATIC FUNCTION ", "FRIEND FUNCTION ", "PUBLIC FUNCTION ", "FUNCTION ");
constexpr auto kProperty = MakeTable(
    "PRIVATE STATIC PROPERTY ", "FRIEND STATIC PROPERTY ", "PUBLIC STATIC PROPERTY ",
    "PRIVATE PROPERTY ", "STATIC PROPERTY ", "FRIEND PROPERTY ", "PUBLIC PROPERTY ", "PROPERTY ");
// Required: no blank after the words of an end, so `End Subroutine` matches too.
constexpr auto kProcedureEnd = MakeTable("END PROPERTY", "END FUNCTION", "END SUB");
constexpr auto kEnumEnd = MakeTable("END ENUM");
constexpr auto kTypeEnd = MakeTable("END TYPE");
constexpr auto kConst = MakeTable("PRIVATE CONST ", "GLOBAL CONST ", "PUBLIC CONST ", "CONST ");
constexpr auto kVariable = MakeTable("PRIVATE ", "GLOBAL ", "PUBLIC ", "STATIC ", "DIM ");
constexpr auto kEvent = MakeTable("PUBLIC EVENT ", "EVENT ");
constexpr auto kEnum = MakeTable("PRIVATE ENUM ", "PUBLIC ENUM ", "ENUM ");
constexpr auto kType = MakeTable("PRIVATE TYPE ", "PUBLIC TYPE ", "TYPE ");
constexpr auto kDeclare = MakeTable("PRIVATE DECLARE ", "PUBLIC DECLARE ", "DECLARE ");
constexpr auto kImplements = MakeTable("IMPLEMENTS ");
// clang-format on

constexpr std::string_view kModule = "C_Source";

[[noreturn]] void RaiseInvalidCut() {
    RaiseRuntimeError(runtimeerror::kInvalidProcedureCall);
}

/// The text from the first `sought` on, less its first `skip` characters; nothing without a `sought`.
std::optional<std::string_view>
TextFrom(std::string_view text, std::string_view sought, std::size_t skip) {
    const std::size_t found = modTextCase::Find(text, sought);
    if (found == std::string_view::npos) {
        return std::nullopt;
    }
    return modUtf8::Mid(text.substr(found), skip + 1);
}

std::string_view CutAt(std::string_view text, char character) {
    return text.substr(0, text.find(character));
}

/// The name after a keyword: up to the first bracket, or all there is.
std::string NameFrom(std::optional<std::string_view> text) {
    return std::string(modText::Trim(CutAt(text.value_or(std::string_view()), '(')));
}

/// Required: is-static goes by the place of the word, wherever it is in front of the keyword.
bool IsStaticBefore(std::string_view line, std::string_view keyword) {
    const std::string_view text = StripTabsAndComment(line);
    const std::size_t found = modTextCase::Find(text, "Static");
    return found != std::string_view::npos && found < modTextCase::Find(text, keyword);
}

ProcedureDefinition
MakeProcedure(std::string_view line, std::string_view keyword, std::string_view procedureType) {
    const std::size_t behind = modUtf8::Length(procedureType) + 1;
    return {
        NameFrom(TextFrom(line, procedureType, behind)),
        std::string(procedureType),
        std::string(ScopeFromDef(line)),
        IsStaticBefore(line, keyword)};
}

std::optional<BlockDefinition> MakeBlock(std::string_view line, std::string_view keyword) {
    const std::string_view text = modText::Trim(StripInLineComment(line));
    const auto name = TextFrom(text, keyword, keyword.size());
    return BlockDefinition{
        std::string(ScopeFromDef(line)), std::string(name.value_or(std::string_view()))};
}

/// The text up to the next blank. Raises where there is none.
std::string_view NextWord(std::string_view text) {
    const std::size_t blank = text.find(' ');
    if (blank == std::string_view::npos) {
        RaiseInvalidCut();
    }
    return text.substr(0, blank);
}

/// The next word without its last character, a quote. Raises where there is no such word.
std::string_view NextQuotedWord(std::string_view text) {
    const std::string_view word = NextWord(text);
    if (word.empty()) {
        RaiseInvalidCut();
    }
    return modUtf8::WithoutLast(word, 1);
}

DeclareStatement CutDeclareStatement(std::string_view line) {
    DeclareStatement result;
    result.Scope = ScopeFromDef(line);
    const auto declared = TextFrom(line, "Declare ", 8);
    if (!declared) {
        RaiseInvalidCut();
    }
    const std::string_view procedureType = NextWord(*declared);
    const std::string_view behindType = declared->substr(procedureType.size() + 1);
    const std::string_view name = NextWord(behindType);
    const auto library = TextFrom(behindType.substr(name.size()), " Lib ", 6);
    if (!library) {
        RaiseInvalidCut();
    }
    result.ProcedureType = procedureType;
    result.Name = name;
    result.Library = NextQuotedWord(*library);
    // The blank after the library belongs to what is searched: " Alias " begins with it.
    if (const auto alias = TextFrom(library->substr(library->find(' ')), " Alias ", 8)) {
        result.Alias = NextQuotedWord(*alias);
    }
    return result;
}

bool IsTypeSuffix(char character) {
    return std::string_view("!$#%&@").find(character) != std::string_view::npos;
}

std::int32_t CountArguments(std::string_view list) {
    if (list.empty()) {
        return 0;
    }
    std::string buffer;
    const std::string_view text = StripQuotedText(list, buffer);
    return static_cast<std::int32_t>(std::count(text.begin(), text.end(), ',')) + 1;
}

/// The place of the bracket that closes the argument list; npos if there is none.
std::size_t FindClosingBracket(std::string_view text) {
    // A return type that is an array ends in a pair of brackets of its own.
    const bool returnsArray = text.size() > 2 && text.ends_with("()");
    return text.rfind(')', returnsArray ? text.size() - 3 : std::string_view::npos);
}

ArgumentInfo CutArgumentInfo(std::string_view definition) {
    const std::size_t opening = definition.find('(');
    if (opening == std::string_view::npos) {
        RaiseInvalidCut();
    }
    std::string_view text = StripInLineComment(modText::TrimRight(definition.substr(opening)));
    ArgumentInfo result;
    if (opening > 0 && IsTypeSuffix(definition[opening - 1])) {
        result.ReturnType = definition[opening - 1];
    } else if (const std::size_t closing = FindClosingBracket(text);
               closing != std::string_view::npos) {
        const std::string_view behind = text.substr(closing + 1);
        result.ReturnType = behind.substr(modKeyword::Match(behind, " As "));
        text = text.substr(0, closing + 1);
    }
    text.remove_prefix(1);
    if (text.ends_with(')')) {
        text.remove_suffix(1);
    }
    result.ArgumentList = modText::Trim(text);
    result.ArgumentCount = CountArguments(result.ArgumentList);
    return result;
}

}  // namespace

bool IsSubDef(std::string_view line) {
    return kSub.Begins(line);
}

bool IsFunctionDef(std::string_view line) {
    return kFunction.Begins(line);
}

bool IsPropertyDef(std::string_view line) {
    return kProperty.Begins(line);
}

std::optional<ProcedureDefinition> IsProcedureDefinition(std::string_view line) {
    if (IsSubDef(line)) {
        return MakeProcedure(line, "Sub", "Sub");
    }
    if (IsFunctionDef(line)) {
        return MakeProcedure(line, "Function", "Function");
    }
    if (IsPropertyDef(line)) {
        // Twelve characters hold "Property Get" as well as "Let" and "Set".
        const std::size_t found = modTextCase::Find(line, "Property");
        return MakeProcedure(line, "Property", modUtf8::Left(line.substr(found), 12));
    }
    return std::nullopt;
}

bool IsProcedureDefinitionEnd(std::string_view line) {
    return kProcedureEnd.Begins(line);
}

bool IsEnumDefEnd(std::string_view line) {
    return kEnumEnd.Begins(line);
}

bool IsTypeDefEnd(std::string_view line) {
    return kTypeEnd.Begins(line);
}

bool IsConstDef(std::string_view line) {
    return kConst.Begins(line);
}

bool IsVariableDef(std::string_view line) {
    return kVariable.Begins(line);
}

std::optional<EventDefinition> IsEventDef(std::string_view line) {
    if (!kEvent.Begins(line)) {
        return std::nullopt;
    }
    return EventDefinition{NameFrom(TextFrom(line, "Event", 6)), std::string(ScopeFromDef(line))};
}

std::optional<BlockDefinition> IsEnumDef(std::string_view line) {
    return kEnum.Begins(line) ? MakeBlock(line, "Enum ") : std::nullopt;
}

std::optional<BlockDefinition> IsTypeDef(std::string_view line) {
    return kType.Begins(line) ? MakeBlock(line, "Type ") : std::nullopt;
}

std::optional<DeclareStatement> IsDeclareStatement(std::string_view line) {
    if (!kDeclare.Begins(line)) {
        return std::nullopt;
    }
    return Trapped({kModule, "IsDeclareStatement"}, std::nullopt, [&] {
        return std::optional(CutDeclareStatement(line));
    });
}

std::optional<ImplementsStatement> IsImplementsStatement(std::string_view line) {
    if (!kImplements.Begins(line)) {
        return std::nullopt;
    }
    const std::string_view text = modText::Trim(StripInLineComment(line));
    const std::string_view name = text.substr(std::min(text.find(' '), text.size() - 1) + 1);
    const std::size_t point = name.find('.');
    if (point == std::string_view::npos) {
        return ImplementsStatement{{}, std::string(name)};
    }
    return ImplementsStatement{
        std::string(name.substr(0, point)), std::string(name.substr(point + 1))};
}

std::string_view ScopeFromDef(std::string_view line) {
    const std::string_view text = StripTabsAndComment(line);
    const std::size_t blank = text.find(' ');
    if (blank == std::string_view::npos) {
        Trap({kModule, "ScopeFromDef"}, [] { RaiseInvalidCut(); });
        return {};
    }
    for (const std::string_view scope : {"Private", "Public", "Global", "Friend"}) {
        if (modKeyword::Equal(text.substr(0, blank), scope)) {
            return scope;
        }
    }
    return {};
}

void ExtractArgumentInfoFromDef(std::string_view definition, ArgumentInfo& info) {
    Trap({kModule, "ExtractArgumentInfoFromDef"}, [&] { info = CutArgumentInfo(definition); });
}

}  // namespace dorvik::modSource
