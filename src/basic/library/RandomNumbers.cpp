#include "Arguments.h"
#include "BuiltinTables.h"
#include "basic/values/Coercion.h"
#include "basic/values/ScriptContext.h"

#include <bit>

namespace dorvik::basic {

namespace {

constexpr std::uint32_t kStateMask = 0xFFFFFF;

std::uint32_t NextState(std::uint32_t state) {
    return (state * 1140671485U + 12820163U) & kStateMask;
}

/// A negative number begins a sequence of its own.
std::uint32_t StateFrom(float number) {
    const auto bits = std::bit_cast<std::uint32_t>(number);
    return (bits + (bits >> 24U)) & kStateMask;
}

Value Rnd(ScriptContext& context, Arguments arguments) {
    const float number =
        IsGiven(arguments, 0) ? CoerceTo(arguments[0], DeclaredKind::Single).AsSingle() : 1.0F;
    std::uint32_t& state = context.RandomState();
    if (number < 0) {
        state = NextState(StateFrom(number));
    } else if (number > 0) {
        state = NextState(state);
    }
    return Value::Single(static_cast<float>(state) / static_cast<float>(kStateMask + 1));
}

/// Without a number the sequence continues as it is, so that a script gives the same answer twice.
Value Randomize(ScriptContext& context, Arguments arguments) {
    if (IsGiven(arguments, 0)) {
        const auto bits = std::bit_cast<std::uint64_t>(ToDouble(arguments[0]));
        const auto high = static_cast<std::uint32_t>(bits >> 32U);
        const std::uint32_t seed = (high ^ (high >> 16U)) & 0xFFFFU;
        std::uint32_t& state = context.RandomState();
        state = (state & 0xFFU) | (seed << 8U);
    }
    return Value();
}

constexpr BuiltinFunction kRows[] = {
    {"Randomize", "?Number", DeclaredKind::Variant, Randomize},
    {"Rnd", "?Number", DeclaredKind::Single, Rnd},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::RandomNumbers() {
    return kRows;
}

}  // namespace dorvik::basic
