#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What a rule can really read, where that differs from the catalogue: a few properties exist without being
/// listed, one is listed and never set, and the properties of some objects depend on the reviewed files.
/// Names are compared without case.
namespace dorvik::modReadableProperties {

enum class Reading {
    Possible,         // also where it depends on the file or on what scripts have stored
    Never,            // listed, but nothing ever sets it
    UnknownProperty,  // the object has no property of that name
    UnknownObject,    // no object of that name is ever in scope
};

/// Whether a rule can read the property.
Reading FindReading(std::string_view objectName, std::string_view propertyName);

/// The known name most similar to an unknown one; empty if none is similar.
std::string NearestObject(std::string_view objectName);
std::string NearestProperty(std::string_view objectName, std::string_view propertyName);

/// The listed and the unlisted properties of an object, as far as they are known beforehand.
std::vector<std::string_view> KnownProperties(std::string_view objectName);

}  // namespace dorvik::modReadableProperties
