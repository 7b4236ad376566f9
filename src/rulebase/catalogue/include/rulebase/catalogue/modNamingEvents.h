#pragma once

#include "parser/ParserEvent.h"
#include "rulebase/catalogue/ObjectType.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace dorvik {

/// At an event, the naming conventions of an object type are tried on the object of that name.
struct NamingEventRow {
    ParserEvent Event;
    ObjectType Type;
    std::string_view ObjectName;
};

/// When the naming conventions of each object type are tried.
namespace modNamingEvents {

/// Ordered by event. Which refinements an object really is, its properties decide.
std::span<const NamingEventRow> Rows();
/// The rows of one event, in the order in which its types are tried.
std::span<const NamingEventRow> At(ParserEvent event);
/// The rows of one object type; none where naming conventions of that type are never tried.
std::vector<NamingEventRow> Of(std::int32_t objectType);

}  // namespace modNamingEvents

}  // namespace dorvik
