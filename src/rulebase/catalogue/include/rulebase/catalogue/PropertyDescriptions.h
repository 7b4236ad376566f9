#pragma once

#include "rulebase/catalogue/ObjectType.h"
#include "rulebase/catalogue/PropertyCatalogue.h"
#include "rulebase/catalogue/PropertyNumber.h"

#include <span>
#include <string_view>

namespace dorvik {

/// A property of one object.
struct PropertyDescription {
    PropertyNumber Number;
    std::string_view Sentence;               // what the property says of this object
    PropertyType Type = PropertyType::None;  // where it is not the catalogue's one type
};

/// The properties of one object, in the order in which a list shows them.
struct ObjectPropertyList {
    ObjectType Object;  // the root of a family
    std::span<const PropertyDescription> Properties;
    PropertyNumber FirstName;  // a list of names only begins here
};

/// The properties of every object, and what each of them says.
namespace modPropertyDescriptions {

/// One list for every object that has properties of its own.
std::span<const ObjectPropertyList> Lists();
/// Null for an object without such a list: a refinement of another, or one whose properties depend
/// on the control.
const ObjectPropertyList* FindList(ObjectType root);
/// Null where the object's list does not have the property.
const PropertyDescription* Find(ObjectType root, PropertyNumber number);
/// True for the five counts of lines, which only some objects have.
bool IsLineStatistic(PropertyNumber number);

}  // namespace modPropertyDescriptions

}  // namespace dorvik
