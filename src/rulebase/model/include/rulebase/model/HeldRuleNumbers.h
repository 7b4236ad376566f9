#pragma once

#include <cstdint>
#include <unordered_set>

namespace dorvik {

/// The numbers that the rules of one `RuleLists` have now. A rule that is held there reports each
/// change of its number here, so that no rule has to be read when another one is added.
class HeldRuleNumbers {
public:
    bool Contains(std::int32_t number) const { return m_numbers.contains(number); }
    void Add(std::int32_t number) { m_numbers.insert(number); }
    /// REQUIRES: the number is there.
    void Remove(std::int32_t number) { m_numbers.erase(m_numbers.find(number)); }

private:
    std::unordered_multiset<std::int32_t>
        m_numbers;  // nothing keeps two rules from being given one number
};

}  // namespace dorvik
