#pragma once

#include "foundation/lists/ObjectKeyedArrayList.h"
#include "source/VirtualProject.h"

#include <cstdint>
#include <vector>

namespace dorvik::modSortIndex {

/// The positions in the list, from 1, in the order of the names of the project files, without their
/// folders and without regard to case. Projects of one name keep the order of the list.
std::vector<std::int32_t> MakeSortIndex(const ObjectKeyedArrayList<VirtualProject>& projects);

}  // namespace dorvik::modSortIndex
