#pragma once

#include "base/Variant.h"
#include "workstation/controls/GridArrangement.h"
#include "workstation/controls/GridColumn.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace dorvik {

/// Turns the values of a column into ranks. Values come in any order; of texts each different one is held once.
class GridRanking {
public:
    /// REQUIRES: `list` outlives this.
    GridRanking(GridOrdering ordering, const GridValueList& list, std::size_t records);

    /// The value of a record. A second one for the same record is not taken.
    void Add(std::size_t position, const Variant& value);
    template <typename Visit>
    void ForEachMissing(Visit&& visit) const {
        for (std::size_t position = 0; m_missing > 0 && position < m_isKnown.size(); ++position) {
            if (!m_isKnown[position]) {
                visit(position);
            }
        }
    }
    /// Once, at the end.
    GridRanks Take();

private:
    const std::string& OrderedText(const std::string& value) const;
    void NumberTexts();

    GridOrdering m_ordering;
    const GridValueList& m_list;
    GridRanks m_ranks;
    std::vector<bool> m_isKnown;
    std::size_t m_missing;
    std::unordered_map<std::string, std::int32_t> m_texts;  // in the order of their first use
};

}  // namespace dorvik
