#include "results/ListOrder.h"

#include "base/modTextCase.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

std::int32_t NumberOf(const BasicObject& object, std::int32_t key) {
    switch (key) {
        case ListOrder::kSortByCount: return object.ViolationCount;
        case ListOrder::kSortByImpact: return object.ViolationImpact;
        case ListOrder::kSortByComplexity: return object.CyclomaticComplexity;
        default: return 0;
    }
}

/// The index of an object in the list, and a number that orders as its sort key does.
struct Ranked {
    std::int32_t Rank;
    std::size_t Index;
};

/// Compares each text a few times only, so that the selection sort has numbers to compare.
void RankByText(
    const std::vector<BasicObject>& list, bool byFilename, std::vector<Ranked>& ranked) {
    const auto text = [&](const Ranked& entry) -> const std::string& {
        return byFilename ? list[entry.Index].Filename : list[entry.Index].Name;
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
        ranked[sorted[index].Index].Rank = rank;
    }
}

std::vector<Ranked>
RankedBy(const std::vector<BasicObject>& list, std::int32_t key, bool byFilename) {
    std::vector<Ranked> ranked;
    ranked.reserve(list.size());
    for (const BasicObject& object : list) {
        ranked.push_back({NumberOf(object, key), ranked.size()});
    }
    if (key == ListOrder::kSortByName) {
        RankByText(list, byFilename, ranked);
    }
    return ranked;
}

}  // namespace

ListOrder::ListOrder(DVKWorkData* settings) : m_ownSettings(settings) {
    const DVKWorkData& from = Settings();
    m_fields = {
        from.RVFileSortKey, from.RVFileSortAscending, from.RVProcSortKey, from.RVProcSortAscending};
}

ListOrder::~ListOrder() {
    if (DVKWorkData* const to = WritableSettings()) {
        to->RVFileSortKey = m_fields.FileSortKey;
        to->RVFileSortAscending = m_fields.FileSortAscending;
        to->RVProcSortKey = m_fields.ProcSortKey;
        to->RVProcSortAscending = m_fields.ProcSortAscending;
    }
}

DVKWorkData* ListOrder::WritableSettings() const {
    if (m_ownSettings != nullptr) {
        return m_ownSettings;
    }
    return modGlobal::IsInUse() ? &modGlobal::WorkData() : nullptr;
}

const DVKWorkData& ListOrder::Settings() const {
    static const DVKWorkData kDefaults;
    const DVKWorkData* const settings = WritableSettings();
    return settings != nullptr ? *settings : kDefaults;
}

Variant ListOrder::GetObjectStatValue(const BasicObject& object, ItemType itemType) const {
    std::int32_t key = 0;
    if (itemType == ItemType::File) {
        key = m_fields.FileSortKey;
    } else if (itemType == ItemType::Procedure) {
        key = m_fields.ProcSortKey;
    }
    switch (key) {
        case kSortByName:
        case kSortByCount: return object.ViolationCount;
        case kSortByImpact: return object.ViolationImpact;
        default: return {};
    }
}

bool ListOrder::Shows(const BasicObject& object, ItemType itemType) const {
    const DVKWorkData& settings = Settings();
    if (itemType == ItemType::File ? settings.RVFileShowZeroItems : settings.RVProcShowZeroItems) {
        return true;
    }
    const Variant value = GetObjectStatValue(object, itemType);
    return !value.IsEmpty() && value.AsLong() > 0;
}

bool ListOrder::HidesItems() const {
    return !Settings().RVFileShowZeroItems || !Settings().RVProcShowZeroItems;
}

void ListOrder::SortFiles(std::vector<BasicObject>& list) const {
    SortBasicObjectList(
        list, m_fields.FileSortKey, m_fields.FileSortAscending, /*byFilename=*/false);
}

void ListOrder::SortProcedures(std::vector<BasicObject>& list) const {
    SortBasicObjectList(
        list, m_fields.ProcSortKey, m_fields.ProcSortAscending, /*byFilename=*/false);
}

// Required: a selection sort. Its swaps decide in what order items of equal keys end up.
void ListOrder::SortBasicObjectList(
    std::vector<BasicObject>& list, std::int32_t key, bool ascending, bool byFilename) {
    std::vector<Ranked> ranked = RankedBy(list, key, byFilename);
    for (std::size_t index = 0; index + 1 < ranked.size(); ++index) {
        std::size_t best = index;
        for (std::size_t other = index + 1; other < ranked.size(); ++other) {
            const bool isBetter = ascending ? ranked[other].Rank < ranked[best].Rank
                                            : ranked[other].Rank > ranked[best].Rank;
            best = isBetter ? other : best;
        }
        std::swap(ranked[index], ranked[best]);
    }
    std::vector<BasicObject> sorted;
    sorted.reserve(list.size());
    for (const Ranked& entry : ranked) {
        sorted.push_back(std::move(list[entry.Index]));
    }
    list = std::move(sorted);
}

}  // namespace dorvik
