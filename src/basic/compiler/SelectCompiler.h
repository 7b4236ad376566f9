#pragma once

#include "Operand.h"
#include "ProcedurePart.h"

#include <utility>
#include <vector>

namespace dorvik::basic {

/// Select Case: a table of whole numbers, or tests one after the other.
class SelectCompiler : private ProcedurePart {
public:
    explicit SelectCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    void Compile(const SelectStatement& node, SourcePlace place);

private:
    bool TrySwitch(
        const SelectStatement& node,
        const Operand& subject,
        const std::vector<Label>& bodies,
        Label otherwise);
    bool CollectKeys(
        const SelectStatement& node,
        std::vector<std::pair<std::int32_t, Label>>& keys,
        const std::vector<Label>& bodies);
    void CompileTest(const CaseTest& test, const Operand& subject, Label body);
};

}  // namespace dorvik::basic
