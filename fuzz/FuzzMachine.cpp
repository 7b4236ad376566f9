#include "FuzzHost.h"
#include "basic/engine/ScriptEngine.h"
#include "basic/values/MemoryMeter.h"

#include <cstdlib>
#include <optional>

using namespace dorvik::basic;

namespace {

/// Counts the alerts: a call that fails tells so once.
class CountingHost : public IScriptHost {
public:
    void OnErrorAlert(const ErrorAlert& alert) override {
        ++Alerts;
        if (alert.Description.empty()) {
            std::abort();
        }
    }

    int Alerts = 0;
};

/// One engine serves all inputs, as it does all loads of a host: making one takes longer than most scripts.
struct Workbench {
    Workbench() {
        Engine.AddExtension("Dorvik.", Extension);
        ScriptLimits limits;
        limits.Instructions = 200'000;
        limits.Milliseconds = 200;
        limits.CallDepth = 200;
        limits.MemoryBytes = 16u << 20;
        limits.StringBytes = 1u << 20;
        Engine.SetLimits(limits);
        Engine.SetAcceptsModules(true);
        Engine.SetReady(true);
        Handler = Engine.CreateHandler("Public Sub RunScript(ByVal v_lRuleID As Long)");
    }

    CountingHost Host;
    FuzzExtension Extension;
    ScriptEngine Engine{Host};
    std::optional<ScriptHandler> Handler;
};

void Expect(bool hasFinished, int alerts) {
    if (hasFinished == (alerts != 0) || alerts > 1) {
        std::abort();
    }
}

void RunAll(Workbench& bench) {
    for (int run = 0; run < 2; ++run) {
        bench.Host.Alerts = 0;
        const bool hasFinished = bench.Engine.RunSub("Main");
        Expect(hasFinished, bench.Host.Alerts);
    }
    if (bench.Handler->IsReady()) {
        bench.Host.Alerts = 0;
        const Value argument = Value::Long(7);
        const bool hasFinished = bench.Handler->Call({&argument, 1});
        Expect(hasFinished, bench.Host.Alerts);
    }
}

/// What a script made is gone with its module, but for some strings that are made once.
void ExpectNothingLeft(Workbench& bench) {
    constexpr std::size_t kMostMadeOnce = 64u << 10;
    bench.Extension.Forget();
    bench.Engine.LoadText("Empty.dvs", "");
    if (MemoryMeter::Current().Used() > kMostMadeOnce) {
        std::abort();
    }
}

}  // namespace

/// Text that compiles is run under small limits, twice, since the second run finds what the first left.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Workbench bench;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (!bench.Engine.LoadText("Fuzz.dvs", text)) {
        return -1;
    }
    RunAll(bench);
    ExpectNothingLeft(bench);
    return 0;
}
