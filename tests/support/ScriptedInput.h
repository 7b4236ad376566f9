#pragma once

#include "platform/host/IHostInput.h"
#include "platform/host/ScopedInstall.h"

#include <functional>

namespace dorvik::test {

/// Input that a test makes up, as long as this lives. Counts how often the program gave way to it.
class ScriptedInput final : public IHostInput {
public:
    ScriptedInput() : m_installed(*this) {}

    bool InputIsWaiting() override {
        ++Yields;
        return OnYield != nullptr;
    }
    void ProcessInput() override {
        // The action may put another one in its place.
        const std::function<void()> action = OnYield;
        action();
    }

    int Yields = 0;
    std::function<void()> OnYield;  // what is waiting each time; nothing while empty

private:
    ScopedInstall<IHostInput> m_installed;
};

}  // namespace dorvik::test
