#pragma once

#include "foundation/lists/LongArrayList.h"
#include "foundation/lists/StringArrayList.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// The catalogue of what a rule can be about: the objects that the parser puts in scope and the
/// properties that each of them has, as lists, names, icons and descriptions. Stateless.
///
/// Any number may be passed. For one outside the tables the result is empty (false, no list), and the call is
/// logged.
class ObjectHelper {
public:
    /// The object types, without their refinements, that a list of that mode offers. Mode 1 offers all,
    /// 2 all but the naming convention; 3 has project and control beyond what every mode has, 4 the
    /// 'Implements' statement. Both lists are cleared first.
    static void
    GetObjectList(std::int32_t mode, StringArrayList& names, LongArrayList& objectTypes);
    /// The properties of an object type; a refinement has those of its family. Mode 3 leaves only
    /// names where an object has a name, and no statistics. Both lists are cleared first. Empty, without
    /// a note, where the properties depend on the control.
    static void GetPropertyList(
        std::int32_t mode,
        std::int32_t objectType,
        StringArrayList& names,
        LongArrayList& propertyNumbers);

    /// Two lines: "Name As Type", and what the property says of this object.
    static std::string
    ObjectPropertyDescription(std::int32_t objectType, std::int32_t propertyNumber);

    /// The largest object type.
    static std::int32_t NumObjects();
    static std::string_view ObjectName(std::int32_t objectType);
    static std::string_view PropertyName(std::int32_t propertyNumber);
    /// For types 1 to 43, one text for a family but for that of the files.
    static std::string_view ObjectDescription(std::int32_t objectType);
    /// For types 1 to 28.
    static std::string_view ObjectIcon(std::int32_t objectType);
    static std::string_view PropertyIcon(std::int32_t propertyNumber);
    /// The number followed by "Key", as in "26Key", whatever the number.
    static std::string ObjectKey(std::int32_t objectType);
    /// The name as lists show it: "Enum Element" for "EnumElement".
    static std::string_view ObjectText(std::int32_t objectType);
    static std::string_view ObjectTreeIcon(std::int32_t objectType);
    /// False for an object in which a rule script can store nothing.
    static bool ObjectHasWorkfields(std::int32_t objectType);
};

}  // namespace dorvik
