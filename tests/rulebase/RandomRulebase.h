#pragma once

#include "rulebase/model/Rulebase.h"

#include <cstdint>
#include <memory>
#include <random>
#include <string>

namespace dorvik::test {

/// Rulebases out of chance, the same one for the same seed: every kind of rule and section, numbers
/// from the whole of their range, texts with every character that is apt to be spoiled on the way,
/// and now and then an empty or a very long one.
///
/// They are such that a file can hold them: the words of the stored form ("%TAB%") are not in any
/// text, categories are sorted and differ in their titles, only active prefixes and suffixes have
/// items, used from the front, and every category section shows a rule.
class RandomRulebase {
public:
    explicit RandomRulebase(unsigned seed) : m_engine(seed) {}

    std::unique_ptr<Rulebase> Make();

private:
    std::int32_t Number(std::int32_t below);
    bool Flag() { return Number(2) == 0; }
    std::int32_t Long();
    std::int16_t Integer();
    std::string Text();

    void FillProperties(Rulebase& rulebase);
    void FillTags(TagTable& table, bool withDescriptions);
    void FillDefaultViolations(DefaultViolations& violations);
    void FillCategories(CategoryList& list);
    void FillSeverities(SeverityTable& table);
    void FillAuthorisedItems(Rulebase& rulebase);
    void FillRules(RuleLists& rules);
    void FillReport(Rulebase& rulebase);

    void FillViolation(ViolationDefinition& definition);
    template <class Rule>
    void FillBasics(Rule& rule);
    template <class Rule>
    void FillEvents(Rule& rule);
    void FillNameItems(ObjectArrayList<PrefixSuffixItem>& items);
    std::shared_ptr<NamingConvention> Naming();
    std::shared_ptr<CodingConvention> Coding();
    std::shared_ptr<UnauthorisedKeyword> Keyword();

    std::mt19937 m_engine;
};

/// Everything that a rulebase holds and a file keeps, as text, so that two can be compared and a
/// difference read.
std::string DescriptionOf(const Rulebase& rulebase);

}  // namespace dorvik::test
