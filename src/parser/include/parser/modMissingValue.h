#pragma once

#include <string>
#include <string_view>

/// The sentences for the log when a script or a naming convention reads a value that is not there.
namespace dorvik::modMissingValue {

/// Of the source or the naming convention, neither of which is a virtual object.
std::string InvalidProperty(std::string_view objectName, std::string_view propertyName);
std::string UnknownObject(std::string_view objectName);
/// Of an object in scope. A name with the prefix of work fields means a work field.
std::string NotFound(std::string_view objectName, std::string_view propertyName);

}  // namespace dorvik::modMissingValue
