#include "DeclarationCounts.h"
#include "base/modText.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "parser/ScopeName.h"
#include "parser/VB6Parser.h"
#include "parser/VB6ParserState.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"

// The parser's states of the declaration section, and of enum and type bodies.

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VB6Parser";

std::shared_ptr<VirtualObject> MakeObject(std::string_view parentViolations) {
    auto object = std::make_shared<VirtualObject>();
    object->SetParentViolations(parentViolations);
    return object;
}

void AddArgumentInfo(KeyedArrayList& bag, const modSource::ArgumentInfo& info) {
    bag.Add(propertyname::kArgumentCount, info.ArgumentCount, false);
    bag.Add(propertyname::kArgumentList, info.ArgumentList, false);
}

}  // namespace

/// What differs between an enum and a type.
struct VB6Parser::BlockKind {
    std::string_view Name;
    DeclarationCounts Counts;
    ParserEvent Event;
};

/// What differs between constants and variables.
struct VB6Parser::ItemKind {
    std::string_view Name;
    DeclarationCounts Counts;
};

/// What differs between the arguments of an event and those of a declare statement.
struct VB6Parser::ArgumentKind {
    std::string_view Owner;
    ParserEvent Event;
    std::string_view Message;
    std::string_view Procedure;
};

FileParserState VB6Parser::State_BeginDeclarations() {
    m_parserState->SetCurrentLocation(Location::Declarations);
    FireParserEvent(ParserEvent::BeginDeclarations);
    return FileParserState::DeclarationLine;
}

void VB6Parser::State_EndDeclarations() {
    FireParserEvent(ParserEvent::EndDeclarations);
}

FileParserState VB6Parser::State_DeclarationLine() {
    const std::string_view statement = m_parserState->SourceStatement();
    if (const auto procedure = modSource::IsProcedureDefinition(statement)) {
        State_EndDeclarations();
        return State_BeginProcedure(*procedure);
    }
    FireParserEvent(ParserEvent::Declaration);
    return ProcessDeclaration(statement);
}

// The order matters: every private enum, type and declare statement matches a variable definition too.
FileParserState VB6Parser::ProcessDeclaration(std::string_view statement) {
    if (modSource::IsConstDef(statement)) {
        ProcessConstDeclaration(statement, scopename::kFile, ParserEvent::Const);
    } else if (const auto enumeration = modSource::IsEnumDef(statement)) {
        ProcessEnumDeclaration(enumeration->Scope, enumeration->Name);
        return FileParserState::EnumBodyLine;
    } else if (const auto event = modSource::IsEventDef(statement)) {
        ProcessEventDeclaration(statement, event->Name, event->Scope);
    } else if (const auto implements = modSource::IsImplementsStatement(statement)) {
        ProcessImplementsStatement(implements->Library, implements->Interface);
    } else if (const auto type = modSource::IsTypeDef(statement)) {
        ProcessTypeDeclaration(type->Scope, type->Name);
        return FileParserState::TypeBodyLine;
    } else if (const auto declare = modSource::IsDeclareStatement(statement)) {
        ProcessDeclareStatement(statement, *declare);
    } else if (modSource::IsVariableDef(statement)) {
        ProcessVariableDeclaration(statement, scopename::kFile, ParserEvent::Variable);
    }
    return FileParserState::DeclarationLine;
}

void VB6Parser::ProcessEnumDeclaration(std::string_view scope, std::string_view name) {
    BeginBlock({scopename::kEnum, kEnumCounts, ParserEvent::BeginEnum}, scope, name);
}

void VB6Parser::ProcessTypeDeclaration(std::string_view scope, std::string_view name) {
    BeginBlock({scopename::kType, kTypeCounts, ParserEvent::BeginType}, scope, name);
}

void VB6Parser::BeginBlock(const BlockKind& kind, std::string_view scope, std::string_view name) {
    m_parserState->SetObjectStartLine(m_sourceLineNumber, m_line.Raw);
    auto object = MakeObject(scopename::kDeclarations);
    object->SetHasLSTATS(true);
    object->Properties().Add(propertyname::kName, name, false);
    object->Properties().Add(propertyname::kScope, scope, false);
    kind.Counts.Count(ObjectInScope(scopename::kFile), IsPublicWithoutScope(scope));
    // The opening line came before the object was in scope, but it belongs to the object.
    object->LineStats().IncrementCount(m_lineType);
    m_parserState->Attach(std::move(object), kind.Name);
    FireParserEvent(kind.Event);
}

FileParserState VB6Parser::State_EnumBodyLine() {
    const std::string_view statement = m_parserState->SourceStatement();
    if (modSource::IsEnumDefEnd(statement)) {
        FireParserEvent(ParserEvent::EndEnum);
        m_parserState->Detach(scopename::kEnum);
        m_parserState->SetCurrentLocation(Location::Declarations);
        return FileParserState::DeclarationLine;
    }
    FireParserEvent(ParserEvent::EnumBody);
    const std::string_view text = modText::Trim(modSource::StripInLineComment(statement));
    if (!text.empty()) {
        // Required: `Rem x` is not a comment here but an element of that name.
        ProcessEnumElement(text);
    }
    return FileParserState::EnumBodyLine;
}

void VB6Parser::ProcessEnumElement(std::string_view text) {
    const std::size_t equals = text.find('=');
    const bool hasValue = equals != std::string_view::npos;
    m_parserState->IncrementMemberStats(scopename::kEnum, propertyname::kElementCount);
    auto element = MakeObject(scopename::kDeclarations);
    element->Properties().Add(propertyname::kName, modText::Trim(text.substr(0, equals)), false);
    element->Properties().Add(
        propertyname::kValue,
        hasValue ? modText::Trim(text.substr(equals + 1)) : std::string_view(),
        false);
    element->Properties().Add(propertyname::kHasValue, hasValue, false);
    FireEventFor(std::move(element), scopename::kEnumElement, ParserEvent::EnumElement);
}

FileParserState VB6Parser::State_TypeBodyLine() {
    const std::string_view statement = m_parserState->SourceStatement();
    if (modSource::IsTypeDefEnd(statement)) {
        FireParserEvent(ParserEvent::EndType);
        m_parserState->Detach(scopename::kType);
        m_parserState->SetCurrentLocation(Location::Declarations);
        return FileParserState::DeclarationLine;
    }
    FireParserEvent(ParserEvent::TypeBody);
    const std::string_view text = modText::Trim(modSource::StripInLineComment(statement));
    if (!text.empty()) {
        ProcessTypeElement(text);
    }
    return FileParserState::TypeBodyLine;
}

void VB6Parser::ProcessTypeElement(std::string_view text) {
    auto element = MakeObject(scopename::kDeclarations);
    if (!modVOSource::ExtractTypeElementFromDeclaration(text, *element)) {
        modLog::Log().LogDebugTrace(
            "Error extracting type element.", "State_TypeBodyLine", kModule);
        return;
    }
    m_parserState->IncrementMemberStats(scopename::kType, propertyname::kElementCount);
    FireEventFor(std::move(element), scopename::kTypeElement, ParserEvent::TypeElement);
}

void VB6Parser::ProcessEventDeclaration(
    std::string_view statement, std::string_view name, std::string_view scope) {
    auto object = MakeObject(scopename::kDeclarations);
    object->Properties().Add(propertyname::kName, name, false);
    object->Properties().Add(propertyname::kScope, scope, false);
    modSource::ArgumentInfo info;
    modSource::ExtractArgumentInfoFromDef(statement, info);
    AddArgumentInfo(object->Properties(), info);
    ObjectInScope(scopename::kFile).IncrementMemberCount(propertyname::kEventCount);
    m_parserState->Attach(std::move(object), scopename::kEvent);
    FireParserEvent(ParserEvent::Event);
    FireArgumentEvents(
        {scopename::kEvent,
         ParserEvent::EventArgument,
         "Error extracting event arguments.",
         "ProcessEventDeclaration"},
        info);
    m_parserState->Detach(scopename::kEvent);
}

void VB6Parser::ProcessDeclareStatement(
    std::string_view statement, const modSource::DeclareStatement& declare) {
    auto object = MakeObject(scopename::kDeclarations);
    KeyedArrayList& bag = object->Properties();
    bag.Add(propertyname::kScope, declare.Scope, false);
    bag.Add(propertyname::kProcedureType, declare.ProcedureType, false);
    bag.Add(propertyname::kName, declare.Name, false);
    bag.Add(propertyname::kAlias, declare.Alias, false);
    bag.Add(propertyname::kLib, declare.Library, false);
    modSource::ArgumentInfo info;
    modSource::ExtractArgumentInfoFromDef(statement, info);
    AddArgumentInfo(bag, info);
    bag.Add(propertyname::kDataType, info.ReturnType, false);
    kDeclareCounts.Count(ObjectInScope(scopename::kFile), IsPublicWithoutScope(declare.Scope));
    m_parserState->Attach(std::move(object), scopename::kDeclare);
    FireParserEvent(ParserEvent::Declare);
    FireArgumentEvents(
        {scopename::kDeclare,
         ParserEvent::DeclareArgument,
         "Error extracting Declare arguments.",
         "ProcessDeclareStatement"},
        info);
    m_parserState->Detach(scopename::kDeclare);
}

void VB6Parser::FireArgumentEvents(const ArgumentKind& kind, const modSource::ArgumentInfo& info) {
    if (info.ArgumentCount < 1) {
        return;
    }
    VirtualObjects arguments;
    if (!modVOSource::ExtractArgsFromArgumentList(info.ArgumentList, kind.Owner, arguments)) {
        modLog::Log().LogDebugTrace(kind.Message, kind.Procedure, kModule);
        return;
    }
    for (const auto& argument : arguments) {
        argument->SetParentViolations(scopename::kDeclarations);
        FireEventFor(argument, scopename::kArgument, kind.Event);
    }
}

void VB6Parser::ProcessImplementsStatement(
    std::string_view library, std::string_view interfaceName) {
    auto object = MakeObject(scopename::kDeclarations);
    object->Properties().Add(propertyname::kLibrary, library, false);
    object->Properties().Add(propertyname::kInterface, interfaceName, false);
    ObjectInScope(scopename::kFile).IncrementMemberCount(propertyname::kImplementsCount);
    FireEventFor(std::move(object), scopename::kImplements, ParserEvent::Implements);
}

void VB6Parser::ProcessConstDeclaration(
    std::string_view statement, std::string_view parent, ParserEvent event) {
    VirtualObjects constants;
    if (!modVOSource::ExtractConstantsFromDeclaration(statement, parent, constants)) {
        modLog::Log().LogDebugTrace(
            "Error extracting constants.", "ProcessConstDeclaration", kModule);
        return;
    }
    FireItemEvents({scopename::kConst, kConstCounts}, constants, parent, event);
}

void VB6Parser::ProcessVariableDeclaration(
    std::string_view statement, std::string_view parent, ParserEvent event) {
    VirtualObjects variables;
    if (!modVOSource::ExtractVariablesFromDeclaration(statement, parent, variables)) {
        modLog::Log().LogDebugTrace(
            "Error extracting variables.", "ProcessVariableDeclaration", kModule);
        return;
    }
    FireItemEvents({scopename::kVariable, kVariableCounts}, variables, parent, event);
}

void VB6Parser::FireItemEvents(
    const ItemKind& kind, const VirtualObjects& items, std::string_view parent, ParserEvent event) {
    VirtualObject& owner = ObjectInScope(parent);
    const bool isAtFileLevel = parent == scopename::kFile;
    for (const auto& item : items) {
        item->SetParentViolations(parent);
        m_parserState->Attach(item, kind.Name);
        if (isAtFileLevel) {
            kind.Counts.Count(
                owner, IsPublicOnlyByScope(item->Properties().Item(propertyname::kScope).AsText()));
            AddEventSource(*item);
        } else {
            owner.IncrementMemberCount(kind.Counts.Total);
        }
        FireParserEvent(event);
        m_parserState->Detach(kind.Name);
    }
}

void VB6Parser::AddEventSource(const VirtualObject& variable) {
    const Variant* isWithEvents = variable.Properties().Find(propertyname::kIsWithEvents);
    if (isWithEvents != nullptr && isWithEvents->AsBoolean()) {
        m_sourceFile->AddEventItem(variable.Properties().Item(propertyname::kName).AsText());
    }
}

void VB6Parser::FireEventFor(
    std::shared_ptr<VirtualObject> object, std::string_view name, ParserEvent event) {
    m_parserState->Attach(std::move(object), name);
    FireParserEvent(event);
    m_parserState->Detach(name);
}

}  // namespace dorvik
