#pragma once

#include <cstdint>

namespace dorvik::basic {

/// The kinds of value, with the numbers that `VarType` gives; `Record` (a value of a `Type`), `Array`
/// (`VarType` adds 8192 to the element type) and `Reference` never show to a script under theirs.
enum class ValueType : std::uint8_t {
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Object = 9,
    Error = 10,
    Boolean = 11,
    Decimal = 14,
    Byte = 17,
    Record = 36,
    Array = 37,
    Reference = 38,  // only in a frame: stands for a variable elsewhere (ByRef)
};

/// One bit for each type, so that a set of types is a number.
constexpr std::uint64_t TypeBit(ValueType type) {
    return std::uint64_t{1} << static_cast<unsigned>(type);
}

/// What a variable, an array element, a parameter or a function result may hold.
enum class DeclaredKind : std::uint8_t {
    Variant,
    Byte,
    Boolean,
    Integer,
    Long,
    Single,
    Double,
    Currency,
    Date,
    String,
    FixedString,  // Length says how many characters
    Object,       // any object; Class narrows it
    Record,       // Record is the index of the module's Type
};

enum class ObjectClass : std::uint8_t {
    Any,
    Collection,
    Dictionary,
    RegExp,
    Match,
    Matches,
    SubMatches,
    Err
};

/// A declared type: `As Long`, `As String * 10`, `e() As Variant`.
struct DeclaredType {
    DeclaredKind Kind = DeclaredKind::Variant;
    ObjectClass Class = ObjectClass::Any;
    bool IsArray = false;      // the kind is then that of the elements
    std::int32_t Length = 0;   // of a FixedString, in characters
    std::int32_t Record = -1;  // of a Record

    friend bool operator==(const DeclaredType&, const DeclaredType&) = default;
};

}  // namespace dorvik::basic
