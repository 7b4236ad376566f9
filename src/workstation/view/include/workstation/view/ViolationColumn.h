#pragma once

#include "workstation/controls/GridColumn.h"

#include <cstdint>
#include <vector>

namespace dorvik {

/// The columns of the list of violations by their index, which the settings keep.
enum class ViolationColumn : std::int32_t {
    Completed = 1,
    Severity = 2,  // a coloured mark
    Title = 3,
    Impact = 4,
    SourceFile = 5,
    SeverityText = 6,
    Category = 7,
    ViolationID = 8
};

constexpr std::int32_t NumberOf(ViolationColumn column) {
    return static_cast<std::int32_t>(column);
}

/// All of them, in order.
std::vector<GridColumn> ViolationColumns();

}  // namespace dorvik
