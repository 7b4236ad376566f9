#include "OperandTypes.h"

#include <cstdint>
#include <iterator>

namespace dorvik::basic {

bool IsVariant(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Variant && !type.IsArray;
}

bool IsObject(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Object && !type.IsArray;
}

bool IsRecord(const DeclaredType& type) {
    return type.Kind == DeclaredKind::Record && !type.IsArray;
}

bool IsText(const DeclaredType& type) {
    return !type.IsArray &&
           (type.Kind == DeclaredKind::String || type.Kind == DeclaredKind::FixedString);
}

bool IsWhole(const DeclaredType& type) {
    return !type.IsArray && IsWholeKind(type.Kind);
}

bool IsDouble(const DeclaredType& type) {
    return !type.IsArray && type.Kind == DeclaredKind::Double;
}

bool IsBoolean(const DeclaredType& type) {
    return !type.IsArray && type.Kind == DeclaredKind::Boolean;
}

bool AreLongs(const Operand& left, const Operand& right) {
    return IsWhole(left.Type) && IsWhole(right.Type) &&
           (left.Type.Kind == DeclaredKind::Long || right.Type.Kind == DeclaredKind::Long);
}

bool AreIntegers(const Operand& left, const Operand& right) {
    return left.Type.Kind == DeclaredKind::Integer && right.Type.Kind == DeclaredKind::Integer &&
           !left.Type.IsArray && !right.Type.IsArray;
}

bool AreDoubles(const Operand& left, const Operand& right) {
    return (IsDouble(left.Type) && (IsDouble(right.Type) || IsWhole(right.Type))) ||
           (IsDouble(right.Type) && IsWhole(left.Type));
}

bool IsSmall(std::int32_t number) {
    return number >= -INT16_MAX && number <= INT16_MAX;
}

std::uint8_t FactsOf(const Operand& left, const Operand& right) {
    return static_cast<std::uint8_t>(
        (left.IsTyped ? 0 : kLeftIsVariant) | (right.IsTyped ? 0 : kRightIsVariant));
}

std::uint8_t TagOf(const DeclaredType& type) {
    const bool isFixed = type.Kind == DeclaredKind::FixedString && !type.IsArray;
    return static_cast<std::uint8_t>(
        IsVariant(type) ? ReferenceTag::Variant
        : isFixed       ? ReferenceTag::FixedString
                        : ReferenceTag::Typed);
}

std::string TypeText(const DeclaredType& type) {
    static constexpr const char* kNames[] = {
        "Variant",
        "Byte",
        "Boolean",
        "Integer",
        "Long",
        "Single",
        "Double",
        "Currency",
        "Date",
        "String",
        "String",
        "Object",
        "Type"};
    static_assert(std::size(kNames) == static_cast<std::size_t>(DeclaredKind::Record) + 1);
    const std::string name = kNames[static_cast<std::size_t>(type.Kind)];
    return type.IsArray ? name + "()" : name;
}

}  // namespace dorvik::basic
