#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What a rule can really read, beyond and short of what the catalogue lists: a few properties are
/// there without being listed, one is listed and never set, and the properties of some objects depend
/// on the reviewed files. Names compare without case.
namespace dorvik::modReadableProperties {

enum class Reading {
    Possible,         // also where it depends on the file or on what scripts have stored
    Never,            // listed, but nothing ever sets it
    UnknownProperty,  // the object has none of that name
    UnknownObject,    // nothing of that name ever comes into scope
};

Reading Look(std::string_view objectName, std::string_view propertyName);

/// The known name nearest to one that is not; empty if none is near.
std::string NearestObject(std::string_view objectName);
std::string NearestProperty(std::string_view objectName, std::string_view propertyName);

/// The listed and the unlisted properties of an object, as far as they are known beforehand.
std::vector<std::string_view> KnownProperties(std::string_view objectName);

}  // namespace dorvik::modReadableProperties
