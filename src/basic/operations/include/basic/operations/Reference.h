#pragma once

#include "basic/program/Instruction.h"
#include "basic/values/Value.h"

#include <cstdint>
#include <cstring>

namespace dorvik::basic {

// A reference is the address of a slot; its lowest bits are a `ReferenceTag`.

inline constexpr std::uintptr_t kReferenceTagBits = 3;

inline Value* TargetOf(const Value& reference) {
    return reinterpret_cast<Value*>(
        reinterpret_cast<std::uintptr_t>(reference.AsReference()) & ~kReferenceTagBits);
}

inline ReferenceTag TagOf(const Value& reference) {
    return static_cast<ReferenceTag>(
        reinterpret_cast<std::uintptr_t>(reference.AsReference()) & kReferenceTagBits);
}

inline Value TaggedReference(Value* target, ReferenceTag tag) {
    const auto bits = reinterpret_cast<std::uintptr_t>(target) | static_cast<std::uintptr_t>(tag);
    return Value::Reference(reinterpret_cast<Value*>(bits));
}

/// Copies a value without a heap object into a slot that holds none either, type and all.
inline void CopyPlain(Value& target, const Value& source) {
    std::memcpy(static_cast<void*>(&target), &source, sizeof(Value));
}

}  // namespace dorvik::basic
