#pragma once

#include "basic/values/Value.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace dorvik::basic {

/// An untrapped run-time error of a script.
struct ErrorAlert {
    std::string File;       // as passed to the loading
    std::string Source;     // Err.Source: the module's name, or the object's
    std::int32_t Line = 0;  // from 1, in the module
    std::int32_t Number = 0;
    std::string Description;
    /// The script was stopped because it used up its instructions, its time, its call depth or its
    /// memory, whether or not it could have trapped that.
    bool IsLimit = false;
};

/// Receives the engine's events. All have a default, so a host implements those it needs.
class IScriptHost {
public:
    virtual ~IScriptHost() = default;
    virtual void OnErrorAlert(const ErrorAlert&) {}
    /// Raised every few thousand instructions while a script runs. False stops the script with error 18,
    /// which it cannot trap.
    virtual bool OnDoEvents() { return true; }
    virtual void OnDebugPrint(std::string_view) {}  // one line, without its end
    /// A refused statement would have shown this text (MsgBox).
    virtual void OnRefusedText(std::string_view) {}
};

/// One callback of an extension object.
struct ExtensionMember {
    std::string_view Name;
    std::int32_t Parameters = 0;
    /// Bit n: parameter n is an out argument, a ByRef Variant. With exactly one, the callback can
    /// also be used as a function without that argument.
    std::uint32_t OutParameters = 0;
};

/// An object of the host that scripts reach under a prefix: `Dorvik.RaiseViolation`.
class IScriptExtension {
public:
    virtual ~IScriptExtension() = default;
    virtual std::span<const ExtensionMember> Members() const = 0;
    /// `arguments` holds all parameters. An out argument has the present value of what was passed
    /// and is written in place. May raise a BasicError, which the script can trap.
    virtual void Call(std::size_t member, std::span<Value> arguments) = 0;
};

/// The limits of a script's resources. Zero: no limit.
struct ScriptLimits {
    std::int64_t Instructions = 50'000'000;  // per call from the host
    std::int32_t Milliseconds = 5'000;       // per call from the host
    std::int32_t CallDepth = 2'000;          // procedures within one call
    std::size_t MemoryBytes = 256u << 20;    // all strings, arrays and collections
    std::size_t StringBytes = 64u << 20;     // one string
};

}  // namespace dorvik::basic
