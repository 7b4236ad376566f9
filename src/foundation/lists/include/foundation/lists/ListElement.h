#pragma once

#include "base/Variant.h"
#include "base/modTextCase.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// What a list has to know of the kind of its elements: the name that the log gives to the list and
/// to a keyed list of it, the form in which a value is searched for, and when two values are the same.
template <typename T>
struct ListElement;

/// Texts are the same without regard to case.
template <>
struct ListElement<std::string> {
    using Sought = std::string_view;
    static constexpr std::string_view kListName = "StringArrayList";
    static constexpr std::string_view kKeyedListName = "StringKeyedArrayList";

    static bool Equal(std::string_view element, Sought sought) {
        return !DiffersAtAnEnd(element, sought) &&
               (element == sought || modTextCase::Equal(element, sought));
    }

    /// True if an ASCII character at the begin or the end tells the texts apart already. Most keys
    /// of a scan fail here; only the others are worth the full comparison.
    static bool DiffersAtAnEnd(std::string_view left, std::string_view right) {
        if (left.empty() || right.empty()) {
            return left.size() != right.size();
        }
        return Differs(left.front(), right.front()) || Differs(left.back(), right.back());
    }

private:
    static bool Differs(char left, char right) {
        constexpr unsigned kCaseBit = 0x20;
        const unsigned a = static_cast<unsigned char>(left);
        const unsigned b = static_cast<unsigned char>(right);
        if (a == b || ((a | b) & 0x80U) != 0) {
            return false;
        }
        const bool isLetter = (a | kCaseBit) - unsigned{'a'} < 26U;
        return (a ^ b) != kCaseBit || !isLetter;
    }
};

/// Objects are the same by identity and never the same as anything else. A number is the same as another
/// number or a text if their texts are the same.
template <>
struct ListElement<Variant> {
    using Sought = const Variant&;
    static constexpr std::string_view kListName = "ArrayList";
    static constexpr std::string_view kKeyedListName = "KeyedArrayList";

    static bool Equal(const Variant& element, Sought sought) {
        if (element.IsText() && sought.IsText()) {
            return ListElement<std::string>::Equal(element.Text(), sought.Text());
        }
        const auto object = element.ObjectIdentity();
        const auto soughtObject = sought.ObjectIdentity();
        if (object || soughtObject) {
            return object == soughtObject;
        }
        return modTextCase::Equal(element.AsText(), sought.AsText());
    }
};

template <>
struct ListElement<std::int32_t> {
    using Sought = std::int32_t;
    static constexpr std::string_view kListName = "LongArrayList";
    static constexpr std::string_view kKeyedListName = "LongKeyedArrayList";

    static bool Equal(std::int32_t element, Sought sought) { return element == sought; }
};

/// Objects are the same by identity.
template <typename Object>
struct ListElement<std::shared_ptr<Object>> {
    using Sought = const std::shared_ptr<Object>&;
    static constexpr std::string_view kListName = "ObjectArrayList";
    static constexpr std::string_view kKeyedListName = "ObjectKeyedArrayList";

    static bool Equal(Sought element, Sought sought) { return element == sought; }
};

}  // namespace dorvik
