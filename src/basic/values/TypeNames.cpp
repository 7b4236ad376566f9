#include "basic/values/Coercion.h"
#include "basic/values/ScriptObject.h"
#include "basic/values/ValueBodies.h"

namespace dorvik::basic {

namespace {

constexpr std::int32_t kArrayFlag = 8192;
constexpr std::int32_t kVariantNumber = 12;  // only shows with an array

struct ElementType {
    std::string_view Name;
    std::int32_t Number;
};

ElementType ElementTypeOf(DeclaredKind kind) {
    switch (kind) {
        case DeclaredKind::Byte: return {"Byte", 17};
        case DeclaredKind::Boolean: return {"Boolean", 11};
        case DeclaredKind::Integer: return {"Integer", 2};
        case DeclaredKind::Long: return {"Long", 3};
        case DeclaredKind::Single: return {"Single", 4};
        case DeclaredKind::Double: return {"Double", 5};
        case DeclaredKind::Currency: return {"Currency", 6};
        case DeclaredKind::Date: return {"Date", 7};
        case DeclaredKind::String:
        case DeclaredKind::FixedString: return {"String", 8};
        case DeclaredKind::Object: return {"Object", 9};
        case DeclaredKind::Record: return {"Type", 36};
        case DeclaredKind::Variant: break;
    }
    return {"Variant", kVariantNumber};
}

std::string_view ScalarName(ValueType type) {
    switch (type) {
        case ValueType::Empty: return "Empty";
        case ValueType::Null: return "Null";
        case ValueType::Integer: return "Integer";
        case ValueType::Long: return "Long";
        case ValueType::Single: return "Single";
        case ValueType::Double: return "Double";
        case ValueType::Currency: return "Currency";
        case ValueType::Date: return "Date";
        case ValueType::String: return "String";
        case ValueType::Object: return "Object";
        case ValueType::Error: return "Error";
        case ValueType::Boolean: return "Boolean";
        case ValueType::Decimal: return "Decimal";
        case ValueType::Byte: return "Byte";
        case ValueType::Record: return "Type";
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return {};
}

}  // namespace

std::string TypeNameOf(const Value& value) {
    if (value.Type() == ValueType::Reference) {
        return TypeNameOf(*value.AsReference());
    }
    if (value.Type() == ValueType::Array) {
        return std::string(ElementTypeOf(value.AsArray()->Element().Kind).Name) + "()";
    }
    if (value.Type() == ValueType::Object) {
        const ScriptObject* object = value.AsObject();
        return object == nullptr ? "Nothing" : std::string(object->ClassName());
    }
    return std::string(ScalarName(value.Type()));
}

std::int32_t VarTypeOf(const Value& value) {
    if (value.Type() == ValueType::Reference) {
        return VarTypeOf(*value.AsReference());
    }
    if (value.Type() == ValueType::Array) {
        return kArrayFlag + ElementTypeOf(value.AsArray()->Element().Kind).Number;
    }
    return static_cast<std::int32_t>(value.Type());
}

}  // namespace dorvik::basic
