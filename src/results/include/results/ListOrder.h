#pragma once

#include "base/Variant.h"
#include "source/BasicObject.h"
#include "source/ItemType.h"

#include <cstdint>
#include <vector>

namespace dorvik {

struct DVKWorkData;

/// How lists of files and of procedures are sorted, and which of their items they show. The sort fields come
/// from the settings and are stored there again when this object is destroyed.
class ListOrder {
public:
    /// The keys to sort by. The settings may hold any other number, by which nothing is sorted.
    static constexpr std::int32_t kSortByName = 1;
    static constexpr std::int32_t kSortByCount = 2;
    static constexpr std::int32_t kSortByImpact = 3;
    static constexpr std::int32_t kSortByComplexity = 4;

    /// What lists of files and of procedures are sorted by, and in which direction.
    struct SortFields {
        std::int32_t FileSortKey = kSortByName;
        bool FileSortAscending = true;
        std::int32_t ProcSortKey = kSortByName;
        bool ProcSortAscending = true;
    };

    /// Without `settings` those of the process are used, or defaults, which are stored nowhere, while there
    /// are none. REQUIRES: `settings` outlives this.
    explicit ListOrder(DVKWorkData* settings);
    ~ListOrder();
    ListOrder(const ListOrder&) = delete;
    ListOrder& operator=(const ListOrder&) = delete;

    /// To be changed by the caller; the next list follows them.
    SortFields& Fields() { return m_fields; }

    /// The figure that a list of files or of procedures shows with an item: the impact where lists are sorted
    /// by impact, the number of violations where they are sorted by name or number, nothing otherwise.
    Variant GetObjectStatValue(const BasicObject& object, ItemType itemType) const;
    /// Whether a list of files or of procedures shows the item. One whose figure is not above 0 is hidden if
    /// the settings say so.
    bool Shows(const BasicObject& object, ItemType itemType) const;
    /// Whether the settings hide any files or procedures.
    bool HidesItems() const;

    void SortFiles(std::vector<BasicObject>& list) const;
    void SortProcedures(std::vector<BasicObject>& list) const;
    /// Sorts in place by a sort key. Names are compared without regard to case; with `byFilename` they are
    /// the file names.
    // Required: a selection sort, which chooses the first of several equal items.
    static void SortBasicObjectList(
        std::vector<BasicObject>& list, std::int32_t key, bool ascending, bool byFilename);

private:
    const DVKWorkData& Settings() const;
    /// Null where there are none to write to.
    DVKWorkData* WritableSettings() const;

    DVKWorkData* m_ownSettings;  // those of the constructor, or null
    SortFields m_fields;
};

}  // namespace dorvik
