#include "basic/operations/FrameStack.h"

#include "basic/values/RuntimeErrors.h"

#include <algorithm>
#include <new>
#include <string>

namespace dorvik::basic {

namespace {

constexpr std::size_t kSlots = std::size_t{1} << 20;
/// After the last one: an instruction may name a slot that it does not use.
constexpr std::size_t kSlotsBeyond = std::size_t{1} << 16;
constexpr std::int32_t kMostFrames = 100'000;
constexpr std::size_t kMostGoSubs = 100'000;

}  // namespace

FrameStack::FrameStack() {
    // Zeroed memory is a sequence of Empty values; the system gives pages only as they are used.
    m_slots.reset(static_cast<Value*>(std::calloc(kSlots + kSlotsBeyond, sizeof(Value))));
    if (!m_slots) {
        throw std::bad_alloc();
    }
    m_end = m_slots.get() + kSlots;
    SetMostCalls(0);
}

void FrameStack::SetMostCalls(std::int32_t calls) {
    m_mostCalls = static_cast<std::size_t>(calls > 0 ? std::min(calls, kMostFrames) : kMostFrames);
    m_frames.resize(m_mostCalls);
}

bool FrameStack::HasHandler() const {
    const auto end = m_frames.begin() + static_cast<std::ptrdiff_t>(m_depth);
    return std::any_of(m_frames.begin(), end, [](const Frame& frame) { return frame.CanHandle(); });
}

void FrameStack::RaiseFull() const {
    const bool isForCalls = m_depth >= m_mostCalls;
    RaiseLimit(
        runtimeerror::kOutOfStackSpace,
        "the limit of " + std::to_string(isForCalls ? m_mostCalls : kSlots) +
            (isForCalls ? " procedure calls was reached" : " variables of calls was reached"));
}

void FrameStack::PushGoSub(const Instruction* returnTo) {
    if (m_goSubs.size() - Top().GoSubs >= kMostGoSubs) {
        RaiseLimit(
            runtimeerror::kOutOfStackSpace,
            "the limit of " + std::to_string(kMostGoSubs) + " GoSubs was reached");
    }
    m_goSubs.push_back(returnTo);
}

const Instruction* FrameStack::PopGoSub() {
    const Instruction* const returnTo = m_goSubs.back();
    m_goSubs.pop_back();
    return returnTo;
}

void FrameStack::Clear() {
    m_goSubs.clear();
    m_depth = 0;
}

}  // namespace dorvik::basic
