#pragma once

#include "source/ItemType.h"

#include <cstdint>
#include <string>

/// The condition by which violations and figures point at their item.
namespace dorvik::modItemSql {

/// " WHERE ItemID = 4 AND ItemType = 2"
inline std::string OfItem(ItemType itemType, std::int32_t itemId) {
    return " WHERE ItemID = " + std::to_string(itemId) +
           " AND ItemType = " + std::to_string(NumberOf(itemType));
}

}  // namespace dorvik::modItemSql
