#pragma once

#include "basic/values/Value.h"

#include <cstdint>

namespace dorvik::basic {

/// The types that `Value::AsLong` answers for as whole numbers.
inline constexpr std::uint64_t kWholeTypes = TypeBit(ValueType::Byte) |
                                             TypeBit(ValueType::Boolean) |
                                             TypeBit(ValueType::Integer) | TypeBit(ValueType::Long);

inline bool IsOneOf(const Value& value, std::uint64_t types) {
    return (TypeBit(value.Type()) & types) != 0;
}

/// One operand as an operator sees it: a reference is its variable, an object its default member.
/// REQUIRES: the value outlives this.
class OperandView {
public:
    /// Raises 91, 438, 450 for an object without a value, 13 for an array or a record.
    explicit OperandView(const Value& value);
    OperandView(const OperandView&) = delete;
    OperandView& operator=(const OperandView&) = delete;

    const Value& operator*() const { return *m_value; }
    const Value* operator->() const { return m_value; }
    ValueType Type() const { return m_value->Type(); }
    bool IsNull() const { return Type() == ValueType::Null; }
    /// The value came out of an object, so no one declared its type.
    bool IsOfObject() const { return m_isOfObject; }
    /// Raises 13 for an Error, which no operator but a comparison takes.
    void RefuseError() const;

private:
    Value m_default;
    const Value* m_value;
    bool m_isOfObject;
};

}  // namespace dorvik::basic
