#include "rulebase/file/RulebaseReading.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "modSectionReading.h"
#include "rulebase/file/modRulebaseSchema.h"
#include "rulebase/model/CategoryItem.h"
#include "rulebase/model/SeverityItem.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

namespace dorvik {

namespace schema = modRulebaseSchema;

namespace {

/// The leading number of a part of a list, rounded; nothing if it is too large for 32 bits.
std::optional<std::int32_t> LeadingLong(std::string_view part) {
    std::string number;
    for (const char character : part) {
        if (character != ' ') {
            number += character == 'D' || character == 'd' ? 'E' : character;
        }
    }
    number.erase(0, number.starts_with('+') ? 1 : 0);
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    constexpr double kLimit = 2147483647;
    const bool isTooLarge = read.ec == std::errc::result_out_of_range || std::isnan(value) ||
                            value > kLimit || value < -kLimit;
    return isTooLarge ? std::nullopt
                      : std::optional(modText::RoundToLong(modText::LeadingNumber(part)));
}

constexpr std::int32_t kTextNode = 3;

/// What belongs into an attribute, as the default value of its row shows.
std::string Belonging(const std::string& defaultText) {
    if (defaultText == "True" || defaultText == "False") {
        return "True or False";
    }
    return defaultText.empty() ? "a list of whole numbers joined with '|'" : "a whole number";
}

std::string
Refused(const BasicError& failure, const std::string& value, const std::string& defaultText) {
    if (failure.Number() == runtimeerror::kObjectNotSet) {
        return "the attribute is missing";
    }
    if (failure.Number() == runtimeerror::kOverflow) {
        return "'" + value + "' is too large a number";
    }
    return "'" + value + "' was found where " + Belonging(defaultText) + " was expected";
}

std::string Position(std::size_t index) {
    return std::to_string(index + 1);
}

std::string Titled(std::string element, const std::string& title) {
    return title.empty() ? element : element + " '" + title + "'";
}

RulebaseContents::Identified
Identified(std::string identifier, const KyXMLElement& element, const std::string& title) {
    return {std::move(identifier), Titled(element.ElementName(), title), element.XMLNode().Line()};
}

}  // namespace

RulebaseReading::RulebaseReading(const KyXMLElement& root, std::vector<RulebaseFault>& faults)
    : m_root(root), m_faults(faults) {}

RulebaseContents RulebaseReading::Read() {
    ReadProperties();
    ReadTags(schema::kControlTags, schema::ControlTag(), m_contents.ControlTags);
    ReadTags(schema::kDataTypeTags, schema::OtherTag(), m_contents.DataTypeTags);
    ReadTags(schema::kScopeTags, schema::OtherTag(), m_contents.ScopeTags);
    ReadDefaultViolations();
    ReadCategories();
    ReadSeverities();
    ReadAuthorised<AuthorisedComponent>(
        schema::kAuthorisedComponents, schema::Component(), m_contents.Components);
    ReadAuthorised<AuthorisedReference>(
        schema::kAuthorisedReferences, schema::Reference(), m_contents.References);
    ReadRulesOfTheirSection();
    const std::size_t firstOfReport = m_faults.size();
    ReadReport();
    // A review reads no definition of a report.
    for (std::size_t fault = firstOfReport; fault < m_faults.size(); ++fault) {
        m_faults[fault].CostsReview = false;
    }
    return std::move(m_contents);
}

RulebaseReading::Element
RulebaseReading::FindChild(const KyXMLElement& parent, std::string_view name) {
    for (const Element& child : modSectionReading::Children(parent)) {
        if (modTextCase::Equal(child->ElementName(), name)) {
            return child;
        }
    }
    return nullptr;
}

RulebaseReading::Element RulebaseReading::RequiredChild(
    const KyXMLElement& parent, std::string_view name, std::string_view where) {
    Element child = FindChild(parent, name);
    if (child == nullptr) {
        SetPlace(parent);
        Report(std::string(where), "", "the element '" + std::string(name) + "' is missing");
    }
    return child;
}

std::vector<RulebaseReading::Element>
RulebaseReading::ListElements(const KyXMLElement& section, const std::string& where) {
    std::vector<Element> elements;
    for (Element& child : modSectionReading::Children(section)) {
        if (child->ElementType() == kTextNode) {
            SetPlace(*child);
            Report(where, "", "there is text between the elements, where a load ends");
        } else {
            elements.push_back(std::move(child));
        }
    }
    return elements;
}

void RulebaseReading::Report(
    std::string element, std::string_view attribute, std::string sentence) {
    m_faults.push_back(
        {FaultKind::Unreadable,
         0,
         std::move(element),
         std::string(attribute),
         std::move(sentence),
         m_line,
         /*CostsReview=*/true});
}

template <class Owner>
void RulebaseReading::ReadRows(
    const KyXMLElement& element,
    std::type_identity_t<std::span<const AttributeRow<Owner>>> rows,
    Owner& owner,
    const std::function<void(std::string_view attribute, std::string sentence)>& tell) {
    SetPlace(element);
    for (const AttributeRow<Owner>& row : rows) {
        std::string value;
        Trap(
            {"RulebaseReading", "ReadRows"},
            [&] {
                value = element.AttributeValueByName(row.Name);
                row.Read(owner, value);
            },
            [&](const BasicError& failure) {
                tell(row.Name, Refused(failure, value, row.Write(Owner())));
                return true;
            });
    }
}

std::optional<std::string> RulebaseReading::Text(
    const KyXMLElement& element, std::string_view name, const std::string& where) {
    SetPlace(element);
    std::optional<std::string> text;
    Trap(
        {"RulebaseReading", "Text"},
        [&] { text = element.AttributeValueByName(name); },
        [&](const BasicError& failure) {
            Report(where, name, Refused(failure, "", ""));
            return true;
        });
    return text;
}

std::optional<std::int32_t> RulebaseReading::Number(
    const KyXMLElement& element, std::string_view name, const std::string& where) {
    const std::optional<std::string> text = Text(element, name, where);
    if (!text.has_value()) {
        return std::nullopt;
    }
    const std::optional<std::int32_t> number = modText::WholeNumber(*text);
    if (!number.has_value()) {
        Report(where, name, "'" + *text + "' was found where a whole number was expected");
    }
    return number;
}

void RulebaseReading::ReadProperties() {
    const std::string where(schema::kProperties);
    const Element section = RequiredChild(m_root, where, schema::kRoot);
    if (section == nullptr) {
        return;
    }
    const auto tell = [&](std::string_view attribute, std::string sentence) {
        Report(where, attribute, std::move(sentence) + "; what follows it keeps its default");
    };
    Rulebase rulebase;
    ReadRows<Rulebase>(*section, schema::Properties(), rulebase, tell);
    ReadRows<ToleranceSettings>(*section, schema::Tolerances(), rulebase.Tolerances(), tell);
    ReadRows<Rulebase>(*section, schema::PropertiesBehindTolerances(), rulebase, tell);
    m_contents.ArrayTag = rulebase.ArrayTag();
    ReadToleranceLists(*section);
}

void RulebaseReading::ReadToleranceLists(const KyXMLElement& section) {
    SetPlace(section);
    const std::string where(schema::kProperties);
    for (const char* attribute : {"ToleranceCount", "ToleranceImpact"}) {
        const XmlNode& node = section.XMLNode();
        const std::string text = node.Attribute(attribute).value_or("");
        if (text.empty()) {
            continue;
        }
        const std::vector<std::string_view> parts = modText::Split(text, '|');
        if (parts.size() > ToleranceSettings::kPlaces) {
            Report(where, attribute, "the list has more than six parts");
        }
        for (const std::string_view part : parts) {
            if (modText::WholeNumber(modText::Trim(part)).has_value()) {
                continue;
            }
            const std::optional<std::int32_t> value = LeadingLong(part);
            Report(
                where,
                attribute,
                "'" + std::string(part) + "' is not a whole number and " +
                    (value ? "would count as " + std::to_string(*value)
                           : "is too large to be read"));
        }
    }
}

void RulebaseReading::ReadTags(
    std::string_view section,
    std::span<const AttributeRow<TagItem>> rows,
    std::vector<RulebaseContents::Tag>& tags) {
    const Element list = RequiredChild(m_root, section, schema::kRoot);
    if (list == nullptr) {
        return;
    }
    for (const Element& element : ListElements(*list, std::string(section))) {
        RulebaseContents::Tag tag;
        const std::string name = element->ElementName();
        const std::optional<std::string> tagName =
            Text(*element, schema::kTagName, name + " " + Position(tags.size()));
        tag.Content.SetTagName(tagName.value_or(""));
        tag.Element = Titled(name, tag.Content.TagName());
        ReadRows<TagItem>(
            *element, rows, tag.Content, [&](std::string_view attribute, std::string sentence) {
                Report(tag.Element, attribute, sentence + "; the tags from here on are not loaded");
            });
        tags.push_back(std::move(tag));
    }
}

void RulebaseReading::ReadDefaultViolations() {
    const Element list = RequiredChild(m_root, schema::kDefaultViolations, schema::kRoot);
    if (list == nullptr) {
        return;
    }
    for (const Element& element : ListElements(*list, std::string(schema::kDefaultViolations))) {
        RulebaseContents::Violation violation;
        violation.Element =
            element->ElementName() + " " + Position(m_contents.DefaultViolations.size());
        if (m_contents.DefaultViolations.size() ==
            static_cast<std::size_t>(DefaultViolations().Count())) {
            SetPlace(*element);
            Report(violation.Element, "", "there are only five default violations");
            return;
        }
        ReadRows<ViolationDefinition>(
            *element,
            schema::ViolationItem(),
            violation.Content,
            [&](std::string_view attribute, std::string sentence) {
                Report(violation.Element, attribute, std::move(sentence));
            });
        m_contents.DefaultViolations.push_back(std::move(violation));
    }
}

void RulebaseReading::ReadCategories() {
    const std::string where(schema::kCategoryList);
    const Element list = RequiredChild(m_root, where, schema::kRoot);
    if (list == nullptr) {
        return;
    }
    m_contents.LastCategoryID = Number(*list, schema::kLastID, where);
    for (const Element& element : ListElements(*list, where)) {
        CategoryItem category;
        std::string name = element->ElementName() + " " + Position(m_contents.Categories.size());
        ReadRows<CategoryItem>(
            *element,
            schema::Category(),
            category,
            [&](std::string_view attribute, std::string sentence) {
                Report(name, attribute, sentence + "; the categories from here on are not loaded");
            });
        m_contents.Categories.push_back(
            Identified(std::to_string(category.ID()), *element, category.Title()));
    }
}

void RulebaseReading::ReadSeverities() {
    const std::string where(schema::kSeverityList);
    const Element list = RequiredChild(m_root, where, schema::kRoot);
    if (list == nullptr) {
        return;
    }
    for (const Element& element : ListElements(*list, where)) {
        SeverityItem severity;
        const std::string name =
            element->ElementName() + " " + Position(m_contents.Severities.size());
        // The level text of a level that is there already is never read, so it may be missing.
        ReadRows<SeverityItem>(
            *element,
            schema::ExistingSeverity(),
            severity,
            [&](std::string_view attribute, std::string sentence) {
                Report(name, attribute, sentence + "; the severities from here on are not loaded");
            });
        const std::optional<std::int32_t> level = Number(*element, schema::kSeverityLevel, name);
        if (level.has_value()) {
            m_contents.Severities.push_back(
                Identified(std::to_string(*level), *element, severity.Title()));
        }
    }
}

template <class Item>
void RulebaseReading::ReadAuthorised(
    std::string_view section,
    std::type_identity_t<std::span<const AttributeRow<Item>>> rows,
    std::vector<RulebaseContents::Identified>& items) {
    const Element list = RequiredChild(m_root, section, schema::kRoot);
    if (list == nullptr) {
        return;
    }
    for (const Element& element : ListElements(*list, std::string(section))) {
        Item item;
        const std::string name = element->ElementName() + " " + Position(items.size());
        ReadRows<Item>(*element, rows, item, [&](std::string_view attribute, std::string sentence) {
            Report(name, attribute, sentence + "; the items from here on are not loaded");
        });
        items.push_back(Identified(item.LibID(), *element, item.Title()));
    }
}

template <class RuleClass>
void RulebaseReading::ReadRules(
    const Element& parent,
    std::string_view section,
    std::type_identity_t<std::span<const AttributeRow<RuleClass>>> rows) {
    const Element list = RequiredChild(*parent, section, parent->ElementName());
    if (list == nullptr) {
        return;
    }
    std::size_t position = 0;
    for (const Element& element : ListElements(*list, std::string(section))) {
        const auto content = std::make_shared<RuleClass>();
        RulebaseContents::Rule rule{content, "", {}, element->XMLNode().Line()};
        const std::size_t firstFault = m_faults.size();
        ReadRows<RuleClass>(
            *element, rows, *content, [&](std::string_view attribute, std::string sentence) {
                rule.Unreadable.emplace(attribute);
                Report("", attribute, sentence + "; the rules from here on are not loaded");
            });
        rule.Element = Titled(
            element->ElementName() + " " +
                (content->RuleID() == 0 ? "at position " + Position(position)
                                        : std::to_string(content->RuleID())),
            content->Title());
        ReadNameItems(*element, rule);
        ReadViolation(*element, rule);
        for (std::size_t fault = firstFault; fault < m_faults.size(); ++fault) {
            m_faults[fault].Element = rule.Element;
            m_faults[fault].RuleID = content->RuleID();
            // A review skips a rule that is disabled before it reads anything else of it.
            m_faults[fault].CostsReview = rule.IsOn();
        }
        m_contents.Rules.push_back(std::move(rule));
        ++position;
    }
}

void RulebaseReading::ReadRulesOfTheirSection() {
    const auto root = std::make_shared<KyXMLElement>(m_root);
    ReadRules<UnauthorisedKeyword>(root, schema::kUnauthorisedKeywords, schema::Keyword());
    const Element rules = RequiredChild(m_root, schema::kRules, schema::kRoot);
    if (rules == nullptr) {
        return;
    }
    m_contents.LastRuleID = Number(*rules, schema::kLastRuleID, std::string(schema::kRules));
    ReadRules<CodingConvention>(rules, schema::kCodingConventions, schema::Coding());
    ReadRules<NamingConvention>(rules, schema::kNamingConventions, schema::Naming());
}

void RulebaseReading::ReadViolation(const KyXMLElement& element, RulebaseContents::Rule& rule) {
    const Element definition = RequiredChild(element, schema::kViolationDefinition, rule.Element);
    if (definition == nullptr) {
        rule.Unreadable.emplace(schema::kViolationDefinition);
        return;
    }
    ReadRows<ViolationDefinition>(
        *definition,
        schema::Violation(),
        rule.Content->ViolationDefinition(),
        [&](std::string_view attribute, std::string sentence) {
            rule.Unreadable.emplace(attribute);
            Report(
                rule.Element,
                "ViolationDefinition " + std::string(attribute),
                sentence + "; a review does not load the rule");
        });
}

void RulebaseReading::ReadNameItems(const KyXMLElement& element, RulebaseContents::Rule& rule) {
    auto* naming = dynamic_cast<NamingConvention*>(rule.Content.get());
    if (naming == nullptr) {
        return;
    }
    if (naming->PrefixActive()) {
        ReadNameItemsOf(element, schema::kPrefixItems, naming->PrefixItems(), rule);
    }
    if (naming->SuffixActive()) {
        ReadNameItemsOf(element, schema::kSuffixItems, naming->SuffixItems(), rule);
    }
}

void RulebaseReading::ReadNameItemsOf(
    const KyXMLElement& element,
    std::string_view section,
    ObjectArrayList<PrefixSuffixItem>& items,
    const RulebaseContents::Rule& rule) {
    const Element list = RequiredChild(element, section, rule.Element);
    if (list == nullptr) {
        return;
    }
    std::int32_t slot = 0;
    for (const Element& child : ListElements(*list, rule.Element)) {
        ++slot;
        const std::string place = child->ElementName() + " " + std::to_string(slot);
        if (slot > NamingConvention::kItemCount) {
            SetPlace(*child);
            Report(
                rule.Element,
                place,
                "a prefix or suffix has four items at most; the rules from here on are not loaded");
            return;
        }
        ReadRows<PrefixSuffixItem>(
            *child,
            schema::NameItem(),
            *items.Item(slot),
            [&](std::string_view attribute, std::string sentence) {
                Report(rule.Element, place + " " + std::string(attribute), std::move(sentence));
            });
    }
}

void RulebaseReading::ReadReport() {
    const Element list = RequiredChild(m_root, schema::kReport, schema::kRoot);
    if (list == nullptr) {
        return;
    }
    for (const Element& element : ListElements(*list, std::string(schema::kReport))) {
        RulebaseContents::Section section;
        section.Element = element->ElementName() + " " + Position(m_contents.Sections.size());
        const std::string type = Text(*element, "SectionType", section.Element).value_or("");
        if (modTextCase::Equal(type, "Category")) {
            section.CategoryID = Number(*element, schema::kCategoryID, section.Element);
            const std::string rules =
                Text(*element, "CategoryRuleList", section.Element).value_or("");
            for (const std::string_view part : modText::Split(rules, '|')) {
                const std::optional<std::int32_t> number = LeadingLong(part);
                if (!part.empty() && number) {
                    section.RuleIDs.push_back(*number);
                }
            }
        } else {
            for (const char* attribute : {"TableKey", "TableText", "TableTitle"}) {
                Text(*element, attribute, section.Element);
            }
            Number(*element, "TableType", section.Element);
        }
        m_contents.Sections.push_back(std::move(section));
    }
}

}  // namespace dorvik
