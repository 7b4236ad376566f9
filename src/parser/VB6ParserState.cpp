#include "parser/VB6ParserState.h"

#include "base/modKyErrors.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "modNames.h"
#include "parser/ScopeName.h"
#include "parser/VBParserEvents.h"
#include "parser/modMissingValue.h"
#include "source/VirtualObject.h"

#include <algorithm>
#include <array>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VB6ParserState";

/// Whether line statistics answer for properties that the bag of the object lacks.
bool AnswersWithLineStatistics(std::string_view objectName) {
    constexpr std::array kNames = {
        scopename::kEnum,
        scopename::kFile,
        scopename::kProcedure,
        scopename::kProject,
        scopename::kType,
    };
    return std::any_of(kNames.begin(), kNames.end(), [&](std::string_view name) {
        return modNames::Equal(name, objectName);
    });
}

/// The value of an entry of the object's lists; null if it has none of that name.
const Variant* FindEntryOf(VirtualObject& object, std::string_view propertyName) {
    if (modTextCase::StartsWith(propertyName, scopename::kWorkfieldPrefix)) {
        return object.Workfields().Find(propertyName.substr(scopename::kWorkfieldPrefix.size()));
    }
    return object.Properties().Find(propertyName);
}

}  // namespace

void VB6ParserState::SetObjectStartLine(std::int32_t lineNumber, std::string_view physicalText) {
    m_objectStartLineNumber = lineNumber;
    m_objectStartSourceLine = physicalText;
}

void VB6ParserState::ResetCurrentProcedure() {
    m_currentProcedureName.clear();
    m_objectStartLineNumber = 0;
}

std::string_view VB6ParserState::GetParserEventText() const {
    return VBParserEvents::ParserEventText(static_cast<std::int32_t>(m_parserEvent));
}

void VB6ParserState::Attach(std::shared_ptr<VirtualObject> object, std::string_view name) {
    m_scope.Attach(std::move(object), name);
}

void VB6ParserState::Detach(std::string_view name) {
    Trap({kModule, "Detach"}, [&] { m_scope.Detach(name); });
}

std::shared_ptr<VirtualObject> VB6ParserState::GetVirtualObject(std::string_view name) const {
    const ObjectScope::Entry* entry = m_scope.Find(name);
    return entry == nullptr ? nullptr : entry->Object;
}

VirtualObject* VB6ParserState::FindVirtualObject(std::string_view name) const {
    const ObjectScope::Entry* entry = m_scope.Find(name);
    return entry == nullptr ? nullptr : entry->Object.get();
}

std::vector<std::string> VB6ParserState::ScopeNames() const {
    std::vector<std::string> names;
    names.reserve(m_scope.Entries().size());
    for (const ObjectScope::Entry& entry : m_scope.Entries()) {
        names.push_back(entry.Name);
    }
    return names;
}

void VB6ParserState::IncrementLineStats(LineType lineType) {
    for (const ObjectScope::Entry& entry : m_scope.Entries()) {
        if (entry.Object->HasLSTATS()) {
            entry.Object->LineStats().IncrementCount(lineType);
        }
    }
}

void VB6ParserState::IncrementMemberStats(
    std::string_view objectName, std::string_view memberName) {
    VirtualObject* object = FindVirtualObject(objectName);
    if (object == nullptr) {
        modKyErrors::RaiseError(modKyErrors::kyErrNoSuchItem, "KeyedArrayList::Item");
    }
    object->IncrementMemberCount(memberName);
}

Variant VB6ParserState::GetObjectProperty(
    std::string_view objectName,
    std::string_view propertyName,
    bool& ok,
    std::string& errorText) const {
    Answer answer = AnswerOf(objectName, propertyName);
    ok = !answer.Error.has_value();
    errorText = std::move(answer.Error).value_or(std::string());
    return std::move(answer.Value);
}

VB6ParserState::Answer
VB6ParserState::AnswerOf(std::string_view objectName, std::string_view propertyName) const {
    if (modNames::Equal(objectName, scopename::kNamingConvention)) {
        if (const std::string* tag = m_namingTags.Find(propertyName)) {
            return {*tag, std::nullopt};
        }
        return {
            std::string(),
            modMissingValue::InvalidProperty(scopename::kNamingConvention, propertyName)};
    }
    if (modNames::Equal(objectName, scopename::kSource)) {
        if (auto value = m_source.FindProperty(propertyName)) {
            return {*std::move(value), std::nullopt};
        }
        // Required: this value is empty, where those of other objects are the empty text.
        return {Variant(), modMissingValue::InvalidProperty(scopename::kSource, propertyName)};
    }
    VirtualObject* object = FindVirtualObject(objectName);
    if (object == nullptr) {
        return {std::string(), modMissingValue::UnknownObject(objectName)};
    }
    if (const Variant* value = FindEntryOf(*object, propertyName)) {
        return {*value, std::nullopt};
    }
    const bool isWorkfield = modTextCase::StartsWith(propertyName, scopename::kWorkfieldPrefix);
    std::int32_t count = 0;
    if (!isWorkfield && AnswersWithLineStatistics(objectName) &&
        object->LineStats().SourceLineStatByName(propertyName, count)) {
        return {count, std::nullopt};
    }
    return {std::string(), modMissingValue::NotFound(objectName, propertyName)};
}

}  // namespace dorvik
