#include "GridRanking.h"

#include "base/modTextCase.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace dorvik {

namespace {

/// The rank of a record without a value.
constexpr std::int32_t kNoNumber = std::numeric_limits<std::int32_t>::min();

}  // namespace

GridRanking::GridRanking(GridOrdering ordering, const GridValueList& list, std::size_t records)
    : m_ordering(ordering),
      m_list(list),
      m_ranks(records),
      m_isKnown(records),
      m_missing(records) {}

void GridRanking::Add(std::size_t position, const Variant& value) {
    if (m_isKnown[position]) {
        return;
    }
    m_isKnown[position] = true;
    --m_missing;
    if (m_ordering == GridOrdering::Number) {
        m_ranks[position] = value.IsEmpty() ? kNoNumber : value.AsLong();
        return;
    }
    const auto next = static_cast<std::int32_t>(m_texts.size());
    m_ranks[position] = m_texts.emplace(value.AsText(), next).first->second;
}

const std::string& GridRanking::OrderedText(const std::string& value) const {
    static const std::string kNone;
    if (m_ordering == GridOrdering::Text) {
        return value;
    }
    const GridValue* const shown = m_list.Find(value);
    return shown != nullptr ? shown->Text : kNone;
}

/// From the order of first use to the order of the texts; texts that are equal but for case get one rank.
void GridRanking::NumberTexts() {
    std::vector<std::pair<const std::string*, std::int32_t>> sorted;
    sorted.reserve(m_texts.size());
    for (const auto& [value, number] : m_texts) {
        sorted.emplace_back(&OrderedText(value), number);
    }
    std::sort(sorted.begin(), sorted.end(), [](const auto& left, const auto& right) {
        return modTextCase::Compare(*left.first, *right.first) < 0;
    });
    GridRanks rankOf(sorted.size());
    std::int32_t rank = 0;
    for (std::size_t index = 0; index < sorted.size(); ++index) {
        if (index > 0 && !modTextCase::Equal(*sorted[index - 1].first, *sorted[index].first)) {
            ++rank;
        }
        rankOf[static_cast<std::size_t>(sorted[index].second)] = rank;
    }
    for (std::int32_t& number : m_ranks) {
        number = rankOf[static_cast<std::size_t>(number)];
    }
}

GridRanks GridRanking::Take() {
    if (m_ordering != GridOrdering::Number && !m_texts.empty()) {
        NumberTexts();
    }
    return std::move(m_ranks);
}

}  // namespace dorvik
