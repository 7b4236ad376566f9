#include "rulebase/file/RulebaseManager.h"

#include "base/modKyErrors.h"
#include "base/modTextCase.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "foundation/xml/KyXMLDoc.h"
#include "modSectionReading.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHost.h"
#include "rulebase/file/modRulebaseSchema.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kAdminName = "DVKAdmin";
constexpr std::string_view kAdminProgram = "DVKAdmin.exe";

struct SaveErrorRow {
    std::int32_t Code;
    const char* Text;
};

constexpr SaveErrorRow kSaveErrors[] = {
    {static_cast<std::int32_t>(0x80070003), "Invalid path."},
    {static_cast<std::int32_t>(0x80070005), "Access denied."},
    {static_cast<std::int32_t>(0x80070013), "Media is write-protected."},
    {static_cast<std::int32_t>(0x80070015), "Device not ready."},
    {static_cast<std::int32_t>(0x80070070), "Not enough space."},
};

std::string SaveErrorText(std::int32_t code) {
    for (const SaveErrorRow& row : kSaveErrors) {
        if (row.Code == code) {
            return row.Text;
        }
    }
    return "Unknown error " + std::to_string(code);
}

constexpr const char* kNotReadBack = "Error during save: What would be written cannot be read "
                                     "again; a name or text may hold a character that no "
                                     "file of this kind can hold.";

/// True if the document as text is the same document again.
bool ReadsBack(const KyXMLDoc& document) {
    const std::string text = document.XMLString();
    KyXMLDoc copy;
    return copy.LoadFromString(text) && copy.XMLString() == text;
}

/// All sections of a file, empty, in the order of the file.
void AddSections(KyXMLElement& root, const RuleLists& rules) {
    using namespace modRulebaseSchema;
    for (const std::string_view name :
         {kProperties,
          kControlTags,
          kDataTypeTags,
          kScopeTags,
          kDefaultViolations,
          kCategoryList,
          kSeverityList,
          kAuthorisedComponents,
          kAuthorisedReferences,
          kUnauthorisedKeywords,
          kRules,
          kReport}) {
        const std::shared_ptr<KyXMLElement> section = root.AddElement(name);
        if (name == kRules) {
            KyXMLElement& rulesElement = ExistingElement(section);
            rulesElement.AddAttribute(kLastRuleID, std::to_string(rules.LastID()));
            rulesElement.AddElement(kCodingConventions);
            rulesElement.AddElement(kNamingConventions);
        }
    }
}

}  // namespace

RulebaseManager::RulebaseManager(std::string applicationName, std::string localAppPath)
    : m_applicationName(std::move(applicationName)), m_localAppPath(std::move(localAppPath)) {}

RulebaseManager::RulebaseManager()
    : RulebaseManager(modLog::Log().Component(), modGlobal::Data().LocalAppPath()) {}

bool RulebaseManager::IsAdminInstalled() const {
    return modTextCase::Equal(m_applicationName, kAdminName) ||
           modFiles::FileExists(m_localAppPath + std::string(kAdminProgram));
}

void RulebaseManager::Warn(const std::string& text) {
    modHost::ShowMessage({MessageIcon::Exclamation, "Dorvik", text});
}

bool RulebaseManager::SaveSections(KyXMLElement& root, Rulebase& rulebase, std::string& failure) {
    const RuleLists& lists = rulebase.RuleLists();
    AddSections(root, lists);
    const auto rules = modSectionReading::Section(root, modRulebaseSchema::kRules);
    bool whole = SaveProperties(root, rulebase, failure);
    whole = SaveControlTags(root, rulebase.ControlTags(), failure) && whole;
    whole = SaveDataTypeTags(root, rulebase.DataTypeTags(), failure) && whole;
    whole = SaveScopeTags(root, rulebase.ScopeTags(), failure) && whole;
    whole = SaveDefaultViolations(root, rulebase.DefaultViolations(), failure) && whole;
    whole = SaveCategoryList(root, rulebase.CategoryList(), failure) && whole;
    whole = SaveSeverityList(root, rulebase.SeverityList(), failure) && whole;
    whole = SaveAuthorisedComponents(root, rulebase.AuthorisedComponents(), failure) && whole;
    whole = SaveAuthorisedReferences(root, rulebase.AuthorisedReferences(), failure) && whole;
    whole = SaveUnauthorisedKeywords(root, lists, failure) && whole;
    whole = SaveCodingConventions(*rules, lists, failure) && whole;
    whole = SaveNamingConventions(*rules, lists, failure) && whole;
    return SaveReport(root, rulebase.Report(), failure) && whole;
}

bool RulebaseManager::Save(Rulebase& rulebase, std::string_view filename) {
    const std::string target(filename.empty() ? std::string_view(rulebase.Filename()) : filename);
    if (target.empty()) {
        modKyErrors::RaiseError(modKyErrors::kyErrNoFilename, "RulebaseManager::Save");
    }
    return Trapped({"RulebaseManager", "Save"}, false, [&] {
        KyXMLDoc document;
        document.NewDoc(modRulebaseSchema::kRoot);
        const std::shared_ptr<KyXMLElement> rootElement = document.RootElement();
        KyXMLElement& root = ExistingElement(rootElement);
        root.SetAttributeValueByName(
            modRulebaseSchema::kVersionAttribute, modRulebaseSchema::kVersion);
        std::string failure;
        if (!SaveSections(root, rulebase, failure)) {
            Warn("Error during save: " + failure);
            return false;
        }
        if (!ReadsBack(document)) {
            Warn(kNotReadBack);
            return false;
        }
        if (!document.SaveToFile(target)) {
            Warn("Error during save: " + SaveErrorText(document.LastError()));
            return false;
        }
        rulebase.SetDirty(false);
        return true;
    });
}

}  // namespace dorvik
