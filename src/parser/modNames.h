#pragma once

#include "base/modTextCase.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace dorvik::modNames {

/// Whether two names are equal in any case. Scripts nearly always write a name as it is spelt here, and that is
/// the faster comparison.
inline bool Equal(std::string_view name, std::string_view wanted) {
    return name == wanted || modTextCase::Equal(name, wanted);
}

/// The row of a table whose `Name` it is, in any case, or null.
template <typename Rows>
const typename Rows::value_type* FindRow(const Rows& rows, std::string_view name) {
    const auto find = [&](auto isName) -> const typename Rows::value_type* {
        const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& candidate) {
            return isName(candidate.Name, name);
        });
        return row == rows.end() ? nullptr : &*row;
    };
    const auto* const exact = find(std::equal_to<std::string_view>());
    return exact != nullptr ? exact : find(&modTextCase::Equal);
}

}  // namespace dorvik::modNames
