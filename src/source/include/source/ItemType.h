#pragma once

#include <cstdint>

namespace dorvik {

/// What an item of the results is. The numbers are those of the column `ItemType` of a results database.
enum class ItemType : std::int32_t {
    None = 0,       // an object that was given no row
    Project = 1,    // by its ProjectID
    File = 2,       // a source file, or the project file, by its SourceID
    Procedure = 3,  // a procedure, or the layout or declarations of a file, by its ProcID
};

/// The number that a results database has for it.
constexpr std::int32_t NumberOf(ItemType type) {
    return static_cast<std::int32_t>(type);
}

/// The type of a number from a results database; `None` for a number that is none.
constexpr ItemType ItemTypeOf(std::int32_t number) {
    const bool isKnown =
        number >= NumberOf(ItemType::Project) && number <= NumberOf(ItemType::Procedure);
    return isKnown ? static_cast<ItemType>(number) : ItemType::None;
}

}  // namespace dorvik
