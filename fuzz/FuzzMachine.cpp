#include "FuzzHost.h"
#include "basic/ScriptEngine.h"

#include <cstdlib>

using namespace dorvik::basic;

namespace {

/// Counts the alerts: a call that fails tells so once.
class CountingHost : public IScriptHost {
public:
    void OnErrorAlert(const ErrorAlert& alert) override {
        ++Alerts;
        if (alert.Description.empty())
            std::abort();
    }

    int Alerts = 0;
};

void Expect(bool hasFinished, int alerts) {
    if (hasFinished == (alerts != 0) || alerts > 1)
        std::abort();
}

}  // namespace

/// Text that compiles is run under small limits, twice, since the second run finds what the first left.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    CountingHost host;
    FuzzExtension extension;  // outlives the engine: what it keeps does so too
    ScriptEngine engine(host);
    engine.AddExtension("Dorvik.", extension);
    ScriptLimits limits;
    limits.Instructions = 200'000;
    limits.Milliseconds = 200;
    limits.CallDepth = 200;
    limits.MemoryBytes = 16u << 20;
    limits.StringBytes = 1u << 20;
    engine.SetLimits(limits);
    engine.SetAcceptsModules(true);
    ScriptHandler handler = engine.CreateHandler("Public Sub RunScript(ByVal v_lRuleID As Long)");
    if (!engine.LoadText("Fuzz.dvs", text))
        return -1;
    engine.SetReady(true);
    for (int run = 0; run < 2; ++run) {
        host.Alerts = 0;
        const bool hasFinished = engine.RunSub("Main");
        Expect(hasFinished, host.Alerts);
    }
    if (handler.IsReady()) {
        host.Alerts = 0;
        const Value argument = Value::Long(7);
        const bool hasFinished = handler.Call({&argument, 1});
        Expect(hasFinished, host.Alerts);
    }
    return 0;
}
