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

constexpr const char* kParsingFailed =
    "Unable to load the rulebase because of an unexpected error during parsing.";
constexpr const char* kWrongSchema =
    "Unable to load the rulebase because it has an incorrect schema version.";
constexpr const char* kWrongSchemaForOptions =
    "Unable to load the review options because the rulebase has an incorrect schema version.";

void Warn(const std::string& text) {
    modHost::ShowMessage({MessageIcon::Exclamation, "Dorvik", text});
}

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

std::unique_ptr<Rulebase> RulebaseManager::LoadRulebase(RulebaseLoadCriteria& criteria) {
    if (criteria.RulebaseFile().empty()) {
        modKyErrors::RaiseError(modKyErrors::kyErrNoFilename, "RulebaseManager::LoadRulebase");
    }
    std::unique_ptr<Rulebase> result;
    Trap({"RulebaseManager", "LoadRulebase"}, [&] {
        auto rulebase = std::make_unique<Rulebase>();
        KyXMLDoc document;
        if (!document.LoadFromFile(criteria.RulebaseFile())) {
            Warn(kParsingFailed);
            return;
        }
        const std::shared_ptr<KyXMLElement> rootElement = document.RootElement();
        KyXMLElement& root = ExistingElement(rootElement);
        if (!CheckSchemaVersion(root)) {
            Warn(kWrongSchema);
            return;
        }
        rulebase->SetFilename(criteria.RulebaseFile());
        LoadProperties(root, *rulebase);
        LoadControlTags(root, rulebase->ControlTags());
        LoadDataTypeTags(root, rulebase->DataTypeTags());
        LoadScopeTags(root, rulebase->ScopeTags());
        LoadDefaultViolations(root, rulebase->DefaultViolations());
        // The categories come before the rules: they fill the excluded list that rules are held against.
        LoadCategoryList(root, rulebase->CategoryList(), criteria);
        LoadSeverityList(root, rulebase->SeverityList());
        LoadListedItems(root, criteria, *rulebase);
        LoadRules(root, criteria, rulebase->RuleLists());
        if (criteria.LoadForEdit()) {
            LoadReport(root, *rulebase);
        }
        rulebase->SetDirty(false);
        result = std::move(rulebase);
    });
    return result;
}

bool RulebaseManager::LoadReviewOptions(
    std::string_view rulebaseFile,
    CategoryList& categories,
    SeverityTable& severities,
    RulebaseLoadCriteria& criteria,
    ToleranceSettings* tolerances) {
    bool loaded = false;
    Trap({"RulebaseManager", "LoadReviewOptions"}, [&] {
        KyXMLDoc document;
        if (!document.LoadFromFile(rulebaseFile)) {
            Warn(kParsingFailed);
            return;
        }
        const std::shared_ptr<KyXMLElement> rootElement = document.RootElement();
        KyXMLElement& root = ExistingElement(rootElement);
        if (!CheckSchemaVersion(root)) {
            Warn(kWrongSchemaForOptions);
            return;
        }
        if (tolerances != nullptr) {
            LoadTolerances(root, *tolerances);
        }
        categories.Clear();
        LoadCategoryList(root, categories, criteria);
        severities.Clear();
        LoadSeverityList(root, severities);
        LoadCounts(root, criteria);
        loaded = true;
    });
    return loaded;
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
    bool saved = false;
    Trap({"RulebaseManager", "Save"}, [&] {
        KyXMLDoc document;
        document.NewDoc(modRulebaseSchema::kRoot);
        const std::shared_ptr<KyXMLElement> rootElement = document.RootElement();
        KyXMLElement& root = ExistingElement(rootElement);
        root.SetAttributeValueByName(
            modRulebaseSchema::kVersionAttribute, modRulebaseSchema::kVersion);
        std::string failure;
        if (!SaveSections(root, rulebase, failure)) {
            Warn("Error during save: " + failure);
            return;
        }
        if (!ReadsBack(document)) {
            Warn(kNotReadBack);
            return;
        }
        if (!document.SaveToFile(target)) {
            Warn("Error during save: " + SaveErrorText(document.LastError()));
            return;
        }
        rulebase.SetDirty(false);
        saved = true;
    });
    return saved;
}

}  // namespace dorvik
