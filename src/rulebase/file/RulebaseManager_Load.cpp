#include "RulebaseReader.h"
#include "base/modKyErrors.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "foundation/xml/KyXMLDoc.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/file/modRulebaseSchema.h"

namespace dorvik {

namespace {

constexpr const char* kParsingFailed =
    "Unable to load the rulebase because of an unexpected error during parsing.";
constexpr const char* kWrongSchema =
    "Unable to load the rulebase because it has an incorrect schema version.";
constexpr const char* kWrongSchemaForOptions =
    "Unable to load the review options because the rulebase has an incorrect schema version.";

TagTable& TableOf(Rulebase& rulebase, std::string_view section) {
    if (section == modRulebaseSchema::kControlTags) {
        return rulebase.ControlTags();
    }
    return section == modRulebaseSchema::kScopeTags ? rulebase.ScopeTags()
                                                    : rulebase.DataTypeTags();
}

/// The sink of a load: fills a `Rulebase`. Rows that the file does not mention keep their defaults.
class LoadedRulebase : public IRulebaseSink {
public:
    /// The two lists are those of the rulebase, unless others are to be filled. All outlive this.
    LoadedRulebase(Rulebase& rulebase, CategoryList& categories, SeverityTable& severities)
        : m_rulebase(rulebase), m_categories(categories), m_severities(severities) {}

    Rulebase& Properties() override { return m_rulebase; }
    void TakeProperties(const ReadElement&) override {}
    TagItem& Tag(std::string_view section, const std::string& name, const ReadElement&) override {
        TagTable& table = TableOf(m_rulebase, section);
        const std::shared_ptr<TagItem>* known = table.Find(name);
        if (known != nullptr) {
            return **known;
        }
        const auto item = std::make_shared<TagItem>();
        item->SetTagName(name);
        table.Add(name, item, false, false);
        return *item;
    }

    ViolationDefinition& DefaultViolation(const ReadElement& element) override {
        return m_rulebase.DefaultViolations().Item(element.Number);
    }

    void SetLastCategoryID(std::int32_t id) override { m_categories.SetLastID(id); }
    void Take(const std::shared_ptr<CategoryItem>& category, const ReadElement&) override {
        m_categories.Add(category, false);
    }

    void EndCategories() override { m_categories.Sort(); }
    std::shared_ptr<SeverityItem> KnownSeverity(std::int32_t level) override {
        const std::shared_ptr<SeverityItem>* known = m_severities.Find(SeverityKeyOf(level));
        return known == nullptr ? nullptr : *known;
    }

    void Take(std::int32_t level, const std::shared_ptr<SeverityItem>& item, const ReadElement&)
        override {
        if (KnownSeverity(level) == nullptr) {
            item->SetKey(SeverityKeyOf(level));
            m_severities.Add(SeverityKeyOf(level), item, true, false);
        }
    }

    void Take(const std::shared_ptr<AuthorisedComponent>& item, const ReadElement&) override {
        m_rulebase.AuthorisedComponents().AddComponent(item);
    }

    void Take(const std::shared_ptr<AuthorisedReference>& item, const ReadElement&) override {
        m_rulebase.AuthorisedReferences().AddReference(item);
    }

    void SetLastRuleID(std::int32_t id) override { m_rulebase.RuleLists().SetLastID(id); }
    void Take(const std::shared_ptr<BasicRule>& rule, const ReadElement&) override {
        m_rulebase.RuleLists().AddConvention(rule, false);
    }

    /// Required: a section of a category that is not there is left out, without a word. That is so for
    /// a hidden category that was not loaded.
    bool BeginSection(std::optional<std::int32_t> categoryID, const ReadElement&) override {
        if (!categoryID || !m_categories.ContainsID(*categoryID)) {
            return false;
        }
        const CategoryItem& category =
            *m_categories.Item(CategoryList::CategoryIDToKey(*categoryID));
        m_section = std::make_shared<CategoryItem>();
        m_section->SetDescription(category.Description());
        m_section->SetID(category.ID());
        m_section->SetTitle(category.Title());
        m_rulebase.Report().Sections().Add(m_section);
        return true;
    }

    /// Required: a rule that is no longer there is left out, without a word.
    void TakeRuleOfSection(std::string_view /*part*/, std::int32_t number) override {
        const auto* const rule = m_rulebase.RuleLists().AllConventions().Find(RuleKeyOf(number));
        if (rule != nullptr) {
            m_section->CategoryRules().Add(*rule);
        }
    }

    void Take(const std::shared_ptr<TableItem>& table) override {
        m_rulebase.Report().Sections().Add(table);
    }

private:
    Rulebase& m_rulebase;
    CategoryList& m_categories;
    SeverityTable& m_severities;
    std::shared_ptr<CategoryItem> m_section;  // of the report, begun last
};

/// A load: the first fault ends the section that it is in.
class FirstFaultEnds : public IReadFaults {
public:
    bool Continues(RulebaseFault /*fault*/) override { return false; }
};

}  // namespace

bool RulebaseManager::CheckSchemaVersion(KyXMLElement& root) {
    return Trapped({"RulebaseManager", "CheckSchemaVersion"}, false, [&] {
        namespace schema = modRulebaseSchema;
        std::string version = root.AttributeValueByName(schema::kVersionAttribute);
        if (!modTextCase::Equal(version, schema::kVersion)) {
            version = UpdateSchema(root, version);
        }
        return modTextCase::Equal(version, schema::kVersion);
    });
}

std::unique_ptr<Rulebase> RulebaseManager::LoadRulebase(RulebaseLoadCriteria& criteria) {
    if (criteria.RulebaseFile().empty()) {
        modKyErrors::RaiseError(modKyErrors::kyErrNoFilename, "RulebaseManager::LoadRulebase");
    }
    return Trapped(
        {"RulebaseManager", "LoadRulebase"}, nullptr, [&]() -> std::unique_ptr<Rulebase> {
            auto rulebase = std::make_unique<Rulebase>();
            KyXMLDoc document;
            if (!document.LoadFromFile(criteria.RulebaseFile())) {
                Warn(kParsingFailed);
                return nullptr;
            }
            const std::shared_ptr<KyXMLElement> root = document.RootElement();
            if (!CheckSchemaVersion(ExistingElement(root))) {
                Warn(kWrongSchema);
                return nullptr;
            }
            rulebase->SetFilename(criteria.RulebaseFile());
            LoadedRulebase sink(*rulebase, rulebase->CategoryList(), rulebase->SeverityList());
            FirstFaultEnds faults;
            RulebaseReader(root, criteria, IsAdminInstalled(), sink, faults).Read();
            rulebase->SetDirty(false);
            return rulebase;
        });
}

bool RulebaseManager::LoadReviewOptions(
    std::string_view rulebaseFile,
    CategoryList& categories,
    SeverityTable& severities,
    RulebaseLoadCriteria& criteria,
    ToleranceSettings* tolerances) {
    return Trapped({"RulebaseManager", "LoadReviewOptions"}, false, [&] {
        KyXMLDoc document;
        if (!document.LoadFromFile(rulebaseFile)) {
            Warn(kParsingFailed);
            return false;
        }
        const std::shared_ptr<KyXMLElement> root = document.RootElement();
        if (!CheckSchemaVersion(ExistingElement(root))) {
            Warn(kWrongSchemaForOptions);
            return false;
        }
        categories.Clear();
        severities.Clear();
        Rulebase unused;  // the other sections are not read
        LoadedRulebase sink(unused, categories, severities);
        FirstFaultEnds faults;
        RulebaseReader(root, criteria, IsAdminInstalled(), sink, faults).ReadOptions(tolerances);
        return true;
    });
}

}  // namespace dorvik
