#pragma once

#include "rulebase/check/IScriptChecker.h"
#include "rulebase/file/RulebaseContents.h"
#include "rulebase/file/RulebaseFault.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class CodingConvention;
class EventRule;
class NamingConvention;
struct PrefixSuffixItem;

/// Finds everything in a rulebase file that would fail in a review without a message: what cannot be read,
/// rules that are never applied, references to something that does not exist. Disabled rules are checked as
/// well.
class RulebaseCheck {
public:
    /// Without a checker the scripts are searched for a `Sub Main`, but not compiled.
    explicit RulebaseCheck(IScriptChecker* scripts = nullptr) : m_scripts(scripts) {}

    /// False if the file cannot be checked, because it is not a rulebase that can be loaded.
    bool Run(std::string_view filename);
    /// The same, but finds only what a load would omit or replace by a default.
    bool RunForLoad(std::string_view filename);
    /// Why the file could not be checked, as one sentence without its full stop; empty after a check.
    const std::string& Problem() const { return m_problem; }
    /// What was found: first what cannot be read, then the rest, each in the order of the file.
    const std::vector<RulebaseFault>& Faults() const { return m_faults; }

private:
    using Rule = RulebaseContents::Rule;
    using Events = std::vector<std::int32_t>;

    bool Read(std::string_view filename);
    void CheckContents();

    // Identifiers and references between the sections
    void CheckUnique(
        const std::vector<RulebaseContents::Identified>& items,
        std::string_view attribute,
        std::string_view consequence,
        bool costsReview);
    void CheckCategories();
    void CheckItems();
    void CheckTags();
    void CheckTagTable(const std::vector<RulebaseContents::Tag>& tags);
    void CheckTagName(const RulebaseContents::Tag& tag, std::string_view table);
    void CheckRuleNumbers();
    void CheckReport();
    void CheckDefaultViolations();
    void CheckViolation(
        const ViolationDefinition& definition,
        const std::string& element,
        std::int32_t ruleID,
        const std::string& place);
    bool HasCategory(std::int32_t id) const;

    // Rules
    void CheckRule(const Rule& rule);
    void CheckKeyword(const Rule& rule, const EventRule& keyword);
    void CheckCoding(const Rule& rule, const CodingConvention& coding);
    void CheckNaming(const Rule& rule, const NamingConvention& naming);
    void CheckNamePattern(const Rule& rule, const NamingConvention& naming);
    void CheckNameItems(const Rule& rule, const NamingConvention& naming, bool prefix);
    void CheckNameItem(
        const Rule& rule,
        const NamingConvention& naming,
        const PrefixSuffixItem& item,
        const std::string& place);
    /// Compiles all scripts at once, as a review does; `CheckScript` adds the faults of one rule.
    void CompileScripts();
    void CheckScript(const Rule& rule);
    /// The events of the rule that exist and at which rules of its kind are applied.
    Events LiveEvents(const Rule& rule, const EventRule& events);

    // Texts
    void CheckViolationTexts(const Rule& rule, const Events& events);
    void CheckText(
        std::string_view text,
        const Events& events,
        const std::string& element,
        std::int32_t ruleID,
        const std::string& place);
    void CheckProperty(
        std::string_view object,
        std::string_view property,
        const Events& events,
        const std::string& shown,
        const RulebaseFault& place);
    void CheckPattern(const std::string& pattern, const RulebaseFault& place);

    void
    AddFault(FaultKind kind, const Rule& rule, std::string_view attribute, std::string sentence);
    void AddFault(RulebaseFault place, FaultKind kind, std::string sentence);

    IScriptChecker* m_scripts;
    std::map<std::int32_t, std::vector<ScriptFault>> m_scriptFaults;  // by rule number
    std::string m_problem;
    std::vector<RulebaseFault> m_faults;
    RulebaseContents m_contents;
};

}  // namespace dorvik
