#include "basic/values/LongWork.h"

#include "basic/values/ScriptContext.h"

namespace dorvik::basic {

namespace {

constinit thread_local std::size_t t_steps = 0;

}  // namespace

void CountLongWork(std::size_t steps) {
    t_steps += steps;
    if (t_steps < kWorkBetweenBreaths) {
        return;
    }
    std::size_t breaths = t_steps / kWorkBetweenBreaths;
    t_steps = 0;
    ScriptContext* const context = ScriptContext::Running();
    for (; context != nullptr && breaths > 0; --breaths) {
        context->Breathe();
    }
}

}  // namespace dorvik::basic
