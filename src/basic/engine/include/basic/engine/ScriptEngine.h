#pragma once

#include "basic/program/ScriptHost.h"
#include "basic/syntax/CompileError.h"
#include "basic/syntax/ScriptOrigin.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::basic {

class PropertyCache;
class ScriptEngine;
struct EngineParts;

/// One procedure of the loaded module, found by its prototype.
class ScriptHandler {
public:
    /// True when a module is loaded, the engine is ready and the module has a procedure of that name
    /// and signature (the names of parameters are free).
    bool IsReady() const;
    /// Runs it at once, with arguments by value. An untrapped error ends in `OnErrorAlert`; a
    /// call while a script runs is rejected with error 5 reported the same way. False: it did not run to its end.
    bool Call(std::span<const Value> arguments);

private:
    friend class ScriptEngine;
    struct State;
    explicit ScriptHandler(std::shared_ptr<State> state);
    std::shared_ptr<State> m_state;  // shared with the engine, which binds it at each load
};

/// Compiles one module of scripts and runs its procedures. Not to be used from two threads.
/// The order of use: extensions, `SetAcceptsModules`, `CreateHandler`, `LoadModule`, `SetReady`, calls.
class ScriptEngine {
public:
    explicit ScriptEngine(IScriptHost& host);
    ~ScriptEngine();
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;

    /// False if the prefix is not a name with a point after it, is taken, or a module is loaded already.
    /// `answers` is what the extension keeps for the machine, if it does. REQUIRES: both outlive the engine.
    bool AddExtension(
        std::string_view prefix,
        IScriptExtension& extension,
        const PropertyCache* answers = nullptr);
    void SetLimits(const ScriptLimits& limits);
    /// Where the lines of the next module come from; without it errors name lines of the module only.
    void SetOrigins(std::vector<ScriptOrigin> origins);

    bool AcceptsModules() const;
    void SetAcceptsModules(bool accepts);
    ScriptHandler CreateHandler(std::string_view prototype);
    /// Loads and compiles a module, UTF-8 with mark or code page 1252. False: see `LoadErrors`. The module
    /// loaded before is gone either way. `path` is the internal form.
    bool LoadModule(std::string_view path);
    /// The same from text; `file` is what errors show.
    bool LoadText(std::string_view file, std::string_view text);
    bool IsReady() const;
    void SetReady(bool ready);
    bool IsRunning() const;

    /// All errors of the last load, the first of the text first.
    const std::vector<CompileError>& LoadErrors() const;
    /// The first of them as text: "file(line, column): text", with the script's name and its own line when known.
    std::string ErrorText() const;
    /// Those of the last load that got past the reading of the text, also where it had errors.
    const std::vector<CompileWarning>& Warnings() const;
    /// Null where none was given.
    const ScriptOrigin* OriginOfLine(std::int32_t line) const;
    const ScriptOrigin* OriginOfRule(std::int32_t rule) const;
    /// Runs a Sub without arguments by its name. False as for a handler; 35 if there is none.
    bool RunSub(std::string_view name);
    /// The bytecode with the source, for people.
    std::string Disassemble() const;

private:
    struct Parts;
    void Discard(std::string_view file);
    EngineParts& PartsForHandlers();

    std::unique_ptr<Parts> m_parts;
};

}  // namespace dorvik::basic
