#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string_view>

namespace dorvik::test {

/// A numbered state and its name: a failed test prints the name.
template <typename State>
struct StateNameRow {
    State Value;
    std::string_view Name;
};

template <typename State, std::size_t size>
void PrintState(const StateNameRow<State> (&rows)[size], State state, std::ostream& out) {
    for (const StateNameRow<State>& row : rows) {
        if (row.Value == state) {
            out << row.Name;
            return;
        }
    }
    out << "state " << static_cast<std::int32_t>(state);
}

}  // namespace dorvik::test
