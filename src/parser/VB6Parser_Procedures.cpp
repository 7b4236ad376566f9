#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "parser/ScopeName.h"
#include "parser/VB6Parser.h"
#include "parser/VB6ParserState.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/modKeyword.h"
#include "source/modMemberStats.h"

#include <algorithm>
#include <array>

// The parser's states of procedures, and their cyclomatic complexity.

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VB6Parser";

Location LocationOf(std::string_view procedureType) {
    struct Row {
        std::string_view ProcedureType;
        Location Value;
    };
    static constexpr Row kRows[] = {
        {"Property Get", Location::PropertyGet},
        {"Property Let", Location::PropertyLet},
        {"Property Set", Location::PropertySet},
    };
    for (const Row& row : kRows) {
        if (modTextCase::Equal(row.ProcedureType, procedureType)) {
            return row.Value;
        }
    }
    return Location::Procedure;
}

/// A text that adds a path through a procedure, unless the statement begins with `Exception`.
struct Branch {
    std::string_view Text;
    std::string_view Exception;
};

constexpr Branch kBranches[] = {
    {"Case ", "Case Else"},
    {"If ", ""},
    {"For ", ""},
    {"ElseIf ", ""},
    {"While ", ""},
    {"Do While ", ""},
    {"Do Until ", ""},
    {"On ", "On Error "},
};

/// True for the letters, in lower case, with which a branch begins: most statements begin with another.
constexpr std::array<bool, 128> kBeginsBranch = [] {
    std::array<bool, 128> begins{};
    for (const Branch& branch : kBranches) {
        begins.at(static_cast<std::size_t>(modKeyword::FoldAscii(branch.Text.front()))) = true;
    }
    return begins;
}();

bool MayBeBranch(char first) {
    return !modKeyword::IsAscii(first) ||
           kBeginsBranch.at(static_cast<std::size_t>(modKeyword::FoldAscii(first)));
}

/// A statement adds at most one path, however many conditions it has.
bool IsBranch(std::string_view statement) {
    const std::string_view text = modText::Trim(statement);
    if (text.empty() || !MayBeBranch(text.front())) {
        return false;
    }
    return std::any_of(std::begin(kBranches), std::end(kBranches), [&](const Branch& branch) {
        return modKeyword::StartsWith(text, branch.Text) &&
               (branch.Exception.empty() || !modKeyword::StartsWith(text, branch.Exception));
    });
}

}  // namespace

FileParserState VB6Parser::State_ProcedureHeader() {
    if (const auto procedure = modSource::IsProcedureDefinition(m_parserState->SourceStatement())) {
        return State_BeginProcedure(*procedure);
    }
    return FileParserState::ProcedureHeader;
}

FileParserState VB6Parser::State_BeginProcedure(const modSource::ProcedureDefinition& procedure) {
    m_parserState->SetCurrentLocation(LocationOf(procedure.ProcedureType));
    m_parserState->SetCurrentProcedureName(procedure.Name);
    m_complexity = 1;
    m_parserState->SetObjectStartLine(m_sourceLineNumber, m_line.Raw);
    auto object = std::make_shared<VirtualObject>();
    object->SetHasLSTATS(true);
    object->SetHasVLIST(true);
    object->SetParentViolations(scopename::kFile);
    KeyedArrayList& bag = object->Properties();
    bag.Add(propertyname::kName, procedure.Name, false);
    bag.Add(propertyname::kProcedureType, procedure.ProcedureType, false);
    bag.Add(propertyname::kScope, procedure.Scope, false);
    bag.Add(propertyname::kIsStatic, procedure.IsStatic, false);
    bag.Add(propertyname::kIsEventProcedure, IsEventProcedure(procedure.Name), false);
    modSource::ArgumentInfo info;
    modSource::ExtractArgumentInfoFromDef(m_parserState->SourceStatement(), info);
    bag.Add(propertyname::kArgumentCount, info.ArgumentCount, false);
    bag.Add(propertyname::kArgumentList, info.ArgumentList, false);
    bag.Add(propertyname::kDataType, info.ReturnType, false);
    m_parserState->Attach(object, scopename::kProcedure);
    modMemberStats::InitialiseProcedureMemberStats(*object);
    // The header came before the object was in scope, but it is one of its lines.
    object->LineStats().IncrementCount(m_lineType);
    m_sourceFile->FileStats()->IncrementMemberCount(propertyname::kProcedureCount);
    FireParserEvent(ParserEvent::BeginProcedure);
    ProcessProcedureArguments(info);
    return FileParserState::ProcedureBodyLine;
}

bool VB6Parser::IsEventProcedure(std::string_view name) const {
    const std::size_t underscore = name.rfind('_');
    return underscore != std::string_view::npos &&
           m_sourceFile->HasEventItem(name.substr(0, underscore));
}

void VB6Parser::ProcessProcedureArguments(const modSource::ArgumentInfo& info) {
    if (info.ArgumentCount < 1) {
        return;
    }
    VirtualObjects arguments;
    if (!modVOSource::ExtractArgsFromArgumentList(
            info.ArgumentList, scopename::kProcedure, arguments)) {
        modLog::Log().LogDebugTrace(
            "Error extracting procedure arguments.", "State_BeginProcedure", kModule);
        return;
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(info.ArgumentCount); ++i) {
        // Required: a list with fewer arguments than its commas imply ends the file.
        if (i >= arguments.size()) {
            RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
        }
        arguments[i]->SetParentViolations(scopename::kProcedure);
        FireEventFor(arguments[i], scopename::kArgument, ParserEvent::ProcedureArgument);
    }
}

FileParserState VB6Parser::State_ProcedureBodyLine() {
    const std::string_view statement = m_parserState->SourceStatement();
    if (modSource::IsProcedureDefinitionEnd(statement)) {
        return EndProcedure();
    }
    FireParserEvent(ParserEvent::ProcedureBody);
    if (modSource::IsConstDef(statement)) {
        ProcessConstDeclaration(statement, scopename::kProcedure, ParserEvent::LocalConst);
    } else if (modSource::IsVariableDef(statement)) {
        ProcessVariableDeclaration(statement, scopename::kProcedure, ParserEvent::LocalVariable);
    } else if (IsBranch(statement)) {
        ++m_complexity;
    }
    return FileParserState::ProcedureBodyLine;
}

FileParserState VB6Parser::EndProcedure() {
    ObjectInScope(scopename::kProcedure)
        .IncrementMemberCount(propertyname::kCyclomaticComplexity, m_complexity);
    m_complexityTotal += m_complexity;
    ++m_procedureCount;
    m_complexityMaximum = std::max(m_complexityMaximum, m_complexity);
    FireParserEvent(ParserEvent::EndProcedure);
    m_parserState->Detach(scopename::kProcedure);
    m_parserState->SetCurrentLocation(Location::Declarations);
    m_parserState->ResetCurrentProcedure();
    return FileParserState::ProcedureHeader;
}

void VB6Parser::ProcessLineLabel(std::string_view line) {
    auto label = std::make_shared<VirtualObject>();
    label->SetParentViolations(scopename::kProcedure);
    label->Properties().Add(propertyname::kName, line.substr(0, line.find(':')), false);
    FireEventFor(std::move(label), scopename::kLineLabel, ParserEvent::LineLabel);
}

}  // namespace dorvik
