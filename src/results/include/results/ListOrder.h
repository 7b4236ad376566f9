#pragma once

#include "base/Variant.h"
#include "source/BasicObject.h"
#include "source/ItemType.h"

#include <cstdint>
#include <vector>

namespace dorvik {

struct DVKWorkData;

/// How lists of files and of procedures are sorted, and what they show. The sort fields come from the
/// settings and go back to them at the end of this object.
class ListOrder {
public:
    /// What lists are sorted by. The settings may hold any number.
    static constexpr std::int32_t kSortByName = 1;
    static constexpr std::int32_t kSortByCount = 2;
    static constexpr std::int32_t kSortByImpact = 3;
    static constexpr std::int32_t kSortByComplexity = 4;

    /// The settings of the process without `settings`, or defaults that go nowhere while there are none.
    /// REQUIRES: `settings` outlives this.
    explicit ListOrder(DVKWorkData* settings);
    ~ListOrder();
    ListOrder(const ListOrder&) = delete;
    ListOrder& operator=(const ListOrder&) = delete;

    std::int32_t FileSortKey() const { return m_files.Key; }
    void SetFileSortKey(std::int32_t key) { m_files.Key = key; }
    bool FileSortAscending() const { return m_files.Ascending; }
    void SetFileSortAscending(bool ascending) { m_files.Ascending = ascending; }
    std::int32_t ProcSortKey() const { return m_procedures.Key; }
    void SetProcSortKey(std::int32_t key) { m_procedures.Key = key; }
    bool ProcSortAscending() const { return m_procedures.Ascending; }
    void SetProcSortAscending(bool ascending) { m_procedures.Ascending = ascending; }

    /// What a list of files or of procedures shows beside the item under the present sort key: the
    /// violations for the name and the count, the impact for the impact, nothing for anything else.
    Variant GetObjectStatValue(const BasicObject& object, ItemType itemType) const;
    /// Whether a list of files or of procedures shows the item: one without a figure is hidden if the
    /// settings say so.
    bool Shows(const BasicObject& object, ItemType itemType) const;
    /// Whether the settings hide files or procedures without a figure.
    bool HidesItems() const;

    void SortFiles(std::vector<BasicObject>& list) const;
    void SortProcedures(std::vector<BasicObject>& list) const;
    /// Sorts in place by a sort key; of equal keys the one found first stays best. Names are compared
    /// without regard to case, and are those of the files with `byFilename`.
    static void SortBasicObjectList(
        std::vector<BasicObject>& list, std::int32_t key, bool ascending, bool byFilename);

private:
    struct SortField {
        std::int32_t Key = kSortByName;
        bool Ascending = true;
    };

    const DVKWorkData& Settings() const;
    /// Null where there are none to write to.
    DVKWorkData* WritableSettings() const;

    DVKWorkData* m_ownSettings;  // those of the constructor, if any
    SortField m_files;
    SortField m_procedures;
};

}  // namespace dorvik
