#include "rulebase/model/DefaultViolations.h"

#include "base/BasicError.h"

#include <memory>
#include <string>

namespace dorvik {

namespace {

constexpr std::int32_t kSeverity = 1;
constexpr std::int16_t kImpact = 900;

struct DefaultViolationRow {
    const char* Title;
    const char* Description;
    const char* Advice;
    const char* ViolationDescription;
};

constexpr DefaultViolationRow kRows[] = {
    {"Unauthorised Component",
     "The component '%Component.Filename%' has been detected in file %File.Filename% but is not an "
     "authorised component.",
     "This component must be authorised for use before it can be utilised by a project.",
     "Enter details of the violation to be raised whenever an unauthorised component is detected."},
    {"Unauthorised Component Version",
     "Version '%Component.Version%' of the component '%Component.Filename%' is not authorised for "
     "use by projects.",
     "Ensure the project is amended to use an authorised component version i.e. having a version "
     "number in the following list: %Component.AuthorisedVersions%.",
     "Enter details of the violation to be raised whenever an unauthorised component version is "
     "detected."},
    {"Unauthorised Reference",
     "A reference to '%Reference.Description%' has been detected in %Project.Filename% but is not "
     "an authorised reference.",
     "The ActiveX component library '%Reference.Description%' must be authorised before it can be "
     "utilised by a project.",
     "Enter details of the violation to be raised whenever an unauthorised reference is detected."},
    {"Unauthorised Reference Version",
     "Version '%Reference.Version%' of the ActiveX library '%Reference.Description%' is not "
     "authorised for use by projects.",
     "Ensure the project is amended to use an authorised library version i.e. having a version "
     "number in the following list: %Reference.AuthorisedVersions%.",
     "Enter details of the violation to be raised whenever an unauthorised reference version is "
     "detected."},
    {"Unknown Control",
     "",
     "",
     "Enter details of the violation to be raised when an unknown control ProgID is detected "
     "during "
     "enforcement of a naming convention which uses control tags."},
};

std::shared_ptr<ViolationDefinition> Build(const DefaultViolationRow& row) {
    auto definition = std::make_shared<ViolationDefinition>();
    definition->SetTitle(row.Title);
    definition->SetDescription(row.Description);
    definition->SetAdvice(row.Advice);
    definition->SetViolationDescription(row.ViolationDescription);
    definition->SetSeverity(kSeverity);
    definition->SetImpact(kImpact);
    definition->SetDirty(false);
    return definition;
}

}  // namespace

DefaultViolations::DefaultViolations() {
    for (const DefaultViolationRow& row : kRows) {
        m_items.Add(Build(row));
    }
    m_items.SetDirty(false);
}

bool DefaultViolations::Dirty() const {
    for (const auto& item : m_items) {
        if (item->Dirty()) {
            return true;
        }
    }
    return false;
}

void DefaultViolations::SetDirty(bool dirty) {
    for (const auto& item : m_items) {
        item->SetDirty(dirty);
    }
}

ViolationDefinition& DefaultViolations::Item(std::int32_t index) {
    if (index < 1 || index > Count()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return *m_items.Item(index);
}

const ViolationDefinition& DefaultViolations::Item(std::int32_t index) const {
    if (index < 1 || index > Count()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return *m_items.Item(index);
}

ViolationDefinition* DefaultViolations::ItemByType(std::int32_t type) {
    return type >= 1 && type <= Count() ? m_items.Item(type).get() : nullptr;
}

const ViolationDefinition* DefaultViolations::ItemByType(std::int32_t type) const {
    return type >= 1 && type <= Count() ? m_items.Item(type).get() : nullptr;
}

}  // namespace dorvik
