#include "modScriptValues.h"

#include "base/BasicError.h"
#include "basic/values/Coercion.h"

#include <optional>

namespace dorvik::modScriptValues {

namespace {

/// A script's value in a property bag.
class HeldScriptValue final : public HeldValue {
public:
    explicit HeldScriptValue(const basic::Value& value) : m_value(value.DeepCopy()) {}

    basic::Value Value() const { return m_value.DeepCopy(); }

    std::string AsText() const override {
        const basic::ValueType type = m_value.Type();
        if (type == basic::ValueType::Null) {
            return "Null";
        }
        if (type == basic::ValueType::Error) {
            return "Error " + std::to_string(m_value.AsLong());
        }
        const bool hasText = type != basic::ValueType::Object && type != basic::ValueType::Array;
        return hasText ? basic::ToText(m_value) : basic::TypeNameOf(m_value);
    }

    std::optional<const void*> ObjectIdentity() const override {
        if (m_value.Type() != basic::ValueType::Object) {
            return std::nullopt;
        }
        return m_value.AsObject();
    }

private:
    basic::Value m_value;
};

}  // namespace

Variant ToVariant(const basic::Value& value) {
    const basic::ValueType type = value.Type();
    if (type == basic::ValueType::Empty) {
        return {};
    }
    if (type == basic::ValueType::String) {
        return value.AsText();
    }
    if (type == basic::ValueType::Long) {
        return value.AsLong();
    }
    if (type == basic::ValueType::Double) {
        return value.AsDouble();
    }
    if (type == basic::ValueType::Boolean) {
        return value.AsBoolean();
    }
    return std::shared_ptr<const HeldValue>(std::make_shared<HeldScriptValue>(value));
}

basic::Value ToValue(const Variant& variant) {
    if (variant.IsText()) {
        return basic::Value::Text(std::string_view(variant.Text()));
    }
    if (variant.IsLong()) {
        return basic::Value::Long(variant.AsLong());
    }
    if (variant.IsBoolean()) {
        return basic::Value::Boolean(variant.AsBoolean());
    }
    if (variant.IsDouble()) {
        return basic::Value::Double(variant.Double());
    }
    if (variant.IsHeld()) {
        const auto* held = dynamic_cast<const HeldScriptValue*>(&variant.Held());
        if (held == nullptr) {
            RaiseRuntimeError(runtimeerror::kTypeMismatch);
        }
        return held->Value();
    }
    return {};
}

}  // namespace dorvik::modScriptValues
