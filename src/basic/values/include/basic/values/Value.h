#pragma once

#include "basic/values/ReferenceCounted.h"
#include "basic/values/StringBody.h"
#include "basic/values/ValueType.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik::basic {

class ScriptObject;
class ArrayBody;
class RecordBody;
class DecimalBody;
struct DecimalNumber;

/// One value of a script, 16 bytes: a type and either the value itself or a counted body.
/// Copying shares a string, an object or a decimal, which never change in place as far as others can
/// see; an array or a record is copied whole by `DeepCopy` only, and callers that store one say so.
/// The `As...` readers below do not convert: REQUIRES the matching type. Conversions are in `Coercion.h`.
class Value {
public:
    Value() noexcept = default;
    Value(const Value& other) noexcept : m_data(other.m_data), m_type(other.m_type) { Retain(); }
    Value(Value&& other) noexcept : m_data(other.m_data), m_type(other.m_type) {
        other.m_type = ValueType::Empty;
    }
    Value& operator=(const Value& other) noexcept {
        other.Retain();
        Replace(other.m_data, other.m_type);
        return *this;
    }
    Value& operator=(Value&& other) noexcept {
        const Data data = other.m_data;
        const ValueType type = other.m_type;
        other.m_type = ValueType::Empty;
        Replace(data, type);
        return *this;
    }
    ~Value() {
        if (HoldsBody()) {
            Drop(m_data.Body, m_type);
        }
    }

    static Value Null() noexcept { return Plain(ValueType::Null, 0); }
    static Value Boolean(bool value) noexcept { return Plain(ValueType::Boolean, value ? -1 : 0); }
    static Value Byte(std::uint8_t value) noexcept { return Plain(ValueType::Byte, value); }
    static Value Integer(std::int16_t value) noexcept { return Plain(ValueType::Integer, value); }
    static Value Long(std::int32_t value) noexcept { return Plain(ValueType::Long, value); }
    static Value Single(float value) noexcept {
        Value result;
        result.m_type = ValueType::Single;
        result.m_data.Single = value;
        return result;
    }
    static Value Double(double value) noexcept {
        Value result;
        result.PutDouble(value);
        return result;
    }
    static Value Currency(std::int64_t tenThousandths) noexcept {
        Value result;
        result.m_type = ValueType::Currency;
        result.m_data.Currency = tenThousandths;
        return result;
    }
    static Value Date(double days) noexcept {
        Value result;
        result.m_type = ValueType::Date;
        result.m_data.Double = days;
        return result;
    }
    static Value Text(std::string_view text);
    static Value Text(const std::string& text) { return Text(std::string_view(text)); }
    static Value Text(const char* text) { return Text(std::string_view(text)); }
    static Value Text(std::string&& text);
    static Value Text(Ref<StringBody> body) noexcept {  // null is ""
        Value result;
        result.m_type = ValueType::String;
        result.m_data.Text = body.Detach();
        return result;
    }
    static Value Decimal(Ref<DecimalBody> body) noexcept;
    static Value Decimal(const DecimalNumber& number);
    static Value Object(Ref<ScriptObject> object) noexcept;  // null is Nothing
    static Value Nothing() noexcept {
        Value result;
        result.m_type = ValueType::Object;
        return result;
    }
    static Value Array(Ref<ArrayBody> body) noexcept;
    static Value Record(Ref<RecordBody> body) noexcept;
    static Value Error(std::int32_t number) noexcept { return Plain(ValueType::Error, number); }
    /// An optional Variant argument that was left out.
    static Value Missing() noexcept { return Plain(ValueType::Error, kMissing); }
    /// Refers to the variable `target` in the frame of a procedure that takes it ByRef. The caller of
    /// the procedure keeps `target` alive.
    static Value Reference(Value* target) noexcept {
        Value result;
        result.m_type = ValueType::Reference;
        result.m_data.Reference = target;
        return result;
    }

    ValueType Type() const noexcept { return m_type; }
    bool IsMissing() const noexcept {
        return m_type == ValueType::Error && m_data.Long == kMissing;
    }
    /// True for the seven number types, Boolean and Date.
    bool IsNumber() const noexcept { return IsOneOf(kNumberTypes); }

    bool AsBoolean() const noexcept { return m_data.Long != 0; }
    std::uint8_t AsByte() const noexcept { return static_cast<std::uint8_t>(m_data.Long); }
    std::int16_t AsInteger() const noexcept { return static_cast<std::int16_t>(m_data.Long); }
    /// Byte, Integer, Long, Boolean (0 or -1) and the number of an Error all answer here.
    std::int32_t AsLong() const noexcept { return m_data.Long; }
    float AsSingle() const noexcept { return m_data.Single; }
    double AsDouble() const noexcept { return m_data.Double; }  // Double and Date
    std::int64_t AsCurrency() const noexcept { return m_data.Currency; }
    std::string_view AsText() const {  // "" for a null body; lives as long as the value
        return m_data.Text != nullptr ? std::string_view(m_data.Text->Text()) : std::string_view();
    }
    StringBody* TextBody() const noexcept { return m_data.Text; }
    DecimalBody* AsDecimal() const noexcept { return m_data.Decimal; }
    ScriptObject* AsObject() const noexcept { return m_data.Object; }
    ArrayBody* AsArray() const noexcept { return m_data.Array; }
    RecordBody* AsRecord() const noexcept { return m_data.Record; }
    Value* AsReference() const noexcept { return m_data.Reference; }

    /// Writers for the machine's fast paths. REQUIRES: the value holds no body.
    void PutInteger(std::int16_t value) noexcept {
        m_type = ValueType::Integer;
        m_data.Long = value;
    }
    void PutLong(std::int32_t value) noexcept {
        m_type = ValueType::Long;
        m_data.Long = value;
    }
    void PutDouble(double value) noexcept {
        m_type = ValueType::Double;
        m_data.Double = value;
    }
    void PutBoolean(bool value) noexcept {
        m_type = ValueType::Boolean;
        m_data.Long = value ? -1 : 0;
    }

    /// Whether the value refers to a body: a string, an object, a decimal, an array or a record.
    bool HoldsBody() const noexcept { return IsOneOf(kBodyTypes); }

    /// Arrays and records copied whole, element by element; anything else as it is. Raises 28 for
    /// arrays nested too deep, 7 beyond the memory limit.
    Value DeepCopy() const { return IsOneOf(kCopiedTypes) ? DeepCopyBody() : *this; }

private:
    static constexpr std::int32_t kMissing = -2147352572;  // &H80020004

    static constexpr std::uint64_t kCopiedTypes =
        TypeBit(ValueType::Array) | TypeBit(ValueType::Record);
    static constexpr std::uint64_t kBodyTypes = TypeBit(ValueType::String) |
                                                TypeBit(ValueType::Object) |
                                                TypeBit(ValueType::Decimal) | kCopiedTypes;
    static constexpr std::uint64_t kNumberTypes =
        TypeBit(ValueType::Byte) | TypeBit(ValueType::Integer) | TypeBit(ValueType::Long) |
        TypeBit(ValueType::Single) | TypeBit(ValueType::Double) | TypeBit(ValueType::Currency) |
        TypeBit(ValueType::Decimal) | TypeBit(ValueType::Boolean) | TypeBit(ValueType::Date);

    union Data {
        std::int64_t Currency = 0;
        std::int32_t Long;
        float Single;
        double Double;
        ReferenceCounted* Body;  // of all that follow but Reference: the base is first in each
        StringBody* Text;
        DecimalBody* Decimal;
        ScriptObject* Object;
        ArrayBody* Array;
        RecordBody* Record;
        Value* Reference;
    };

    static Value Plain(ValueType type, std::int32_t data) noexcept {
        Value result;
        result.m_type = type;
        result.m_data.Long = data;
        return result;
    }
    static Value OfBody(ValueType type, ReferenceCounted* body) noexcept;

    bool IsOneOf(std::uint64_t types) const noexcept {
        return ((types >> static_cast<unsigned>(m_type)) & 1) != 0;
    }
    void Retain() const noexcept {
        if (HoldsBody() && m_data.Body != nullptr) {
            m_data.Body->AddReference();
        }
    }
    /// The old body goes last: it may own whatever the new value was read from.
    void Replace(const Data& data, ValueType type) noexcept {
        const Data oldData = m_data;
        const ValueType oldType = m_type;
        const bool heldBody = HoldsBody();
        m_data = data;
        m_type = type;
        if (heldBody) {
            Drop(oldData.Body, oldType);
        }
    }
    static void Drop(ReferenceCounted* body, ValueType type) noexcept {
        if (body != nullptr && body->DropReference()) {
            Destroy(body, type);
        }
    }
    static void Destroy(ReferenceCounted* body, ValueType type) noexcept;
    Value DeepCopyBody() const;

    Data m_data;
    ValueType m_type = ValueType::Empty;
};

static_assert(sizeof(Value) == 16);

}  // namespace dorvik::basic
