#pragma once

#include <string>
#include <string_view>

namespace dorvik {

/// The tags for the name that a naming convention tests. Rules read them as the properties of the object
/// "NamingConvention".
struct NamingTags {
    std::string Array;
    std::string Control;
    std::string Scope;
    std::string DataType;

    /// The tag that is the property of that name, in any case; null if there is none.
    const std::string* Find(std::string_view propertyName) const;
};

}  // namespace dorvik
