#pragma once

#include "basic/library/CollectionObject.h"
#include "basic/library/DictionaryObject.h"
#include "basic/program/Instruction.h"
#include "basic/values/Operators.h"
#include "basic/values/Value.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

/// The fast paths of the loop: what it checks of operands before it leaves them to an operation.
namespace dorvik::basic::modOperands {

inline constexpr std::uint64_t kWholeTypes = TypeBit(ValueType::Integer) | TypeBit(ValueType::Long);

inline bool IsOneOf(const Value& value, std::uint64_t types) {
    return ((types >> static_cast<unsigned>(value.Type())) & 1) != 0;
}

inline bool AreWhole(const Value& left, const Value& right) {
    return IsOneOf(left, kWholeTypes) && IsOneOf(right, kWholeTypes);
}

inline bool AreBooleans(const Value& left, const Value& right) {
    return left.Type() == ValueType::Boolean && right.Type() == ValueType::Boolean;
}

inline constexpr std::uint64_t kRealTypes = kWholeTypes | TypeBit(ValueType::Double);

/// Each is an Integer, a Long or a Double; with one Double, or as a quotient, the result is a Double.
inline bool AreReal(const Value& left, const Value& right) {
    return IsOneOf(left, kRealTypes) && IsOneOf(right, kRealTypes);
}

inline bool HaveDouble(const Value& left, const Value& right) {
    return AreReal(left, right) &&
           (left.Type() == ValueType::Double || right.Type() == ValueType::Double);
}

inline double RealOf(const Value& value) {
    return value.Type() == ValueType::Double ? value.AsDouble() : value.AsLong();
}

template <class Number>
bool Holds(Relation relation, Number left, Number right) {
    switch (relation) {
        case Relation::Equal: return left == right;
        case Relation::NotEqual: return left != right;
        case Relation::Less: return left < right;
        case Relation::Greater: return left > right;
        case Relation::LessOrEqual: return left <= right;
        case Relation::GreaterOrEqual: return left >= right;
    }
    return false;
}

/// Branchless: the relation is unpredictable.
[[gnu::always_inline]] inline bool
HoldsOfWhole(Relation relation, std::int32_t left, std::int32_t right) {
    constexpr unsigned kLess = 1;
    constexpr unsigned kSame = 2;
    constexpr unsigned kGreater = 4;
    static constexpr std::uint8_t kAllowed[] = {
        kSame, kLess | kGreater, kLess, kGreater, kLess | kSame, kGreater | kSame};
    const unsigned order = left < right ? kLess : left == right ? kSame : kGreater;
    return (kAllowed[static_cast<std::size_t>(relation)] & order) != 0;
}

inline bool SameText(const Value& left, const Value& right) {
    if (left.TextBody() == right.TextBody()) {
        return true;
    }
    const std::string_view a = left.AsText();
    const std::string_view b = right.AsText();
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size()) == 0;
}

inline bool FitsInteger(std::int32_t number) {
    return number == static_cast<std::int16_t>(number);
}

/// The result of two whole numbers, if it fits the wider type of both.
[[gnu::always_inline]] inline bool
PutWhole(Value& target, std::int64_t result, const Value& left, const Value& right) {
    const bool isLong = left.Type() == ValueType::Long || right.Type() == ValueType::Long;
    const auto number = static_cast<std::int32_t>(result);
    if (number != result || (!isLong && !FitsInteger(number))) [[unlikely]] {
        return false;
    }
    if (target.HoldsBody()) {
        target = Value();
    }
    if (isLong) {
        target.PutLong(number);
    } else {
        target.PutInteger(static_cast<std::int16_t>(number));
    }
    return true;
}

/// Whatever the slot held.
[[gnu::always_inline]] inline void PutFlag(Value& target, bool flag) {
    if (target.HoldsBody()) {
        target = Value();
    }
    target.PutBoolean(flag);
}

/// REQUIRES: the divisor is not 0.
inline std::int32_t RemainderOf(std::int32_t dividend, std::int32_t divisor) {
    return divisor == -1 ? 0 : dividend % divisor;
}

/// The dictionary that a value holds, or null.
inline DictionaryObject* DictionaryIn(const Value& value) {
    if (value.Type() != ValueType::Object || value.AsObject() == nullptr ||
        value.AsObject()->Class() != ObjectClass::Dictionary) {
        return nullptr;
    }
    return static_cast<DictionaryObject*>(value.AsObject());
}

/// The operators on two whole numbers that have no instruction of their own. False: it is not that simple.
inline bool
OperateOnWhole(BinaryOperator which, Value& target, const Value& left, const Value& right) {
    if (!AreWhole(left, right)) {
        return false;
    }
    const std::int64_t first = left.AsLong();
    const std::int64_t second = right.AsLong();
    if (which == BinaryOperator::Modulo) {
        return second != 0 && PutWhole(target, first % second, left, right);
    }
    if (which == BinaryOperator::IntegerDivide) {
        return second != 0 && PutWhole(target, first / second, left, right);
    }
    if (which == BinaryOperator::And) {
        return PutWhole(target, first & second, left, right);
    }
    if (which == BinaryOperator::Or) {
        return PutWhole(target, first | second, left, right);
    }
    return which == BinaryOperator::Xor && PutWhole(target, first ^ second, left, right);
}

inline bool Quotient(BinaryOperator which, Value& target, const Value& left, const Value& right) {
    if (which != BinaryOperator::Divide || !AreReal(left, right) || RealOf(right) == 0) {
        return false;
    }
    const double quotient = RealOf(left) / RealOf(right);
    if (!std::isfinite(quotient) || target.HoldsBody()) {
        return false;
    }
    target.PutDouble(quotient);
    return true;
}

/// The item of a dictionary or a collection at an index, null where there is none, or if it needs the
/// slow path.
inline const Value* ItemOf(const Value& container, const Value& index) {
    if (container.Type() != ValueType::Object || container.AsObject() == nullptr) {
        return nullptr;
    }
    const ObjectClass which = container.AsObject()->Class();
    if (which == ObjectClass::Dictionary && index.Type() != ValueType::Error) {
        return &static_cast<DictionaryObject*>(container.AsObject())->Item(index);
    }
    if (which != ObjectClass::Collection) {
        return nullptr;
    }
    const auto& collection = static_cast<const CollectionObject&>(*container.AsObject());
    if (IsOneOf(index, kWholeTypes)) {
        return collection.ItemAt(index.AsLong());
    }
    return index.Type() == ValueType::String ? collection.ItemOf(index.AsText()) : nullptr;
}

/// Storing one of these needs the slow path.
inline constexpr std::uint64_t kKeptApart =
    TypeBit(ValueType::Object) | TypeBit(ValueType::Array) | TypeBit(ValueType::Record);

inline Relation RelationOfFlags(const Instruction& in) {
    return static_cast<Relation>(in.Flags >> kOperatorShift);
}

}  // namespace dorvik::basic::modOperands
