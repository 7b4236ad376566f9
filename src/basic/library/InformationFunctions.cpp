#include "Arguments.h"
#include "BuiltinTables.h"
#include "StrictForm.h"
#include "base/BasicError.h"
#include "basic/values/Coercion.h"
#include "basic/values/DateText.h"
#include "basic/values/NumberText.h"
#include "basic/values/ScriptContext.h"
#include "basic/values/ScriptObject.h"
#include "basic/values/ValueBodies.h"

namespace dorvik::basic {

namespace {

template <ValueType kType>
Value IsOfType(ScriptContext&, Arguments arguments) {
    return Value::Boolean(ArgumentAt(arguments, 0).Type() == kType);
}

Value IsError(ScriptContext&, Arguments arguments) {
    const Value& value = ArgumentAt(arguments, 0);
    return Value::Boolean(value.Type() == ValueType::Error);
}

Value IsMissing(ScriptContext&, Arguments arguments) {
    return Value::Boolean(ArgumentAt(arguments, 0).IsMissing());
}

/// What the default member gives that needs no argument; Null for an object without one.
Value ValueToTest(Arguments arguments) {
    const Value& value = ArgumentAt(arguments, 0);
    if (value.Type() != ValueType::Object) {
        return value;
    }
    const ScriptObject* object = value.AsObject();
    const bool hasPlainDefault =
        object && (object->Class() == ObjectClass::Err || object->Class() == ObjectClass::Match);
    return hasPlainDefault ? LetValue(value) : Value::Null();
}

Value IsNumeric(ScriptContext&, Arguments arguments) {
    const Value value = ValueToTest(arguments);
    switch (value.Type()) {
        case ValueType::Integer:
        case ValueType::Long:
        case ValueType::Single:
        case ValueType::Double:
        case ValueType::Currency:
        case ValueType::Boolean:
        case ValueType::Decimal:
        case ValueType::Byte:
        case ValueType::Empty: return Value::Boolean(true);
        case ValueType::String: return Value::Boolean(IsNumericText(value.AsText()));
        case ValueType::Date:
        case ValueType::Null:
        case ValueType::Object:
        case ValueType::Error:
        case ValueType::Record:
        case ValueType::Array:
        case ValueType::Reference: break;
    }
    return Value::Boolean(false);
}

Value IsDate(ScriptContext&, Arguments arguments) {
    const Value value = ValueToTest(arguments);
    if (value.Type() == ValueType::String) {
        return Value::Boolean(ReadDate(value.AsText()).has_value());
    }
    return Value::Boolean(value.Type() == ValueType::Date);
}

Value TypeName(ScriptContext&, Arguments arguments) {
    return TextResult(TypeNameOf(ArgumentAt(arguments, 0)));
}

Value VarType(ScriptContext&, Arguments arguments) {
    return Value::Integer(static_cast<std::int16_t>(VarTypeOf(ArgumentAt(arguments, 0))));
}

const Bounds& BoundsAt(Arguments arguments) {
    const Value& array = ArgumentAt(arguments, 0);
    if (array.Type() != ValueType::Array) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    const std::vector<Bounds>& dimensions = array.AsArray()->Dimensions();
    const std::int32_t dimension = LongAt(arguments, 1, 1);
    if (dimension < 1 || static_cast<std::size_t>(dimension) > dimensions.size()) {
        RaiseError(runtimeerror::kSubscriptOutOfRange);
    }
    return dimensions[static_cast<std::size_t>(dimension) - 1];
}

Value LBound(ScriptContext&, Arguments arguments) {
    return Value::Long(BoundsAt(arguments).Lower);
}

Value UBound(ScriptContext&, Arguments arguments) {
    return Value::Long(BoundsAt(arguments).Upper);
}

/// Without a number, the text of the last error.
Value Error(ScriptContext& context, Arguments arguments) {
    if (!IsGiven(arguments, 0)) {
        return TextResult(std::string_view(context.CurrentError().Description));
    }
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const std::int32_t number = LongAt(arguments, 0);
    if (number < 0 || number > 0xFFFF) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return number == 0 ? TextResult(std::string_view()) : TextResult(RuntimeErrorText(number));
}

Value Erl(ScriptContext& context, Arguments) {
    return Value::Long(context.LastLineNumber());
}

constexpr auto kBoolean = DeclaredKind::Boolean;

constexpr BuiltinFunction kRows[] = {
    {"Erl", "", DeclaredKind::Long, Erl},
    {"Error", "?ErrorNumber", DeclaredKind::Variant, Error},
    {"Error$", "?ErrorNumber", DeclaredKind::String, StrictForm<Error>},
    {"IsArray", "VarName", kBoolean, IsOfType<ValueType::Array>},
    {"IsDate", "Expression", kBoolean, IsDate},
    {"IsEmpty", "Expression", kBoolean, IsOfType<ValueType::Empty>},
    {"IsError", "Expression", kBoolean, IsError},
    {"IsMissing", "ArgName", kBoolean, IsMissing},
    {"IsNull", "Expression", kBoolean, IsOfType<ValueType::Null>},
    {"IsNumeric", "Expression", kBoolean, IsNumeric},
    {"IsObject", "Expression", kBoolean, IsOfType<ValueType::Object>},
    {"LBound", "Array ?Dimension", DeclaredKind::Long, LBound},
    {"TypeName", "VarName", DeclaredKind::String, TypeName},
    {"UBound", "Array ?Dimension", DeclaredKind::Long, UBound},
    {"VarType", "VarName", DeclaredKind::Integer, VarType},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::InformationFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
