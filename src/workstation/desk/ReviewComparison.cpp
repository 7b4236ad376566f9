#include "workstation/desk/ReviewComparison.h"

#include "base/modTextCase.h"

#include <cstddef>
#include <iterator>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace dorvik {

namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// What makes two violations the same.
std::string KeyOf(const FoundViolation& violation) {
    std::string key = std::to_string(violation.RuleID);
    for (const std::string_view part :
         {std::string_view(violation.Title),
          std::string_view(violation.File),
          std::string_view(violation.Procedure),
          Trimmed(violation.Text)}) {
        key.append(1, '\0').append(part);
    }
    return modTextCase::ToLower(key);
}

}  // namespace

ReviewComparison::ReviewComparison(
    std::vector<FoundViolation> before, std::vector<FoundViolation> after) {
    std::unordered_map<std::string, std::int32_t> left;  // how many of the earlier have no partner
    for (const FoundViolation& violation : before) {
        ++left[KeyOf(violation)];
    }
    std::vector<Row> unchanged;
    for (FoundViolation& violation : after) {
        const auto found = left.find(KeyOf(violation));
        if (found != left.end() && found->second > 0) {
            --found->second;
            unchanged.push_back({FindingChange::Unchanged, std::move(violation)});
        } else {
            m_rows.push_back({FindingChange::New, std::move(violation)});
        }
    }
    m_new = static_cast<std::int32_t>(m_rows.size());
    // Of several that are the same it is the last ones that are gone.
    std::vector<Row> gone;
    for (auto violation = before.rbegin(); violation != before.rend(); ++violation) {
        std::int32_t& count = left.at(KeyOf(*violation));
        if (count > 0) {
            --count;
            gone.push_back({FindingChange::Gone, std::move(*violation)});
        }
    }
    m_gone = static_cast<std::int32_t>(gone.size());
    m_rows.insert(
        m_rows.end(), std::make_move_iterator(gone.rbegin()), std::make_move_iterator(gone.rend()));
    m_rows.insert(
        m_rows.end(),
        std::make_move_iterator(unchanged.begin()),
        std::make_move_iterator(unchanged.end()));
}

std::int32_t ReviewComparison::Count(FindingChange change) const {
    switch (change) {
        case FindingChange::New: return m_new;
        case FindingChange::Gone: return m_gone;
        case FindingChange::Unchanged: break;
    }
    return static_cast<std::int32_t>(m_rows.size()) - m_new - m_gone;
}

std::string ReviewComparison::Summary() const {
    return std::to_string(Count(FindingChange::New)) + " new, " +
           std::to_string(Count(FindingChange::Gone)) + " gone, " +
           std::to_string(Count(FindingChange::Unchanged)) + " unchanged";
}

}  // namespace dorvik
