#pragma once

#include "source/VirtualObject.h"

#include <string>

namespace dorvik {

/// The bag of an object as one text, in its order: "Name=x|Scope=Private".
inline std::string BagText(VirtualObject& object) {
    std::string text;
    KeyedArrayList& properties = object.Properties();
    for (std::int32_t i = 1; i <= properties.Count(); ++i) {
        text +=
            (i > 1 ? "|" : "") + std::string(properties.Key(i)) + "=" + properties.Item(i).AsText();
    }
    return text;
}

inline std::string PropertyText(VirtualObject& object, std::string_view name) {
    return object.Properties().Item(name).AsText();
}

}  // namespace dorvik
