#pragma once

#include "foundation/lists/ObjectArrayList.h"
#include "foundation/lists/ObjectKeyedArrayList.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace dorvik {

/// A keyed table of rule lists whose keys are numbers in decimal: parser events or object types.
/// Numbers below `kDirectCount`, which is all that a review queries, are found through an array
/// beside the table, so that a lookup at event time neither formats a number nor scans keys.
/// The lists live as long as the table and never move.
template <class Rule>
class NumberedLists {
public:
    using List = ObjectArrayList<Rule>;

    static constexpr std::int32_t kDirectCount = 64;

    NumberedLists() = default;
    NumberedLists(const NumberedLists&) = delete;
    NumberedLists& operator=(const NumberedLists&) = delete;

    /// Null if the number has no list.
    List* Find(std::int32_t number) const {
        if (IsDirect(number)) {
            return m_direct[static_cast<std::size_t>(number)];
        }
        const std::shared_ptr<List>* entry = m_table.Find(std::to_string(number));
        return entry == nullptr ? nullptr : entry->get();
    }

    List& FindOrCreate(std::int32_t number) {
        if (List* list = Find(number)) {
            return *list;
        }
        const auto created = std::make_shared<List>();
        m_table.Add(std::to_string(number), created, false, true);
        if (IsDirect(number)) {
            m_direct[static_cast<std::size_t>(number)] = created.get();
        }
        return *created;
    }

    const ObjectKeyedArrayList<List>& Table() const { return m_table; }

private:
    static bool IsDirect(std::int32_t number) { return number >= 0 && number < kDirectCount; }

    ObjectKeyedArrayList<List> m_table;
    std::array<List*, kDirectCount> m_direct{};
};

}  // namespace dorvik
