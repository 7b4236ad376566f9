#include "rulebase/file/RulebaseContents.h"

#include "RulebaseReader.h"
#include "base/BasicError.h"
#include "base/modText.h"
#include "foundation/log/Trap.h"
#include "rulebase/file/modRulebaseSchema.h"

#include <algorithm>
#include <span>
#include <utility>

namespace dorvik {

namespace {

/// Every fault is kept, and reading continues.
class KeptFaults : public IReadFaults {
public:
    explicit KeptFaults(std::vector<RulebaseFault>& faults) : m_faults(faults) {}

    bool Continues(RulebaseFault fault) override {
        m_faults.push_back(std::move(fault));
        return true;
    }

private:
    std::vector<RulebaseFault>& m_faults;
};

std::string Titled(const std::string& element, const std::string& title) {
    return title.empty() ? element : element + " '" + title + "'";
}

RulebaseContents::Identified
Identified(std::string identifier, const ReadElement& element, const std::string& title) {
    return {
        std::move(identifier),
        Titled(element.Source->ElementName(), title),
        element.Source->XMLNode().Line()};
}

/// What a load makes of a part of a list that is no whole number.
std::string LenientValue(std::string_view part) {
    std::string value = "is too large to be read";
    Handled(
        [&] {
            const std::int32_t number = modText::LeadingLong(part);
            value = "would count as " + std::to_string(number);
        },
        [](const BasicError&) { return true; });
    return value;
}

/// The sink of a check: keeps all that the file says, with the names of the elements.
class ContentsSink : public IRulebaseSink {
public:
    explicit ContentsSink(std::vector<RulebaseFault>& faults) : m_faults(faults) {}

    RulebaseContents TakeContents() { return std::move(m_contents); }

    Rulebase& Properties() override { return m_properties; }

    void TakeProperties(const ReadElement& element) override {
        m_contents.ArrayTag = m_properties.ArrayTag();
        for (const char* attribute : {"ToleranceCount", "ToleranceImpact"}) {
            CheckToleranceList(element, attribute);
        }
    }

    TagItem&
    Tag(std::string_view section, const std::string& name, const ReadElement& element) override {
        std::vector<RulebaseContents::Tag>& tags =
            section == modRulebaseSchema::kControlTags ? m_contents.ControlTags
            : section == modRulebaseSchema::kScopeTags ? m_contents.ScopeTags
                                                       : m_contents.DataTypeTags;
        tags.push_back({TagItem(), element.Name});
        tags.back().Content.SetTagName(name);
        return tags.back().Content;
    }

    ViolationDefinition& DefaultViolation(const ReadElement& element) override {
        if (element.Number > DefaultViolations().Count()) {
            RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
        }
        m_contents.DefaultViolations.push_back({ViolationDefinition(), element.Name});
        return m_contents.DefaultViolations.back().Content;
    }

    void SetLastCategoryID(std::int32_t id) override { m_contents.LastCategoryID = id; }

    void Take(const std::shared_ptr<CategoryItem>& category, const ReadElement& element) override {
        m_contents.Categories.push_back(
            Identified(std::to_string(category->ID()), element, category->Title()));
    }

    void EndCategories() override {}

    std::shared_ptr<SeverityItem> KnownSeverity(std::int32_t level) override {
        const bool isKnown = m_properties.SeverityList().Find(SeverityKeyOf(level)) != nullptr;
        return isKnown ? std::make_shared<SeverityItem>() : nullptr;
    }

    void Take(
        std::int32_t level,
        const std::shared_ptr<SeverityItem>& item,
        const ReadElement& element) override {
        m_properties.SeverityList().Add(SeverityKeyOf(level), item, true, false);
        m_contents.Severities.push_back(Identified(std::to_string(level), element, item->Title()));
    }

    void
    Take(const std::shared_ptr<AuthorisedComponent>& item, const ReadElement& element) override {
        m_contents.Components.push_back(Identified(item->LibID(), element, item->Title()));
    }

    void
    Take(const std::shared_ptr<AuthorisedReference>& item, const ReadElement& element) override {
        m_contents.References.push_back(Identified(item->LibID(), element, item->Title()));
    }

    void SetLastRuleID(std::int32_t id) override { m_contents.LastRuleID = id; }

    void Take(const std::shared_ptr<BasicRule>& rule, const ReadElement& element) override {
        const std::string numbered =
            element.Source->ElementName() + " " + std::to_string(rule->RuleID());
        m_contents.Rules.push_back(
            {rule,
             Titled(rule->RuleID() == 0 ? element.Name : numbered, rule->Title()),
             {},
             element.Source->XMLNode().Line()});
        NameFaults(element.Name, m_contents.Rules.back());
    }

    bool BeginSection(std::optional<std::int32_t> categoryID, const ReadElement& element) override {
        m_contents.Sections.push_back({categoryID, {}, element.Name});
        return true;
    }

    void TakeRuleOfSection(std::string_view part, std::int32_t number) override {
        if (!part.empty()) {
            m_contents.Sections.back().RuleIDs.push_back(number);
        }
    }

    void Take(const std::shared_ptr<TableItem>& /*table*/) override {}

private:
    void CheckToleranceList(const ReadElement& element, const char* attribute) {
        const std::string text = element.Source->XMLNode().Attribute(attribute).value_or("");
        const std::vector<std::string_view> parts =
            text.empty() ? std::vector<std::string_view>() : modText::Split(text, '|');
        if (parts.size() > ToleranceSettings::kPlaces) {
            m_faults.push_back(element.Fault(attribute, "the list has more than six parts"));
        }
        for (const std::string_view part : parts) {
            if (!modText::WholeNumber(modText::Trim(part)).has_value()) {
                m_faults.push_back(element.Fault(
                    attribute,
                    "'" + std::string(part) + "' is not a whole number and " + LenientValue(part)));
            }
        }
    }

    /// A rule is read before its number and title are known, so its faults, the last ones, have only
    /// its position.
    void NameFaults(const std::string& position, RulebaseContents::Rule& rule) {
        const auto other = std::find_if(m_faults.rbegin(), m_faults.rend(), [&](const auto& fault) {
            return fault.Element != position;
        });
        const std::span<RulebaseFault> faults(other.base(), m_faults.end());
        for (const RulebaseFault& fault : faults) {
            rule.Unreadable.insert(fault.Attribute);
        }
        for (RulebaseFault& fault : faults) {
            fault.Element = rule.Element;
            fault.RuleID = rule.Content->RuleID();
            // A review skips a rule that is disabled before it reads anything else of it.
            fault.CostsReview = rule.IsOn();
        }
    }

    std::vector<RulebaseFault>& m_faults;
    Rulebase m_properties;
    RulebaseContents m_contents;
};

}  // namespace

RulebaseContents
ReadContents(const std::shared_ptr<KyXMLElement>& root, std::vector<RulebaseFault>& faults) {
    ContentsSink sink(faults);
    KeptFaults policy(faults);
    RulebaseLoadCriteria everything;
    everything.SetLoadForEdit(true);
    RulebaseReader(root, everything, /*showsHidden=*/true, sink, policy).Read();
    return sink.TakeContents();
}

}  // namespace dorvik
