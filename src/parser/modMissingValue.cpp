#include "parser/modMissingValue.h"

#include "base/modTextCase.h"
#include "parser/ScopeName.h"

namespace dorvik::modMissingValue {

std::string InvalidProperty(std::string_view objectName, std::string_view propertyName) {
    return std::string("Invalid ")
        .append(objectName)
        .append(" property '")
        .append(propertyName)
        .append("' specified.");
}

std::string UnknownObject(std::string_view objectName) {
    return std::string("Unknown virtual object '")
        .append(objectName)
        .append("' or object not in scope.");
}

std::string NotFound(std::string_view objectName, std::string_view propertyName) {
    const bool isWorkfield = modTextCase::StartsWith(propertyName, scopename::kWorkfieldPrefix);
    return std::string("Virtual object ")
        .append(isWorkfield ? "workfield" : "property")
        .append(" '")
        .append(objectName)
        .append(".")
        .append(propertyName)
        .append("' not found.");
}

}  // namespace dorvik::modMissingValue
