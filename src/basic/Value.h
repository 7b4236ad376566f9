#pragma once

#include "basic/ReferenceCounted.h"
#include "basic/ValueType.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik::basic {

class ScriptObject;
class StringBody;
class ArrayBody;
class RecordBody;
class DecimalBody;

/// One value of a script, 16 bytes: a type and either the value itself or a counted body.
/// Copying shares a string, an object or a decimal, which never change in place as far as others can
/// see; an array or a record is copied whole by `DeepCopy` only, and whoever stores one says so.
/// The `As...` readers below do not convert: REQUIRES the matching type. Conversions are in `Coercion.h`.
class Value {
public:
    Value() noexcept = default;
    Value(const Value& other) noexcept;
    Value(Value&& other) noexcept;
    Value& operator=(const Value& other) noexcept;
    Value& operator=(Value&& other) noexcept;
    ~Value();

    static Value Null() noexcept;
    static Value Boolean(bool value) noexcept;
    static Value Byte(std::uint8_t value) noexcept;
    static Value Integer(std::int16_t value) noexcept;
    static Value Long(std::int32_t value) noexcept;
    static Value Single(float value) noexcept;
    static Value Double(double value) noexcept;
    static Value Currency(std::int64_t tenThousandths) noexcept;
    static Value Date(double days) noexcept;
    static Value Text(std::string_view text);
    static Value Text(std::string&& text);
    static Value Text(Ref<StringBody> body) noexcept;  // null is ""
    static Value Decimal(Ref<DecimalBody> body) noexcept;
    static Value Object(Ref<ScriptObject> object) noexcept;  // null is Nothing
    static Value Array(Ref<ArrayBody> body) noexcept;
    static Value Record(Ref<RecordBody> body) noexcept;
    static Value Error(std::int32_t number) noexcept;
    /// An optional Variant argument that was left out.
    static Value Missing() noexcept;
    /// Stands for the variable `target` in the frame of a procedure that takes it ByRef. The caller of
    /// the procedure keeps `target` alive.
    static Value Reference(Value* target) noexcept;

    ValueType Type() const noexcept { return m_type; }
    bool IsMissing() const noexcept;
    /// True for the six number types, Boolean and Date.
    bool IsNumber() const noexcept;

    bool AsBoolean() const noexcept { return m_data.Long != 0; }
    std::uint8_t AsByte() const noexcept { return static_cast<std::uint8_t>(m_data.Long); }
    std::int16_t AsInteger() const noexcept { return static_cast<std::int16_t>(m_data.Long); }
    /// Byte, Integer, Long, Boolean (0 or -1) and the number of an Error all answer here.
    std::int32_t AsLong() const noexcept { return m_data.Long; }
    float AsSingle() const noexcept { return m_data.Single; }
    double AsDouble() const noexcept { return m_data.Double; }  // Double and Date
    std::int64_t AsCurrency() const noexcept { return m_data.Currency; }
    std::string_view AsText() const noexcept;  // "" for a null body; lives as long as the value
    StringBody* TextBody() const noexcept { return m_data.Text; }
    DecimalBody* AsDecimal() const noexcept { return m_data.Decimal; }
    ScriptObject* AsObject() const noexcept { return m_data.Object; }
    ArrayBody* AsArray() const noexcept { return m_data.Array; }
    RecordBody* AsRecord() const noexcept { return m_data.Record; }
    Value* AsReference() const noexcept { return m_data.Reference; }

    /// Writers for the machine's fast paths. REQUIRES: the value holds no body.
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

    /// Arrays and records copied whole, element by element; anything else as it is.
    Value DeepCopy() const;

private:
    bool HoldsBody() const noexcept;
    void Retain() const noexcept;
    void Release() noexcept;

    union Data {
        std::int64_t Currency = 0;
        std::int32_t Long;
        float Single;
        double Double;
        StringBody* Text;
        DecimalBody* Decimal;
        ScriptObject* Object;
        ArrayBody* Array;
        RecordBody* Record;
        Value* Reference;
    };

    Data m_data;
    ValueType m_type = ValueType::Empty;
};

static_assert(sizeof(Value) == 16);

}  // namespace dorvik::basic
