#pragma once

#include "Operand.h"
#include "basic/values/ValueKinds.h"

#include <string>

/// What the declared types of operands allow.
namespace dorvik::basic {

bool IsVariant(const DeclaredType& type);
bool IsObject(const DeclaredType& type);
bool IsRecord(const DeclaredType& type);
/// A String or a fixed one.
bool IsText(const DeclaredType& type);
/// A Byte, Boolean, Integer or Long.
bool IsWhole(const DeclaredType& type);
bool IsDouble(const DeclaredType& type);
bool IsBoolean(const DeclaredType& type);

/// Both are whole numbers, and one is a Long.
bool AreLongs(const Operand& left, const Operand& right);
bool AreIntegers(const Operand& left, const Operand& right);
/// One is a Double, the other can become one without loss.
bool AreDoubles(const Operand& left, const Operand& right);

/// Whether an instruction can hold the number, and its negative too.
bool IsSmall(std::int32_t number);

/// The flags of the instructions on any values: which sides are Variants.
std::uint8_t FactsOf(const Operand& left, const Operand& right);
/// The flags of an instruction that makes a reference to a variable of that type.
std::uint8_t TagOf(const DeclaredType& type);

/// How messages name a type: "Long", "String()".
std::string TypeText(const DeclaredType& type);

}  // namespace dorvik::basic
