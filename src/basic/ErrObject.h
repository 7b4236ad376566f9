#pragma once

#include "basic/ScriptObject.h"

namespace dorvik::basic {

struct ErrorState;

/// `Err`: the state of the last error of the machine that runs. Where none runs, its members raise 91.
class ErrObject final : public ScriptObject {
public:
    ObjectClass Class() const override { return ObjectClass::Err; }
    std::string_view ClassName() const override { return "ErrObject"; }
    int FindMember(std::string_view name) const override;
    int FindParameter(int member, std::string_view name) const override;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;

private:
    [[noreturn]] static void RaiseGiven(ErrorState& state, std::span<const Value> arguments);
};

}  // namespace dorvik::basic
