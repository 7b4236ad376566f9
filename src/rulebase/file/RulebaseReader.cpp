#include "RulebaseReader.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "modSectionReading.h"
#include "rulebase/file/modRulebaseSchema.h"

#include <utility>

namespace dorvik {

namespace schema = modRulebaseSchema;

namespace {

constexpr std::int32_t kTextNode = 3;

/// The form in which a review searches the list: every value has a ";" on both sides.
/// Required: an empty list becomes ";;".
void WrapExclusionList(NamingConvention& rule) {
    rule.SetExclusionList(";" + std::string(modText::Trim(rule.ExclusionList())) + ";");
}

void RequireSlot(const ReadPlace& item) {
    if (item.Number > NamingConvention::kItemCount) {
        throw BasicError(
            runtimeerror::kSubscriptOutOfRange,
            RuntimeErrorText(runtimeerror::kSubscriptOutOfRange) + ": " + item.Source->PlaceText() +
                " is more than the four that a name can have");
    }
}

}  // namespace

RulebaseFault ReadPlace::Fault(std::string_view attribute, std::string sentence) const {
    const std::string gap = Part.empty() || attribute.empty() ? "" : " ";
    return {
        FaultKind::Unreadable,
        0,
        Element,
        Part + gap + std::string(attribute),
        std::move(sentence),
        Source->XMLNode().Line(),
        CostsReview};
}

RulebaseReader::RulebaseReader(
    const std::shared_ptr<KyXMLElement>& root,
    RulebaseLoadCriteria& criteria,
    bool showsHidden,
    IRulebaseSink& sink,
    IReadFaults& faults)
    : m_root{root, root->ElementName()},
      m_criteria(criteria),
      m_showsHidden(showsHidden),
      m_sink(sink),
      m_faults(faults) {}

void RulebaseReader::Read() {
    LoadProperties();
    LoadControlTags();
    LoadDataTypeTags();
    LoadScopeTags();
    LoadDefaultViolations();
    // The categories come before the rules: they fill the excluded list that rules are held against.
    LoadCategoryList();
    LoadSeverityList();
    LoadLists(m_root, kListsOfRoot);
    LoadRules();
    if (m_criteria.LoadForEdit()) {
        LoadReport();
    }
}

void RulebaseReader::ReadOptions(ToleranceSettings* tolerances) {
    if (tolerances != nullptr) {
        LoadTolerances(*tolerances);
    }
    LoadCategoryList();
    LoadSeverityList();
    CountLists(m_root, kListsOfRoot);
    if (const std::optional<ReadPlace> rules = Child(m_root, schema::kRules)) {
        CountLists(*rules, kListsOfRules);
    }
}

// Elements and attributes

template <class Body, class Sentence>
bool RulebaseReader::Attempt(
    const ReadPlace& place, std::string_view attribute, Body body, Sentence sentence) {
    return Handled(body, [&](const BasicError& failure) {
        return m_faults.Continues(place.Fault(attribute, sentence(failure)));
    });
}

template <class ReadText, class DefaultText>
void RulebaseReader::ReadAttribute(
    const ReadPlace& place, std::string_view name, ReadText read, DefaultText defaultText) {
    std::string value;
    Attempt(
        place,
        name,
        [&] {
            value = place.Source->AttributeValueByName(name);
            Explain(
                [&] { read(value); }, [&] { return UnreadableText(*place.Source, name, value); });
        },
        [&](const BasicError& failure) {
            return RefusalText(failure, value, defaultText()) + (place.Loss.empty() ? "" : "; ") +
                   std::string(place.Loss);
        });
}

template <class Value>
std::optional<Value> RulebaseReader::ValueOf(const ReadPlace& place, std::string_view name) {
    std::optional<Value> value;
    ReadAttribute(
        place,
        name,
        [&](const std::string& text) { value = modAttributeText::Read<Value>(text); },
        [] { return modAttributeText::Write(Value()); });
    return value;
}

template <class Owner>
void RulebaseReader::ReadRows(
    const ReadPlace& place,
    std::type_identity_t<std::span<const AttributeRow<Owner>>> rows,
    Owner& owner) {
    for (const AttributeRow<Owner>& row : rows) {
        ReadAttribute(
            place,
            row.Name,
            [&](const std::string& text) { row.Read(owner, text); },
            [&] { return row.Write(Owner()); });
    }
}

std::optional<ReadPlace> RulebaseReader::Child(const ReadPlace& parent, std::string_view name) {
    std::shared_ptr<KyXMLElement> child;
    const bool isThere = Attempt(
        parent,
        "",
        [&] { child = modSectionReading::Section(*parent.Source, name); },
        [&](const BasicError&) { return "the element '" + std::string(name) + "' is missing"; });
    if (!isThere) {
        return std::nullopt;
    }
    return ReadPlace{child, child->ElementName(), 0, "", "", parent.CostsReview};
}

std::vector<ReadPlace> RulebaseReader::Elements(const ReadPlace& section, std::string_view loss) {
    std::vector<ReadPlace> places;
    for (const std::shared_ptr<KyXMLElement>& child :
         modSectionReading::Children(*section.Source)) {
        const auto number = static_cast<std::int32_t>(places.size()) + 1;
        ReadPlace place{child, section.Element, number, "", loss, section.CostsReview};
        if (child->ElementType() == kTextNode &&
            m_faults.Continues(
                place.Fault("", "there is text between the elements, where a load ends"))) {
            continue;
        }
        place.Element = child->ElementName() + " " + std::to_string(number);
        places.push_back(std::move(place));
    }
    return places;
}

std::vector<ReadPlace> RulebaseReader::ElementsOf(std::string_view section, std::string_view loss) {
    const std::optional<ReadPlace> list = Child(m_root, section);
    return list ? Elements(*list, loss) : std::vector<ReadPlace>();
}

// Properties and tables

void RulebaseReader::LoadProperties() {
    Trap({"RulebaseManager", "LoadProperties"}, [&] {
        std::optional<ReadPlace> section = Child(m_root, schema::kProperties);
        if (!section) {
            return;
        }
        section->Loss = "what follows it keeps its default";
        Rulebase& rulebase = m_sink.Properties();
        ReadRows<Rulebase>(*section, schema::Properties(), rulebase);
        ReadRows<ToleranceSettings>(*section, schema::Tolerances(), rulebase.Tolerances());
        ReadRows<Rulebase>(*section, schema::PropertiesBehindTolerances(), rulebase);
        m_sink.TakeProperties(*section);
    });
}

void RulebaseReader::LoadTolerances(ToleranceSettings& tolerances) {
    Trap({"RulebaseManager", "LoadTolerances"}, [&] {
        if (const auto section = Child(m_root, schema::kProperties)) {
            ReadRows<ToleranceSettings>(*section, schema::Tolerances(), tolerances);
        }
    });
}

void RulebaseReader::LoadControlTags() {
    Trap({"RulebaseManager", "LoadControlTags"}, [&] {
        ReadTags(schema::kControlTags, schema::ControlTag());
    });
}

void RulebaseReader::LoadDataTypeTags() {
    Trap({"RulebaseManager", "LoadDataTypeTags"}, [&] {
        ReadTags(schema::kDataTypeTags, schema::OtherTag());
    });
}

void RulebaseReader::LoadScopeTags() {
    Trap({"RulebaseManager", "LoadScopeTags"}, [&] {
        ReadTags(schema::kScopeTags, schema::OtherTag());
    });
}

void RulebaseReader::ReadTags(
    std::string_view section, std::span<const AttributeRow<TagItem>> rows) {
    for (ReadPlace& place : ElementsOf(section, "the tags from here on are not loaded")) {
        const std::string name = ValueOf<std::string>(place, schema::kTagName).value_or("");
        if (!name.empty()) {
            place.Element = place.Source->ElementName() + " '" + name + "'";
        }
        ReadRows<TagItem>(place, rows, m_sink.Tag(section, name, place));
    }
}

void RulebaseReader::LoadDefaultViolations() {
    Trap({"RulebaseManager", "LoadDefaultViolations"}, [&] {
        for (const ReadPlace& place : ElementsOf(schema::kDefaultViolations, "")) {
            ViolationDefinition* violation = nullptr;
            const bool hasPlace = Attempt(
                place,
                "",
                [&] { violation = &m_sink.DefaultViolation(place); },
                [](const BasicError&) { return "there are only five default violations"; });
            if (!hasPlace) {
                return;
            }
            ReadRows<ViolationDefinition>(place, schema::ViolationItem(), *violation);
        }
    });
}

void RulebaseReader::LoadCategoryList() {
    Trap({"RulebaseManager", "LoadCategoryList"}, [&] {
        const std::optional<ReadPlace> section = Child(m_root, schema::kCategoryList);
        if (!section) {
            return;
        }
        if (const auto lastID = ValueOf<std::int32_t>(*section, schema::kLastID)) {
            m_sink.SetLastCategoryID(*lastID);
        }
        for (const ReadPlace& place :
             Elements(*section, "the categories from here on are not loaded")) {
            LoadCategory(place);
        }
        m_sink.EndCategories();
    });
}

void RulebaseReader::LoadCategory(const ReadPlace& place) {
    const bool isHidden = ValueOf<bool>(place, schema::kHidden).value_or(false);
    const std::int32_t id = ValueOf<std::int32_t>(place, schema::kID).value_or(0);
    if (isHidden && !m_showsHidden) {
        m_criteria.AddExcludedCategoryID(id);
        return;
    }
    const auto category = std::make_shared<CategoryItem>();
    category->SetID(id);
    ReadRows<CategoryItem>(place, schema::CategoryTexts(), *category);
    category->SetHidden(isHidden);
    m_sink.Take(category, place);
}

void RulebaseReader::LoadSeverityList() {
    Trap({"RulebaseManager", "LoadSeverityList"}, [&] {
        for (const ReadPlace& place :
             ElementsOf(schema::kSeverityList, "the severities from here on are not loaded")) {
            const auto level = ValueOf<std::int32_t>(place, schema::kSeverityLevel);
            const auto known =
                level ? m_sink.KnownSeverity(*level) : std::make_shared<SeverityItem>();
            const auto item = known != nullptr ? known : std::make_shared<SeverityItem>();
            ReadRows<SeverityItem>(
                place, known != nullptr ? schema::ExistingSeverity() : schema::Severity(), *item);
            if (level) {
                m_sink.Take(*level, item, place);
            }
        }
    });
}

// Items and rules

const RulebaseReader::ListRow RulebaseReader::kListsOfRoot[] = {
    {schema::kAuthorisedComponents,
     &RulebaseLoadCriteria::NumAuthComps,
     &RulebaseLoadCriteria::AuthorisedComponents,
     &RulebaseReader::LoadAuthorisedComponents},
    {schema::kAuthorisedReferences,
     &RulebaseLoadCriteria::NumAuthRefs,
     &RulebaseLoadCriteria::AuthorisedReferences,
     &RulebaseReader::LoadAuthorisedReferences},
    {schema::kUnauthorisedKeywords,
     &RulebaseLoadCriteria::NumUnauthKeywords,
     &RulebaseLoadCriteria::UnauthorisedKeywords,
     &RulebaseReader::LoadUnauthorisedKeywords},
};

const RulebaseReader::ListRow RulebaseReader::kListsOfRules[] = {
    {schema::kCodingConventions,
     &RulebaseLoadCriteria::NumCodingConventions,
     &RulebaseLoadCriteria::CodingConventions,
     &RulebaseReader::LoadCodingConventions},
    {schema::kNamingConventions,
     &RulebaseLoadCriteria::NumNamingConventions,
     &RulebaseLoadCriteria::NamingConventions,
     &RulebaseReader::LoadNamingConventions},
};

void RulebaseReader::CountLists(const ReadPlace& parent, std::span<const ListRow> rows) {
    for (const ListRow& row : rows) {
        if (const std::optional<ReadPlace> list = Child(parent, row.Name)) {
            m_criteria.*row.Count = list->Source->ElementCount();
        }
    }
}

void RulebaseReader::LoadLists(const ReadPlace& parent, std::span<const ListRow> rows) {
    for (const ListRow& row : rows) {
        const std::optional<ReadPlace> list = Child(parent, row.Name);
        if (!list) {
            continue;
        }
        m_criteria.*row.Count = list->Source->ElementCount();
        if (m_criteria.LoadForEdit() || (m_criteria.*row.IsWanted)()) {
            (this->*row.Load)(*list);
        }
    }
}

void RulebaseReader::LoadRules() {
    const std::optional<ReadPlace> rules = Child(m_root, schema::kRules);
    if (!rules) {
        return;
    }
    if (const auto lastID = ValueOf<std::int32_t>(*rules, schema::kLastRuleID)) {
        m_sink.SetLastRuleID(*lastID);
    }
    LoadLists(*rules, kListsOfRules);
}

template <class Item>
void RulebaseReader::ReadItems(
    const ReadPlace& section, std::type_identity_t<std::span<const AttributeRow<Item>>> rows) {
    for (const ReadPlace& place : Elements(section, "the items from here on are not loaded")) {
        const auto item = std::make_shared<Item>();
        ReadRows<Item>(place, rows, *item);
        m_sink.Take(item, place);
    }
}

void RulebaseReader::LoadAuthorisedComponents(const ReadPlace& section) {
    Trap({"RulebaseManager", "LoadAuthorisedComponents"}, [&] {
        ReadItems<AuthorisedComponent>(section, schema::Component());
    });
}

void RulebaseReader::LoadAuthorisedReferences(const ReadPlace& section) {
    Trap({"RulebaseManager", "LoadAuthorisedReferences"}, [&] {
        ReadItems<AuthorisedReference>(section, schema::Reference());
    });
}

void RulebaseReader::LoadUnauthorisedKeywords(const ReadPlace& section) {
    Trap({"RulebaseManager", "LoadUnauthorisedKeywords"}, [&] {
        ReadRules<UnauthorisedKeyword>(section, schema::Keyword());
    });
}

void RulebaseReader::LoadCodingConventions(const ReadPlace& section) {
    Trap({"RulebaseManager", "LoadCodingConventions"}, [&] {
        ReadRules<CodingConvention>(section, schema::Coding());
    });
}

void RulebaseReader::LoadNamingConventions(const ReadPlace& section) {
    Trap({"RulebaseManager", "LoadNamingConventions"}, [&] {
        ReadRules<NamingConvention>(section, schema::Naming());
    });
}

template <class Rule>
void RulebaseReader::ReadRules(
    const ReadPlace& section, std::type_identity_t<std::span<const AttributeRow<Rule>>> rows) {
    for (ReadPlace& place : Elements(section, "the rules from here on are not loaded")) {
        place.Element =
            place.Source->ElementName() + " at position " + std::to_string(place.Number);
        if (!IsLoadableRule(place)) {
            continue;
        }
        const auto rule = std::make_shared<Rule>();
        ReadRows<Rule>(place, rows, *rule);
        if constexpr (std::is_same_v<Rule, NamingConvention>) {
            ReadNameParts(place, *rule);
        }
        LoadViolationDefinition(place, rule->ViolationDefinition());
        m_sink.Take(rule, place);
    }
}

bool RulebaseReader::IsLoadableRule(const ReadPlace& rule) {
    if (m_criteria.LoadForEdit()) {
        return true;
    }
    return Trapped({"RulebaseManager", "IsLoadableRule"}, false, [&] {
        if (!ValueOf<bool>(rule, schema::kRuleActive).value_or(false)) {
            return false;
        }
        const std::optional<ReadPlace> definition = Child(rule, schema::kViolationDefinition);
        if (!definition ||
            !m_criteria.SeverityLevel(
                ValueOf<std::int32_t>(*definition, schema::kSeverityLevel).value_or(0))) {
            return false;
        }
        const auto category = ValueOf<std::int32_t>(*definition, schema::kCategoryID);
        return category && !m_criteria.IsExcludedCategoryID(*category);
    });
}

void RulebaseReader::ReadNameParts(const ReadPlace& rule, NamingConvention& naming) {
    if (!m_criteria.LoadForEdit()) {
        WrapExclusionList(naming);
    }
    if (naming.PrefixActive()) {
        ReadNameItems(rule, schema::kPrefixItems, naming.PrefixItems());
    }
    if (naming.SuffixActive()) {
        ReadNameItems(rule, schema::kSuffixItems, naming.SuffixItems());
    }
}

void RulebaseReader::ReadNameItems(
    const ReadPlace& rule, std::string_view section, ObjectArrayList<PrefixSuffixItem>& items) {
    std::optional<ReadPlace> list = Child(rule, section);
    if (!list) {
        return;
    }
    list->Element = rule.Element;
    for (ReadPlace& place : Elements(*list, "")) {
        place.Part = std::exchange(place.Element, rule.Element);
        const bool hasSlot = Attempt(
            place,
            "",
            [&] { RequireSlot(place); },
            [&](const BasicError&) {
                return "a prefix or suffix has four items at most; " + std::string(rule.Loss);
            });
        if (!hasSlot) {
            return;
        }
        ReadRows<PrefixSuffixItem>(place, schema::NameItem(), *items.Item(place.Number));
    }
}

void RulebaseReader::LoadViolationDefinition(
    const ReadPlace& rule, ViolationDefinition& definition) {
    Trap({"RulebaseManager", "LoadViolationDefinition"}, [&] {
        if (std::optional<ReadPlace> place = Child(rule, schema::kViolationDefinition)) {
            place->Part = std::exchange(place->Element, rule.Element);
            place->Loss = "a review does not load the rule";
            ReadRows<ViolationDefinition>(*place, schema::Violation(), definition);
        }
    });
}

// The report

void RulebaseReader::LoadReport() {
    Trap({"RulebaseManager", "LoadReport"}, [&] {
        ReadPlace root = m_root;
        root.CostsReview = false;  // a review reads no definition of a report
        if (const std::optional<ReadPlace> list = Child(root, schema::kReport)) {
            for (const ReadPlace& place : Elements(*list, "")) {
                ReadReportSection(place);
            }
        }
    });
}

void RulebaseReader::ReadReportSection(const ReadPlace& place) {
    const std::string type = ValueOf<std::string>(place, schema::kSectionType).value_or("");
    if (!modTextCase::Equal(type, schema::kCategorySection)) {
        const auto table = std::make_shared<TableItem>();
        ReadRows<TableItem>(place, schema::Table(), *table);
        m_sink.Take(table);
        return;
    }
    if (!m_sink.BeginSection(ValueOf<std::int32_t>(place, schema::kCategoryID), place)) {
        return;
    }
    const std::string rules = ValueOf<std::string>(place, schema::kCategoryRuleList).value_or("");
    if (rules.empty()) {
        return;
    }
    for (const std::string_view part : modText::Split(rules, '|')) {
        Attempt(
            place,
            schema::kCategoryRuleList,
            [&] { m_sink.TakeRuleOfSection(part, modText::LeadingLong(part)); },
            [&](const BasicError&) { return "'" + std::string(part) + "' is too large a number"; });
    }
}

}  // namespace dorvik
