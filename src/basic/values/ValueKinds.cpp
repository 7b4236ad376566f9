#include "basic/values/ValueKinds.h"

#include <cstddef>

namespace dorvik::basic {

bool IsPlainKind(DeclaredKind kind) {
    return kind >= DeclaredKind::Byte && kind <= DeclaredKind::Date;
}

bool IsPlain(const DeclaredType& type) {
    return !type.IsArray && IsPlainKind(type.Kind);
}

bool IsWholeKind(DeclaredKind kind) {
    return kind >= DeclaredKind::Byte && kind <= DeclaredKind::Long;
}

DeclaredKind KindOf(ValueType type) {
    switch (type) {
        case ValueType::Byte: return DeclaredKind::Byte;
        case ValueType::Boolean: return DeclaredKind::Boolean;
        case ValueType::Integer: return DeclaredKind::Integer;
        case ValueType::Long: return DeclaredKind::Long;
        case ValueType::Single: return DeclaredKind::Single;
        case ValueType::Double: return DeclaredKind::Double;
        case ValueType::Currency: return DeclaredKind::Currency;
        case ValueType::Date: return DeclaredKind::Date;
        case ValueType::String: return DeclaredKind::String;
        case ValueType::Object: return DeclaredKind::Object;
        case ValueType::Empty:
        case ValueType::Null:
        case ValueType::Error:
        case ValueType::Decimal:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: return DeclaredKind::Variant;
    }
    return DeclaredKind::Variant;
}

ValueType ValueTypeOf(DeclaredKind kind) {
    static constexpr ValueType kTypes[] = {
        ValueType::Empty,
        ValueType::Byte,
        ValueType::Boolean,
        ValueType::Integer,
        ValueType::Long,
        ValueType::Single,
        ValueType::Double,
        ValueType::Currency,
        ValueType::Date,
        ValueType::String,
        ValueType::String,
        ValueType::Object,
        ValueType::Record,
    };
    return kTypes[static_cast<std::size_t>(kind)];
}

}  // namespace dorvik::basic
