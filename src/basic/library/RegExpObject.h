#pragma once

#include "basic/library/ContainerMemory.h"
#include "basic/values/ScriptObject.h"
#include "platform/regex/RegularExpression.h"

namespace dorvik::basic {

/// `VBScript.RegExp`: a pattern and the ways to use it. A bad pattern shows when it is used.
class RegExpObject final : public ScriptObject {
public:
    RegExpObject();

    std::string_view ClassName() const override { return "RegExp"; }
    int FindMember(std::string_view name) const override;
    bool HasDefaultMember() const override { return false; }
    int FindParameter(int member, std::string_view name) const override;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;

private:
    void SetPattern(std::string_view pattern);
    Value Execute(std::span<const Value> arguments);
    Value Replace(std::span<const Value> arguments);
    /// Polls the host now and then while the expression works.
    void BreatheSometimes();

    std::size_t m_steps = 0;
    RegularExpression m_expression;
    ContainerMemory m_memory;
};

}  // namespace dorvik::basic
