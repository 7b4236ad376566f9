#pragma once

#include "parser/ParserEventTable.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Which objects a rule can ask at which parser event. Names compare without case.
namespace dorvik::modEventScope {

/// The objects of which a rule author is told that they are in scope at the event, the innermost
/// first. Empty for a number that is no event.
std::vector<std::string_view> Promised(std::int32_t event);

/// Whether a rule may count on the object at the event: it is promised, goes with an object that is
/// ("VBP" with the project, "Declarations" with the file), may be open at a source line, or answers
/// everywhere ("NamingConvention"). False for a number that is no event.
bool MayHold(std::int32_t event, std::string_view objectName);

/// "event 10 (Declaration)".
std::string Describe(std::int32_t event);

/// The numbers of the listed events as a sentence names them: "10, 28 and 30" with the conjunction "and".
std::string
NumbersOf(const std::function<bool(const ParserEventRow&)>& isListed, std::string_view conjunction);

}  // namespace dorvik::modEventScope
