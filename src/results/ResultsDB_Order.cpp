// The order of a list of files or procedures, and the figure that goes with it.

#include "base/modTextCase.h"
#include "results/ResultsDB.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

constexpr std::int32_t kFileItem = 2;
constexpr std::int32_t kProcedureItem = 3;

std::int32_t NumberOf(const BasicObject& object, std::int32_t key) {
    switch (key) {
        case ResultsDB::kSortByCount: return object.ViolationCount;
        case ResultsDB::kSortByImpact: return object.ViolationImpact;
        case ResultsDB::kSortByComplexity: return object.CyclomaticComplexity;
        default: return 0;
    }
}

/// Where the object stood in the list, and a number that orders as its sort key does.
struct Ranked {
    std::int32_t Rank;
    std::size_t Place;
};

/// Each text is compared a few times here, so that the sort itself has only numbers to compare.
void RankByText(
    const std::vector<BasicObject>& list, bool byFilename, std::vector<Ranked>& ranked) {
    const auto text = [&](const Ranked& entry) -> const std::string& {
        return byFilename ? list[entry.Place].Filename : list[entry.Place].Name;
    };
    std::vector<Ranked> sorted = ranked;
    std::sort(sorted.begin(), sorted.end(), [&](const Ranked& left, const Ranked& right) {
        return modTextCase::Compare(text(left), text(right)) < 0;
    });
    std::int32_t rank = 0;
    for (std::size_t index = 0; index < sorted.size(); ++index) {
        const bool isSame =
            index > 0 && modTextCase::Compare(text(sorted[index - 1]), text(sorted[index])) == 0;
        rank += isSame ? 0 : 1;
        ranked[sorted[index].Place].Rank = rank;
    }
}

std::vector<Ranked>
RankedBy(const std::vector<BasicObject>& list, std::int32_t key, bool byFilename) {
    std::vector<Ranked> ranked;
    ranked.reserve(list.size());
    for (const BasicObject& object : list) {
        ranked.push_back({NumberOf(object, key), ranked.size()});
    }
    if (key == ResultsDB::kSortByName) {
        RankByText(list, byFilename, ranked);
    }
    return ranked;
}

}  // namespace

Variant ResultsDB::GetObjectStatValue(const BasicObject& object, std::int32_t itemType) const {
    std::int32_t key = 0;
    if (itemType == kFileItem) {
        key = m_fileSortKey;
    } else if (itemType == kProcedureItem) {
        key = m_procSortKey;
    }
    switch (key) {
        case kSortByName:
        case kSortByCount: return object.ViolationCount;
        case kSortByImpact: return object.ViolationImpact;
        default: return {};
    }
}

// Required: a selection sort, which tells in what order items of equal keys end up.
void ResultsDB::SortBasicObjectList(
    std::vector<BasicObject>& list, std::int32_t key, bool ascending, bool byFilename) {
    std::vector<Ranked> ranked = RankedBy(list, key, byFilename);
    for (std::size_t place = 0; place + 1 < ranked.size(); ++place) {
        std::size_t best = place;
        for (std::size_t other = place + 1; other < ranked.size(); ++other) {
            const bool isBetter = ascending ? ranked[other].Rank < ranked[best].Rank
                                            : ranked[other].Rank > ranked[best].Rank;
            best = isBetter ? other : best;
        }
        std::swap(ranked[place], ranked[best]);
    }
    std::vector<BasicObject> sorted;
    sorted.reserve(list.size());
    for (const Ranked& entry : ranked) {
        sorted.push_back(std::move(list[entry.Place]));
    }
    list = std::move(sorted);
}

}  // namespace dorvik
