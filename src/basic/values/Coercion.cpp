#include "basic/values/Coercion.h"

#include "basic/values/Characters.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ScriptObject.h"
#include "basic/values/TextBytes.h"
#include "basic/values/ValueBodies.h"

#include <utility>

namespace dorvik::basic {

namespace {

constexpr int kDeepestDefault = 100;  // objects whose default member is an object

[[noreturn]] void RaiseMismatch() {
    RaiseError(runtimeerror::kTypeMismatch);
}

Value TextValue(const Value& value) {
    if (value.Type() == ValueType::String) {
        return value;
    }
    if (modTextBytes::IsByteArray(value)) {
        return Value::Text(modTextBytes::TextOf(modTextBytes::BytesIn(value)));
    }
    std::string buffer;
    return Value::Text(ToText(value, buffer));
}

Value VariantOf(const Value& value) {
    switch (value.Type()) {
        case ValueType::Array: return Value::Array(value.AsArray()->Copy(false));
        case ValueType::Record: RaiseMismatch();
        case ValueType::Reference: return VariantOf(*value.AsReference());
        case ValueType::Empty:
        case ValueType::Null:
        case ValueType::Integer:
        case ValueType::Long:
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Currency:
        case ValueType::Date:
        case ValueType::String:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Boolean:
        case ValueType::Decimal:
        case ValueType::Byte: break;
    }
    return value;
}

Value ObjectOf(const Value& value, ObjectClass wanted) {
    if (value.Type() == ValueType::Reference) {
        return ObjectOf(*value.AsReference(), wanted);
    }
    if (value.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kObjectRequired);
    }
    const ScriptObject* object = value.AsObject();
    if (object != nullptr && wanted != ObjectClass::Any && object->Class() != wanted) {
        RaiseMismatch();
    }
    return value;
}

Value ArrayOf(const Value& value, const DeclaredType& type) {
    if (value.Type() == ValueType::Reference) {
        return ArrayOf(*value.AsReference(), type);
    }
    DeclaredType element = type;
    element.IsArray = false;
    if (value.Type() != ValueType::Array || value.AsArray()->Element() != element) {
        RaiseMismatch();
    }
    return Value::Array(value.AsArray()->Copy(false));
}

Value RecordOf(const Value& value, std::int32_t record) {
    if (value.Type() == ValueType::Reference) {
        return RecordOf(*value.AsReference(), record);
    }
    if (value.Type() != ValueType::Record || value.AsRecord()->Type() != record) {
        RaiseMismatch();
    }
    return value.DeepCopy();
}

/// The type of the values that a variable of a kind holds; Empty where they have several.
ValueType TypeHeldBy(DeclaredKind kind) {
    switch (kind) {
        case DeclaredKind::Byte: return ValueType::Byte;
        case DeclaredKind::Boolean: return ValueType::Boolean;
        case DeclaredKind::Integer: return ValueType::Integer;
        case DeclaredKind::Long: return ValueType::Long;
        case DeclaredKind::Single: return ValueType::Single;
        case DeclaredKind::Double: return ValueType::Double;
        case DeclaredKind::Currency: return ValueType::Currency;
        case DeclaredKind::Date: return ValueType::Date;
        case DeclaredKind::String:
        case DeclaredKind::FixedString: return ValueType::String;
        case DeclaredKind::Object: return ValueType::Object;
        case DeclaredKind::Record: return ValueType::Record;
        case DeclaredKind::Variant: break;
    }
    return ValueType::Empty;
}

}  // namespace

Value ToFixedText(std::string_view text, std::int32_t characters) {
    const auto wanted = static_cast<std::size_t>(characters);
    const std::size_t length = modCharacters::Count(text);
    if (length == wanted) {
        return Value::Text(text);
    }
    if (length > wanted) {
        return Value::Text(text.substr(0, modCharacters::Skip(text, wanted)));
    }
    std::string filled(text);
    filled.append(wanted - length, ' ');
    return Value::Text(std::move(filled));
}

std::string ErrorText(const Value& error) {
    return "Error " + std::to_string(error.AsLong());
}

Value CoerceTo(const Value& value, DeclaredKind kind) {
    if (value.Type() == TypeHeldBy(kind) && value.Type() != ValueType::Record &&
        kind != DeclaredKind::Variant) {
        return value;
    }
    switch (kind) {
        case DeclaredKind::Variant: return VariantOf(value);
        case DeclaredKind::Byte: return Value::Byte(ToByte(value));
        case DeclaredKind::Boolean: return Value::Boolean(ToBoolean(value));
        case DeclaredKind::Integer: return Value::Integer(ToInteger(value));
        case DeclaredKind::Long: return Value::Long(ToLong(value));
        case DeclaredKind::Single: return Value::Single(ToSingle(value));
        case DeclaredKind::Double: return Value::Double(ToDouble(value));
        case DeclaredKind::Currency: return Value::Currency(ToCurrency(value));
        case DeclaredKind::Date: return Value::Date(ToDate(value));
        case DeclaredKind::String:
        case DeclaredKind::FixedString: return TextValue(value);
        case DeclaredKind::Object: return ObjectOf(value, ObjectClass::Any);
        case DeclaredKind::Record: break;
    }
    RaiseMismatch();
}

Value CoerceTo(const Value& value, const DeclaredType& type) {
    if (type.IsArray) {
        return ArrayOf(value, type);
    }
    if (type.Kind == DeclaredKind::FixedString) {
        return ToFixedText(TextValue(value).AsText(), type.Length);
    }
    if (type.Kind == DeclaredKind::Object) {
        return ObjectOf(value, type.Class);
    }
    return type.Kind == DeclaredKind::Record ? RecordOf(value, type.Record)
                                             : CoerceTo(value, type.Kind);
}

Value LetValue(const Value& value) {
    Value result = value;
    for (int depth = 0; depth < kDeepestDefault; ++depth) {
        if (result.Type() == ValueType::Reference) {
            result = Value(*result.AsReference());
        } else if (result.Type() == ValueType::Object) {
            ScriptObject* object = result.AsObject();
            if (object == nullptr) {
                RaiseError(runtimeerror::kObjectNotSet);
            }
            if (!object->HasDefaultMember()) {
                RaiseError(runtimeerror::kNoSuchMember);
            }
            result = object->Invoke(kDefaultMember, InvokeKind::Get, {});
        } else {
            return result;
        }
    }
    RaiseError(runtimeerror::kNoSuchMember);
}

Value InitialValue(const DeclaredType& type) {
    if (type.IsArray) {
        DeclaredType element = type;
        element.IsArray = false;
        return Value::Array(MakeRef<ArrayBody>(element, false));
    }
    switch (type.Kind) {
        case DeclaredKind::Byte: return Value::Byte(0);
        case DeclaredKind::Boolean: return Value::Boolean(false);
        case DeclaredKind::Integer: return Value::Integer(0);
        case DeclaredKind::Long: return Value::Long(0);
        case DeclaredKind::Single: return Value::Single(0);
        case DeclaredKind::Double: return Value::Double(0);
        case DeclaredKind::Currency: return Value::Currency(0);
        case DeclaredKind::Date: return Value::Date(0);
        case DeclaredKind::String: return Value::Text(Ref<StringBody>());
        case DeclaredKind::FixedString:
            return Value::Text(std::string(static_cast<std::size_t>(type.Length), '\0'));
        case DeclaredKind::Object: return Value::Nothing();
        case DeclaredKind::Variant:
        case DeclaredKind::Record: break;
    }
    return {};
}

}  // namespace dorvik::basic
