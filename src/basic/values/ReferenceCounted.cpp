#include "basic/values/ReferenceCounted.h"

#include <vector>

namespace dorvik::basic {

namespace {

/// Bodies destroyed within each other before the rest has to wait.
constexpr int kDeepestDestruction = 64;

thread_local int t_depth = 0;
thread_local std::vector<const ReferenceCounted*>* t_waiting = nullptr;

void DestroyNested(const ReferenceCounted* body) noexcept {
    ++t_depth;
    delete body;
    --t_depth;
}

void DestroyWithAllThatWaits(const ReferenceCounted* body) noexcept {
    std::vector<const ReferenceCounted*> waiting;
    t_waiting = &waiting;
    DestroyNested(body);
    while (!waiting.empty()) {
        const ReferenceCounted* next = waiting.back();
        waiting.pop_back();
        DestroyNested(next);
    }
    t_waiting = nullptr;
}

}  // namespace

void ReferenceCounted::Destroy(const ReferenceCounted* body) noexcept {
    if (t_depth == 0) {
        DestroyWithAllThatWaits(body);
    } else if (t_depth < kDeepestDestruction) {
        DestroyNested(body);
    } else {
        t_waiting->push_back(body);
    }
}

}  // namespace dorvik::basic
