#include "basic/program/Program.h"

#include "base/modTextCase.h"

#include <algorithm>

namespace dorvik::basic {

const OpcodeRow& RowOf(Opcode code) {
    static constexpr OpcodeRow kRows[] = {
#define OPCODE(name, operands) {#name, operands},
#define OPERATION(name, operands) {#name, operands},
#include "basic/program/Opcodes.def"
#undef OPERATION
#undef OPCODE
    };
    return kRows[static_cast<std::size_t>(code)];
}

const StatementMark& Procedure::MarkOf(std::uint32_t position) const {
    const auto next = std::upper_bound(
        Marks.begin(), Marks.end(), position, [](std::uint32_t value, const StatementMark& mark) {
            return value < mark.Start;
        });
    return next == Marks.begin() ? *next : *(next - 1);
}

int Program::FindProcedure(std::string_view name, ProcedureKind kind) const {
    for (std::size_t i = 0; i < Procedures.size(); ++i) {
        if (Procedures[i].Kind == kind && modTextCase::Equal(Procedures[i].Name, name)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

}  // namespace dorvik::basic
