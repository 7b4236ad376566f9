#include "FuzzHost.h"
#include "basic/engine/ScriptEngine.h"

#include <cstdlib>
#include <optional>

using namespace dorvik::basic;

namespace {

/// One engine serves all inputs: making one takes longer than most loads.
struct Workbench {
    Workbench() {
        Engine.AddExtension("Dorvik.", Extension);
        Engine.SetAcceptsModules(true);
        Handler = Engine.CreateHandler("Public Sub RunScript(ByVal v_lRuleID As Long)");
    }

    IScriptHost Host;
    FuzzExtension Extension;
    ScriptEngine Engine{Host};
    std::optional<ScriptHandler> Handler;
};

}  // namespace

/// Any bytes are loaded as a module: it loads and can be shown, or its errors tell why not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    static Workbench bench;
    ScriptEngine& engine = bench.Engine;
    const bool loads = engine.LoadText("Fuzz.dvs", text);
    if (loads != engine.LoadErrors().empty()) {
        std::abort();
    }
    if (loads && engine.Disassemble().empty() && !text.empty() && !engine.Warnings().empty()) {
        std::abort();
    }
    for (const CompileError& error : engine.LoadErrors()) {
        if (error.Text.empty() || error.Number == 0) {
            std::abort();
        }
    }
    if (!loads && engine.ErrorText().empty()) {
        std::abort();
    }
    return 0;
}
