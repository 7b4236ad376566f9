#pragma once

#include "IRulebaseSink.h"
#include "foundation/xml/KyXMLElement.h"
#include "rulebase/file/AttributeRow.h"
#include "rulebase/model/RulebaseLoadCriteria.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace dorvik {

/// Walks through a rulebase document: the only place that knows which elements a section has, which
/// attributes are read of each and in which order. What was read goes to a sink, and what cannot be read
/// to the faults, which say whether reading continues:
/// - A load ends the section at its first fault. Each section has its own trap, which logs the failure
///   under module "RulebaseManager" and the operation here; what was read before stays.
/// - A check records every fault and continues with the next attribute, so that nothing reaches a trap.
///
/// Which rules and sections are read follows from the criteria; with `LoadForEdit` it is all of them.
///
/// Required:
/// - A hidden category that is not shown is skipped before its texts are read.
/// - A level that is there already keeps its level text, which is then not read.
/// - A fifth item of a prefix or suffix is a fault, because only four slots exist.
/// - A review skips a rule that is not active before it reads anything else of it.
/// - The lists of the tolerances are lenient: what is no number in them is 0.
class RulebaseReader {
public:
    /// REQUIRES: `root` is of the current schema; the others outlive this.
    RulebaseReader(
        const std::shared_ptr<KyXMLElement>& root,
        RulebaseLoadCriteria& criteria,
        bool showsHidden,
        IRulebaseSink& sink,
        IReadFaults& faults);

    /// The criteria receive the element counts and the IDs of hidden categories.
    /// Raises `kObjectNotSet` for a list of items or rules that is not there, where faults end sections.
    void Read();
    /// What the choice of review options needs: the categories, the severities, the element counts and,
    /// unless it is null, the tolerances. Raises as `Read` does.
    void ReadOptions(ToleranceSettings* tolerances);

private:
    /// A list of items or rules, which the criteria count and may leave out.
    struct ListRow {
        std::string_view Name;
        std::int32_t RulebaseLoadCriteria::*Count;
        bool (RulebaseLoadCriteria::*IsWanted)() const;
        void (RulebaseReader::*Load)(const ReadElement& section);
    };
    static const ListRow kListsOfRoot[3];
    static const ListRow kListsOfRules[2];

    void LoadProperties();
    void LoadTolerances(ToleranceSettings& tolerances);
    void LoadControlTags();
    void LoadDataTypeTags();
    void LoadScopeTags();
    void LoadDefaultViolations();
    void LoadCategoryList();
    void LoadCategory(const ReadElement& element);
    void LoadSeverityList();
    void CountLists(const ReadElement& parent, std::span<const ListRow> rows);
    void LoadLists(const ReadElement& parent, std::span<const ListRow> rows);
    void LoadRules();
    void LoadAuthorisedComponents(const ReadElement& section);
    void LoadAuthorisedReferences(const ReadElement& section);
    void LoadUnauthorisedKeywords(const ReadElement& section);
    void LoadCodingConventions(const ReadElement& section);
    void LoadNamingConventions(const ReadElement& section);
    bool IsLoadableRule(const ReadElement& rule);
    void LoadViolationDefinition(const ReadElement& rule, ViolationDefinition& definition);
    void LoadReport();

    void ReadTags(std::string_view section, std::span<const AttributeRow<TagItem>> rows);
    template <class Item>
    void ReadItems(
        const ReadElement& section, std::type_identity_t<std::span<const AttributeRow<Item>>> rows);
    template <class Rule>
    void ReadRules(
        const ReadElement& section, std::type_identity_t<std::span<const AttributeRow<Rule>>> rows);
    void ReadNameParts(const ReadElement& rule, NamingConvention& naming);
    void ReadNameItems(
        const ReadElement& rule,
        std::string_view section,
        ObjectArrayList<PrefixSuffixItem>& items);
    void ReadReportSection(const ReadElement& element);

    /// The child of that name; nothing where it is missing and the faults let the reading go on.
    std::optional<ReadElement> Child(const ReadElement& parent, std::string_view name);
    /// The elements of a list. A piece of text among them is a fault.
    std::vector<ReadElement> Elements(const ReadElement& section, std::string_view loss);
    std::vector<ReadElement> ElementsOf(std::string_view section, std::string_view loss);

    template <class Value>
    std::optional<Value> ValueOf(const ReadElement& element, std::string_view name);
    template <class Owner>
    void ReadRows(
        const ReadElement& element,
        std::type_identity_t<std::span<const AttributeRow<Owner>>> rows,
        Owner& owner);
    template <class Body, class Sentence>
    bool
    Attempt(const ReadElement& element, std::string_view attribute, Body body, Sentence sentence);
    template <class ReadText, class DefaultText>
    void ReadAttribute(
        const ReadElement& element, std::string_view name, ReadText read, DefaultText defaultText);

    ReadElement m_root;
    RulebaseLoadCriteria& m_criteria;
    bool m_showsHidden;
    IRulebaseSink& m_sink;
    IReadFaults& m_faults;
};

}  // namespace dorvik
