#pragma once

#include "base/modTextCase.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

/// Finds an element of a list by its key, without regard to case.
namespace dorvik::modKeySearch {

/// The position of the first one. `keyOf` gives the key of an element.
template <typename List, typename KeyOf>
std::optional<std::size_t> Find(const List& list, std::string_view key, KeyOf keyOf) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const auto& element) {
        return modTextCase::Equal(std::invoke(keyOf, element), key);
    });
    return found == list.end() ? std::nullopt
                               : std::optional(static_cast<std::size_t>(found - list.begin()));
}

}  // namespace dorvik::modKeySearch
