#pragma once

#include "base/BasicError.h"
#include "basic/values/ScriptContext.h"
#include "basic/values/ScriptObject.h"

#include <string>

namespace dorvik::basic {

/// An error of `Err.Raise`, with all of its arguments.
class RaisedError final : public BasicError {
public:
    using BasicError::BasicError;
    std::string HelpFile;
    std::int32_t HelpContext = 0;
};

/// `Err`: the state of the last error of the machine that runs. Where none runs, its members raise 91.
class ErrObject final : public ScriptObject {
public:
    ErrObject() : ScriptObject(ObjectClass::Err) {}

    std::string_view ClassName() const override { return "ErrObject"; }
    int FindMember(std::string_view name) const override;
    int FindParameter(int member, std::string_view name) const override;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;

    /// Whether the member raises an error, which the machine does itself.
    static bool IsRaise(int member);
    /// The error that the arguments of `Raise` describe. Raises what is wrong with the arguments.
    static ErrorState ErrorToRaise(InvokeKind kind, std::span<const Value> arguments);
};

}  // namespace dorvik::basic
