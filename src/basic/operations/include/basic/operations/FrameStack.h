#pragma once

#include "basic/operations/Reference.h"
#include "basic/program/Program.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

namespace dorvik::basic {

/// A procedure that runs.
struct Frame {
    static constexpr std::int32_t kNoHandler = -1;
    static constexpr std::int32_t kResumeNext = -2;

    const basic::Procedure* Procedure = nullptr;
    Value* Base = nullptr;                  // its first slot
    Value* Result = nullptr;                // where the caller wants the value, or null
    const Instruction* ReturnTo = nullptr;  // in the caller
    std::int32_t Handler = kNoHandler;      // where On Error jumps
    bool IsHandling = false;                // an error is being handled
    std::uint32_t ErrorPosition = 0;        // of that error
    std::uint32_t GoSubs = 0;               // active ones that belong to the callers

    bool CanHandle() const { return Handler != kNoHandler && !IsHandling; }
};

/// The slots of a running script and the procedures that are active in them. The frame of a procedure is a
/// range of slots; arguments are built after the caller's frame, where the callee's frame begins, so that a
/// call copies nothing and allocates nothing. No script can exhaust the program's own stack by recursion.
///
/// What keeps references safe: a reference points to a slot of a frame further down (which outlives the
/// call), to a module variable (which lives as long as the program), or into an array or record; then a
/// slot of the caller holds the array, locked, or the record until the call is over.
class FrameStack {
public:
    FrameStack();

    /// How deep calls may be nested. 0: as deep as there is memory for frames.
    void SetMostCalls(std::int32_t calls);

    Value* FirstSlot() const { return m_slots.get(); }
    bool IsEmpty() const { return m_depth == 0; }
    Frame& Top() { return m_frames[m_depth - 1]; }
    const Instruction* Code() { return Top().Procedure->Code.data(); }
    std::uint32_t PositionOf(const Instruction* at) {
        return static_cast<std::uint32_t>(at - Code());
    }
    /// Whether an error of the top procedure would be handled by it or by one of its callers.
    bool HasHandler() const;

    bool HasRoomFor(const Procedure& callee, const Value* base) const {
        return m_depth < m_mostCalls && base + callee.CallSlots <= m_end;
    }
    /// Raises the limit that leaves no room for another call.
    [[noreturn]] void RaiseFull() const;
    /// REQUIRES: room for it; the arguments are in the slots from `base` on.
    void Enter(const Procedure& procedure, Value* base, Value* result, const Instruction* returnTo);
    /// Removes the top frame and releases what its slots held.
    void Leave();

    /// Raises 28 when a procedure has too many GoSubs that do not return.
    void PushGoSub(const Instruction* returnTo);
    bool HasGoSub() { return m_goSubs.size() != Top().GoSubs; }
    /// REQUIRES: `HasGoSub`.
    const Instruction* PopGoSub();

    /// Forgets all frames and GoSubs. REQUIRES: the slots hold nothing any more.
    void Clear();

private:
    struct Free {
        void operator()(Value* slots) const { std::free(slots); }
    };

    std::unique_ptr<Value, Free> m_slots;
    const Value* m_end = nullptr;
    std::vector<Frame> m_frames;
    std::size_t m_mostCalls = 0;
    std::size_t m_depth = 0;
    std::vector<const Instruction*> m_goSubs;  // where each returns to
};

inline void FrameStack::Enter(
    const Procedure& procedure, Value* base, Value* result, const Instruction* returnTo) {
    m_frames[m_depth++] = {
        &procedure,
        base,
        result,
        returnTo,
        Frame::kNoHandler,
        false,
        0,
        static_cast<std::uint32_t>(m_goSubs.size())};
    // No slot from here on holds a heap object, nor do the initial values, so they can be copied as bytes.
    Value* target = base + procedure.ParameterCount;
    for (const Value& value : procedure.Initial) {
        CopyPlain(*target++, value);
    }
}

inline void FrameStack::Leave() {
    const Frame& frame = m_frames[--m_depth];
    for (Value *slot = frame.Base, *end = slot + frame.Procedure->GenericSlots; slot != end;
         ++slot) {
        if (slot->HoldsBody()) {
            *slot = Value();
        }
    }
    if (m_goSubs.size() != frame.GoSubs) {
        m_goSubs.resize(frame.GoSubs);
    }
}

}  // namespace dorvik::basic
