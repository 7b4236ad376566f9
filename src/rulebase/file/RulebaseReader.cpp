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

void RequireSlot(const ReadElement& item) {
    if (item.Number > NameAffix::kItemCount) {
        throw BasicError(
            runtimeerror::kSubscriptOutOfRange,
            RuntimeErrorText(runtimeerror::kSubscriptOutOfRange) + ": " + item.Source->PlaceText() +
                " is more than the four that a name can have");
    }
}

}  // namespace

RulebaseFault ReadElement::Fault(std::string_view attribute, std::string sentence) const {
    const std::string gap = Part.empty() || attribute.empty() ? "" : " ";
    return {
        FaultKind::Unreadable,
        0,
        Name,
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
    if (const std::optional<ReadElement> rules = Child(m_root, schema::kRules)) {
        CountLists(*rules, kListsOfRules);
    }
}

// Elements and attributes

template <class Body, class Sentence>
bool RulebaseReader::Attempt(
    const ReadElement& element, std::string_view attribute, Body body, Sentence sentence) {
    return Handled(body, [&](const BasicError& failure) {
        return m_faults.Continues(element.Fault(attribute, sentence(failure)));
    });
}

template <class ReadText, class DefaultText>
void RulebaseReader::ReadAttribute(
    const ReadElement& element, std::string_view name, ReadText read, DefaultText defaultText) {
    std::string value;
    Attempt(
        element,
        name,
        [&] {
            value = element.Source->AttributeValueByName(name);
            Explain(
                [&] { read(value); }, [&] { return UnreadableText(*element.Source, name, value); });
        },
        [&](const BasicError& failure) {
            return RefusalText(failure, value, defaultText()) + (element.Loss.empty() ? "" : "; ") +
                   std::string(element.Loss);
        });
}

template <class Value>
std::optional<Value> RulebaseReader::ValueOf(const ReadElement& element, std::string_view name) {
    std::optional<Value> value;
    ReadAttribute(
        element,
        name,
        [&](const std::string& text) { value = modAttributeText::Read<Value>(text); },
        [] { return modAttributeText::Write(Value()); });
    return value;
}

template <class Owner>
void RulebaseReader::ReadRows(
    const ReadElement& element,
    std::type_identity_t<std::span<const AttributeRow<Owner>>> rows,
    Owner& owner) {
    for (const AttributeRow<Owner>& row : rows) {
        ReadAttribute(
            element,
            row.Name,
            [&](const std::string& text) { row.Read(owner, text); },
            [&] { return row.Write(Owner()); });
    }
}

std::optional<ReadElement> RulebaseReader::Child(const ReadElement& parent, std::string_view name) {
    std::shared_ptr<KyXMLElement> child;
    const bool isThere = Attempt(
        parent,
        "",
        [&] { child = modSectionReading::Section(*parent.Source, name); },
        [&](const BasicError&) { return "the element '" + std::string(name) + "' is missing"; });
    if (!isThere) {
        return std::nullopt;
    }
    return ReadElement{child, child->ElementName(), 0, "", "", parent.CostsReview};
}

std::vector<ReadElement>
RulebaseReader::Elements(const ReadElement& section, std::string_view loss) {
    std::vector<ReadElement> elements;
    for (const std::shared_ptr<KyXMLElement>& child :
         modSectionReading::Children(*section.Source)) {
        const auto number = static_cast<std::int32_t>(elements.size()) + 1;
        ReadElement element{child, section.Name, number, "", loss, section.CostsReview};
        if (child->ElementType() == kTextNode &&
            m_faults.Continues(
                element.Fault("", "there is text between the elements, where a load ends"))) {
            continue;
        }
        element.Name = child->ElementName() + " " + std::to_string(number);
        elements.push_back(std::move(element));
    }
    return elements;
}

std::vector<ReadElement>
RulebaseReader::ElementsOf(std::string_view section, std::string_view loss) {
    const std::optional<ReadElement> list = Child(m_root, section);
    return list ? Elements(*list, loss) : std::vector<ReadElement>();
}

// Properties and tables

void RulebaseReader::LoadProperties() {
    Trap({"RulebaseManager", "LoadProperties"}, [&] {
        std::optional<ReadElement> section = Child(m_root, schema::kProperties);
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
    for (ReadElement& element : ElementsOf(section, "the tags from here on are not loaded")) {
        const std::string name = ValueOf<std::string>(element, schema::kTagName).value_or("");
        if (!name.empty()) {
            element.Name = element.Source->ElementName() + " '" + name + "'";
        }
        ReadRows<TagItem>(element, rows, m_sink.Tag(section, name, element));
    }
}

void RulebaseReader::LoadDefaultViolations() {
    Trap({"RulebaseManager", "LoadDefaultViolations"}, [&] {
        for (const ReadElement& element : ElementsOf(schema::kDefaultViolations, "")) {
            ViolationDefinition* violation = nullptr;
            const bool hasPlace = Attempt(
                element,
                "",
                [&] { violation = &m_sink.DefaultViolation(element); },
                [](const BasicError&) { return "there are only five default violations"; });
            if (!hasPlace) {
                return;
            }
            ReadRows<ViolationDefinition>(element, schema::ViolationItem(), *violation);
        }
    });
}

void RulebaseReader::LoadCategoryList() {
    Trap({"RulebaseManager", "LoadCategoryList"}, [&] {
        const std::optional<ReadElement> section = Child(m_root, schema::kCategoryList);
        if (!section) {
            return;
        }
        if (const auto lastID = ValueOf<std::int32_t>(*section, schema::kLastID)) {
            m_sink.SetLastCategoryID(*lastID);
        }
        for (const ReadElement& element :
             Elements(*section, "the categories from here on are not loaded")) {
            LoadCategory(element);
        }
        m_sink.EndCategories();
    });
}

void RulebaseReader::LoadCategory(const ReadElement& element) {
    const bool isHidden = ValueOf<bool>(element, schema::kHidden).value_or(false);
    const std::int32_t id = ValueOf<std::int32_t>(element, schema::kID).value_or(0);
    if (isHidden && !m_showsHidden) {
        m_criteria.AddExcludedCategoryID(id);
        return;
    }
    const auto category = std::make_shared<CategoryItem>();
    category->SetID(id);
    ReadRows<CategoryItem>(element, schema::CategoryTexts(), *category);
    category->SetHidden(isHidden);
    m_sink.Take(category, element);
}

void RulebaseReader::LoadSeverityList() {
    Trap({"RulebaseManager", "LoadSeverityList"}, [&] {
        for (const ReadElement& element :
             ElementsOf(schema::kSeverityList, "the severities from here on are not loaded")) {
            const auto level = ValueOf<std::int32_t>(element, schema::kSeverityLevel);
            const auto known =
                level ? m_sink.KnownSeverity(*level) : std::make_shared<SeverityItem>();
            const auto item = known != nullptr ? known : std::make_shared<SeverityItem>();
            ReadRows<SeverityItem>(
                element, known != nullptr ? schema::ExistingSeverity() : schema::Severity(), *item);
            if (level) {
                m_sink.Take(*level, item, element);
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

void RulebaseReader::CountLists(const ReadElement& parent, std::span<const ListRow> rows) {
    for (const ListRow& row : rows) {
        if (const std::optional<ReadElement> list = Child(parent, row.Name)) {
            m_criteria.*row.Count = list->Source->ElementCount();
        }
    }
}

void RulebaseReader::LoadLists(const ReadElement& parent, std::span<const ListRow> rows) {
    for (const ListRow& row : rows) {
        const std::optional<ReadElement> list = Child(parent, row.Name);
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
    const std::optional<ReadElement> rules = Child(m_root, schema::kRules);
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
    const ReadElement& section, std::type_identity_t<std::span<const AttributeRow<Item>>> rows) {
    for (const ReadElement& element : Elements(section, "the items from here on are not loaded")) {
        const auto item = std::make_shared<Item>();
        ReadRows<Item>(element, rows, *item);
        m_sink.Take(item, element);
    }
}

void RulebaseReader::LoadAuthorisedComponents(const ReadElement& section) {
    Trap({"RulebaseManager", "LoadAuthorisedComponents"}, [&] {
        ReadItems<AuthorisedComponent>(section, schema::Component());
    });
}

void RulebaseReader::LoadAuthorisedReferences(const ReadElement& section) {
    Trap({"RulebaseManager", "LoadAuthorisedReferences"}, [&] {
        ReadItems<AuthorisedReference>(section, schema::Reference());
    });
}

void RulebaseReader::LoadUnauthorisedKeywords(const ReadElement& section) {
    Trap({"RulebaseManager", "LoadUnauthorisedKeywords"}, [&] {
        ReadRules<UnauthorisedKeyword>(section, schema::Keyword());
    });
}

void RulebaseReader::LoadCodingConventions(const ReadElement& section) {
    Trap({"RulebaseManager", "LoadCodingConventions"}, [&] {
        ReadRules<CodingConvention>(section, schema::Coding());
    });
}

void RulebaseReader::LoadNamingConventions(const ReadElement& section) {
    Trap({"RulebaseManager", "LoadNamingConventions"}, [&] {
        ReadRules<NamingConvention>(section, schema::Naming());
    });
}

template <class Rule>
void RulebaseReader::ReadRules(
    const ReadElement& section, std::type_identity_t<std::span<const AttributeRow<Rule>>> rows) {
    for (ReadElement& element : Elements(section, "the rules from here on are not loaded")) {
        element.Name =
            element.Source->ElementName() + " at position " + std::to_string(element.Number);
        if (!IsLoadableRule(element)) {
            continue;
        }
        const auto rule = std::make_shared<Rule>();
        ReadRows<Rule>(element, rows, *rule);
        if constexpr (std::is_same_v<Rule, NamingConvention>) {
            ReadNameParts(element, *rule);
        }
        LoadViolationDefinition(element, rule->ViolationDefinition());
        m_sink.Take(rule, element);
    }
}

bool RulebaseReader::IsLoadableRule(const ReadElement& rule) {
    if (m_criteria.LoadForEdit()) {
        return true;
    }
    return Trapped({"RulebaseManager", "IsLoadableRule"}, false, [&] {
        if (!ValueOf<bool>(rule, schema::kRuleActive).value_or(false)) {
            return false;
        }
        const std::optional<ReadElement> definition = Child(rule, schema::kViolationDefinition);
        if (!definition ||
            !m_criteria.SeverityLevel(
                ValueOf<std::int32_t>(*definition, schema::kSeverityLevel).value_or(0))) {
            return false;
        }
        const auto category = ValueOf<std::int32_t>(*definition, schema::kCategoryID);
        return category && !m_criteria.IsExcludedCategoryID(*category);
    });
}

void RulebaseReader::ReadNameParts(const ReadElement& rule, NamingConvention& naming) {
    if (!m_criteria.LoadForEdit()) {
        WrapExclusionList(naming);
    }
    if (naming.Prefix().Active()) {
        ReadNameItems(rule, schema::kPrefixItems, naming.Prefix().Items());
    }
    if (naming.Suffix().Active()) {
        ReadNameItems(rule, schema::kSuffixItems, naming.Suffix().Items());
    }
}

void RulebaseReader::ReadNameItems(
    const ReadElement& rule, std::string_view section, ObjectArrayList<PrefixSuffixItem>& items) {
    std::optional<ReadElement> list = Child(rule, section);
    if (!list) {
        return;
    }
    list->Name = rule.Name;
    for (ReadElement& element : Elements(*list, "")) {
        element.Part = std::exchange(element.Name, rule.Name);
        const bool hasSlot = Attempt(
            element,
            "",
            [&] { RequireSlot(element); },
            [&](const BasicError&) {
                return "a prefix or suffix has four items at most; " + std::string(rule.Loss);
            });
        if (!hasSlot) {
            return;
        }
        ReadRows<PrefixSuffixItem>(element, schema::NameItem(), *items.Item(element.Number));
    }
}

void RulebaseReader::LoadViolationDefinition(
    const ReadElement& rule, ViolationDefinition& definition) {
    Trap({"RulebaseManager", "LoadViolationDefinition"}, [&] {
        if (std::optional<ReadElement> element = Child(rule, schema::kViolationDefinition)) {
            element->Part = std::exchange(element->Name, rule.Name);
            element->Loss = "a review does not load the rule";
            ReadRows<ViolationDefinition>(*element, schema::Violation(), definition);
        }
    });
}

// The report

void RulebaseReader::LoadReport() {
    Trap({"RulebaseManager", "LoadReport"}, [&] {
        ReadElement root = m_root;
        root.CostsReview = false;  // a review reads no definition of a report
        if (const std::optional<ReadElement> list = Child(root, schema::kReport)) {
            for (const ReadElement& element : Elements(*list, "")) {
                ReadReportSection(element);
            }
        }
    });
}

void RulebaseReader::ReadReportSection(const ReadElement& element) {
    const std::string type = ValueOf<std::string>(element, schema::kSectionType).value_or("");
    if (!modTextCase::Equal(type, schema::kCategorySection)) {
        const auto table = std::make_shared<TableItem>();
        ReadRows<TableItem>(element, schema::Table(), *table);
        m_sink.Take(table);
        return;
    }
    if (!m_sink.BeginSection(ValueOf<std::int32_t>(element, schema::kCategoryID), element)) {
        return;
    }
    const std::string rules = ValueOf<std::string>(element, schema::kCategoryRuleList).value_or("");
    if (rules.empty()) {
        return;
    }
    for (const std::string_view part : modText::Split(rules, '|')) {
        Attempt(
            element,
            schema::kCategoryRuleList,
            [&] { m_sink.TakeRuleOfSection(part, modText::LeadingLong(part)); },
            [&](const BasicError&) { return "'" + std::string(part) + "' is too large a number"; });
    }
}

}  // namespace dorvik
