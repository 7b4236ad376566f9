#pragma once

#include "basic/compiler/Compiler.h"
#include "basic/engine/ScriptEngine.h"
#include "basic/machine/Machine.h"

#include <memory>
#include <string>
#include <vector>

namespace dorvik::basic {

struct HandlerState;

/// What an engine consists of; its handlers reach it too, as long as it lives.
struct EngineParts {
    explicit EngineParts(IScriptHost& host) : Host(host), Runner(host) {}

    /// Runs a procedure of the loaded module and reports an error to the host.
    bool Run(std::size_t procedure, std::span<const Value> arguments);
    void Alert(ErrorAlert alert);
    void BindHandlers();

    IScriptHost& Host;
    std::vector<ExtensionEntry> Extensions;
    std::vector<ScriptOrigin> Origins;
    bool AcceptsModules = false;
    bool IsReady = false;
    std::string File;
    std::unique_ptr<Program> Module;  // before the machine: it goes last
    Machine Runner;
    std::vector<CompileError> Errors;
    std::vector<CompileWarning> Warnings;
    std::vector<std::weak_ptr<HandlerState>> Handlers;
};

/// What a handler knows of its procedure. The engine binds it anew at each load.
struct HandlerState {
    EngineParts* Engine = nullptr;  // null once the engine is gone
    std::unique_ptr<Procedure>
        Wanted;      // the head that the prototype describes; null if it makes no sense
    int Index = -1;  // of the procedure in the module, -1 without one
};

/// The head of a procedure as its prototype describes it; null if the text is none.
std::unique_ptr<Procedure> ReadPrototype(std::string_view prototype);
/// Whether a procedure has the name and the signature of another; names of parameters are free.
bool HasSignature(const Procedure& procedure, const Procedure& wanted);

}  // namespace dorvik::basic
