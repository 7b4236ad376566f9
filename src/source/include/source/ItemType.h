#pragma once

#include <cstdint>

namespace dorvik {

/// What an item of the results is. The numbers are those of the column `ItemType` of a results database.
enum class ItemType : std::int32_t { Project = 1, File = 2, Procedure = 3 };

}  // namespace dorvik
