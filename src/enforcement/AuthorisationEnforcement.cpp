#include "enforcement/AuthorisationEnforcement.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "enforcement/ViolationLog.h"
#include "foundation/log/Trap.h"
#include "parser/ScopeName.h"
#include "parser/VB6ParserState.h"
#include "rulebase/model/DefaultViolations.h"
#include "rulebase/model/Rulebase.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/VirtualReference.h"

namespace dorvik {

namespace {

constexpr std::int32_t kNotListed = -1;

bool IsBlank(std::string_view text) {
    return modText::Trim(text).empty();
}

bool IsListed(std::string_view version, std::string_view versionList) {
    return modTextCase::Find(versionList, version) != std::string_view::npos;
}

std::string_view AdviceOf(std::string_view advice) {
    return IsBlank(advice) ? std::string_view() : advice;
}

const ViolationDefinition& DefinitionOf(const Rulebase& rulebase, DefaultViolationType type) {
    return rulebase.DefaultViolations().Item(static_cast<std::int32_t>(type));
}

}  // namespace

AuthorisationEnforcement::Verdict
AuthorisationEnforcement::FindReference(VirtualReference& reference) const {
    const AuthorisedReferences& list = m_rulebase.AuthorisedReferences();
    const std::int32_t position =
        reference.DesignTime ? kNotListed : list.FindByLibID(reference.GUID);
    if (position == kNotListed) {
        return {};
    }
    const AuthorisedReference& entry = *list.Item(position);
    if (IsBlank(entry.VersionList())) {
        return {true, true, AdviceOf(entry.Advice())};
    }
    reference.AuthorisedVersions = entry.VersionList();
    return {true, IsListed(reference.Version, entry.VersionList()), AdviceOf(entry.Advice())};
}

void AuthorisationEnforcement::EnforceAuthorisedReference(
    VirtualReference& reference, const Verdict& verdict) {
    if (verdict.Found && verdict.Authorised) {
        return;
    }
    reference.IsAuthorised = false;
    const auto type = verdict.Found ? DefaultViolationType::UnauthorisedReferenceVersion
                                    : DefaultViolationType::UnauthorisedReference;
    m_violations.RaiseViolation(
        DefinitionOf(m_rulebase, type),
        {Location::File, 0, ruleTypeReference, "(Reference)"},
        verdict.Advice);
}

AuthorisationEnforcement::Verdict
AuthorisationEnforcement::FindComponent(VirtualObject& component) const {
    KeyedArrayList& properties = component.Properties();
    if (properties.Item(propertyname::kDesignTime).AsBoolean()) {
        return {};
    }
    const AuthorisedComponents& list = m_rulebase.AuthorisedComponents();
    std::int32_t position = list.FindByLibID(properties.Item(propertyname::kGUID).AsText());
    if (position == kNotListed) {
        position = list.FindByFilename(properties.Item(propertyname::kFilename).AsText());
    }
    if (position == kNotListed) {
        return {};
    }
    const AuthorisedComponent& entry = *list.Item(position);
    const bool listsVersions = !IsBlank(entry.VersionList());
    properties.Add(
        propertyname::kAuthorisedVersions, listsVersions ? entry.VersionList() : std::string());
    const bool authorised =
        !listsVersions ||
        IsListed(properties.Item(propertyname::kVersion).AsText(), entry.VersionList());
    return {true, authorised, AdviceOf(entry.Advice())};
}

void AuthorisationEnforcement::EnforceAuthorisedComponents() {
    Trap({"C_VB6ProjectReview", "EnforceAuthorisedComponents"}, [&] {
        VirtualObject* component = m_state.FindVirtualObject(scopename::kComponent);
        if (component == nullptr) {
            RaiseRuntimeError(runtimeerror::kObjectNotSet);
        }
        const Verdict verdict = FindComponent(*component);
        component->Properties().Add(propertyname::kIsAuthorised, verdict.Authorised);
        if (verdict.Found && verdict.Authorised) {
            return;
        }
        const auto type = verdict.Found ? DefaultViolationType::UnauthorisedComponentVersion
                                        : DefaultViolationType::UnauthorisedComponent;
        m_violations.RaiseViolation(
            DefinitionOf(m_rulebase, type),
            {Location::Layout, 0, ruleTypeComponent, "(Component)"},
            verdict.Advice);
    });
}

}  // namespace dorvik
