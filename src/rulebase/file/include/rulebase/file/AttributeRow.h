#pragma once

#include "foundation/log/Trap.h"
#include "foundation/xml/KyXMLElement.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace dorvik {

/// The texts of attribute values in a rulebase file. Reading raises `kTypeMismatch` for any other
/// text and `kOverflow` for a number that is too large.
namespace modAttributeText {

/// "True" and "False" in any case, or a number, where 0 is false.
bool ToBoolean(std::string_view text);
/// A whole decimal number.
std::int32_t ToLong(std::string_view text);
std::int16_t ToInteger(std::string_view text);

template <class Value>
Value Read(const std::string& text) {
    if constexpr (std::is_same_v<Value, bool>) {
        return ToBoolean(text);
    } else if constexpr (std::is_same_v<Value, std::int32_t>) {
        return ToLong(text);
    } else if constexpr (std::is_same_v<Value, std::int16_t>) {
        return ToInteger(text);
    } else {
        return text;
    }
}

template <class Value>
std::string Write(const Value& value) {
    if constexpr (std::is_same_v<Value, bool>) {
        return value ? "True" : "False";
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return value;
    } else {
        return std::to_string(value);
    }
}

}  // namespace modAttributeText

/// One attribute of an element and the property of `Owner` that it holds. An element of the
/// rulebase file is a table of such rows, in the order in which they are read and written.
template <class Owner>
struct AttributeRow {
    const char* Name;
    void (*Read)(Owner& owner, const std::string& text);
    std::string (*Write)(const Owner& owner);
};

/// The row of a property with a getter and a setter, whose type says how its text looks.
template <class Owner, auto Getter, auto Setter>
constexpr AttributeRow<Owner> Attribute(const char* name) {
    using Value = std::remove_cvref_t<std::invoke_result_t<decltype(Getter), const Owner&>>;
    return {
        name,
        [](Owner& owner, const std::string& text) {
            std::invoke(Setter, owner, modAttributeText::Read<Value>(text));
        },
        [](const Owner& owner) {
            return modAttributeText::Write<Value>(std::invoke(Getter, owner));
        }};
}

/// The row of a public field.
template <class Owner, auto Field>
constexpr AttributeRow<Owner> FieldAttribute(const char* name) {
    using Value = std::remove_cvref_t<std::invoke_result_t<decltype(Field), const Owner&>>;
    return {
        name,
        [](Owner& owner, const std::string& text) {
            std::invoke(Field, owner) = modAttributeText::Read<Value>(text);
        },
        [](const Owner& owner) {
            return modAttributeText::Write<Value>(std::invoke(Field, owner));
        }};
}

/// For messages: ": the attribute RuleID of the element CodingConvention (line 4 of ...) is '12x'".
std::string
UnreadableText(const KyXMLElement& element, std::string_view attribute, std::string_view value);

/// Why the attribute could not be read, for the report of a check: "'12x' was found where a whole number was
/// expected". The default value of the attribute shows what it must hold.
std::string
RefusalText(const BasicError& failure, const std::string& value, const std::string& defaultText);

/// Adds the attribute. Raises `kInvalidProcedureCall` if the document does not hold the text as it is.
void WriteAttribute(KyXMLElement& element, std::string_view name, const std::string& text);

template <class Owner>
void WriteAttributes(
    KyXMLElement& element,
    std::type_identity_t<std::span<const AttributeRow<Owner>>> rows,
    const Owner& owner) {
    for (const AttributeRow<Owner>& row : rows) {
        WriteAttribute(element, row.Name, row.Write(owner));
    }
}

}  // namespace dorvik
