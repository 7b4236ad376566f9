#include "FuzzHost.h"
#include "basic/ScriptEngine.h"

#include <cstdlib>

using namespace dorvik::basic;

/// Any bytes are loaded as a module: it loads and can be shown, or its errors tell why not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    IScriptHost host;
    FuzzExtension extension;
    ScriptEngine engine(host);
    engine.AddExtension("Dorvik.", extension);
    engine.SetAcceptsModules(true);
    ScriptHandler handler = engine.CreateHandler("Public Sub RunScript(ByVal v_lRuleID As Long)");
    const bool loads = engine.LoadText("Fuzz.dvs", text);
    if (loads != engine.LoadErrors().empty())
        std::abort();
    if (loads && engine.Disassemble().empty() && !text.empty() && !engine.Warnings().empty())
        std::abort();
    for (const CompileError& error : engine.LoadErrors())
        if (error.Text.empty() || error.Number == 0)
            std::abort();
    if (!loads && engine.ErrorText().empty())
        std::abort();
    return 0;
}
