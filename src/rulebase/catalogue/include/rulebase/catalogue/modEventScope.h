#pragma once

#include "parser/ParserEventTable.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Which objects a rule can read at which parser event. Names are compared without case.
namespace dorvik::modEventScope {

/// The objects that are documented to be in scope at the event, the innermost first. Empty for a number that
/// is not an event.
std::vector<std::string_view> DocumentedScope(std::int32_t event);

/// Whether a rule may read the object at the event: it is documented to be in scope, belongs to an object that
/// is ("VBP" to the project, "Declarations" to the file), may be open at a source line, or is always in scope
/// ("NamingConvention"). False for a number that is not an event.
bool MayBeInScope(std::int32_t event, std::string_view objectName);

/// "event 10 (Declaration)".
std::string Describe(std::int32_t event);

/// The numbers of the listed events as a sentence names them: "10, 28 and 30" with the conjunction "and".
std::string
NumbersOf(const std::function<bool(const ParserEventRow&)>& isListed, std::string_view conjunction);

}  // namespace dorvik::modEventScope
