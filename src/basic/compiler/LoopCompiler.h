#pragma once

#include "Operand.h"
#include "ProcedurePart.h"

#include <string>

namespace dorvik::basic {

/// For, For Each, Do and While.
class LoopCompiler : private ProcedurePart {
public:
    explicit LoopCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    void Compile(const ForStatement& node, SourcePlace place);
    void Compile(const ForEachStatement& node, SourcePlace place);
    void Compile(const LoopStatement& node, SourcePlace place);

private:
    bool IsControlVariable(const std::string& lower) const;
    bool FindControlVariable(const Expression& expression, Variable& variable, std::string& lower);
    void CompileTypedFor(
        const ForStatement& node, const Variable& variable, std::int16_t step, SourcePlace place);
    void CompileAnyFor(const ForStatement& node, const Variable& variable, SourcePlace place);
    void JumpBack(Label top) { m_code.EmitJump(Opcode::JumpCounted, top); }
};

}  // namespace dorvik::basic
