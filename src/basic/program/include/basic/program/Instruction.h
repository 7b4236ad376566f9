#pragma once

#include <cstdint>
#include <string_view>

namespace dorvik::basic {

/// What an instruction does; `Opcodes.def` says it for each.
enum class Opcode : std::uint8_t {
#define OPCODE(name, operands) name,
#define OPERATION(name, operands) name,
#include "basic/program/Opcodes.def"
#undef OPERATION
#undef OPCODE
};

/// One instruction, 64 bits. Operands name slots of the running procedure's frame or are numbers.
struct Instruction {
    Opcode Code = Opcode::Jump;
    std::uint8_t Flags = 0;
    std::uint16_t A = 0;
    std::uint16_t B = 0;
    std::uint16_t C = 0;

    /// B and C as one number: a jump target, an index, a whole number.
    std::int32_t Wide() const {
        return static_cast<std::int32_t>(
            static_cast<std::uint32_t>(B) | static_cast<std::uint32_t>(C) << 16);
    }
    void SetWide(std::int32_t value) {
        B = static_cast<std::uint16_t>(static_cast<std::uint32_t>(value));
        C = static_cast<std::uint16_t>(static_cast<std::uint32_t>(value) >> 16);
    }
    /// B and the flags as one number: a procedure.
    std::uint32_t Target() const { return B | static_cast<std::uint32_t>(Flags) << 16; }
    std::int16_t SmallB() const { return static_cast<std::int16_t>(B); }
    std::int16_t SmallC() const { return static_cast<std::int16_t>(C); }
};
static_assert(sizeof(Instruction) == 8);

/// The relations of the comparing instructions, in the order of `BinaryOperator`.
enum class Relation : std::uint8_t { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual };

/// Flags of the instructions on any values: bits 0 and 1 are the facts, the operator or relation
/// is above them.
inline constexpr std::uint8_t kLeftIsVariant = 1;
inline constexpr std::uint8_t kRightIsVariant = 2;
inline constexpr int kOperatorShift = 2;

/// A flag of Move: only the tests of one `Select Case` read the target, and nothing else reads the source.
inline constexpr std::uint8_t kSelectSubject = 1;

/// The flags of CallBuiltin when there are more arguments than they can count: a Jump word follows, which is never
/// executed and has their number.
inline constexpr std::uint8_t kCountInNextWord = 255;

/// In the low bits of a reference: what the variable that a ByRef Variant parameter refers to is.
enum class ReferenceTag : std::uint8_t { Variant = 0, Typed = 1, FixedString = 2 };

/// "No slot": the result of a call that is dropped.
inline constexpr std::uint16_t kNoSlot = 0xFFFF;

struct OpcodeRow {
    std::string_view Name;
    std::string_view Operands;  // a letter for each of A, B, C, as `Opcodes.def` explains
};
const OpcodeRow& RowOf(Opcode code);

}  // namespace dorvik::basic
