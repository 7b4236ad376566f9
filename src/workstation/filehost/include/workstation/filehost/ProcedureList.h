#pragma once

#include "workstation/host/ProcedureKind.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// A procedure of a code module. Lines from 1.
struct CodeProcedure {
    std::string Name;  // without the character of its type
    ProcedureKind Kind = ProcedureKind::SubOrFunction;
    std::int32_t StartLine = 0;  // with the comments and blank lines in front of it
    std::int32_t DefinitionLine = 0;
    std::int32_t EndLine = 0;  // the last one of its end; the module's last where that is missing

    std::int32_t CountLines() const { return EndLine - StartLine + 1; }
};

/// The procedures of a code module, found by the same look at the front of each statement as in a review, so that both
/// agree where a procedure is.
class ProcedureList {
public:
    ProcedureList() = default;
    explicit ProcedureList(const std::vector<std::string>& lines);

    const std::vector<CodeProcedure>& Procedures() const { return m_procedures; }
    /// Up to the last line in front of the first procedure that is neither blank nor a comment; without a procedure all.
    std::int32_t CountOfDeclarationLines() const { return m_declarationLines; }
    /// The first with that name, without regard to case; null where there is none.
    const CodeProcedure* Find(std::string_view name, ProcedureKind kind) const;
    /// Null in the declarations and after the last procedure.
    const CodeProcedure* AtLine(std::int32_t line) const;

private:
    class Builder;

    std::vector<CodeProcedure> m_procedures;
    std::int32_t m_declarationLines = 0;
};

}  // namespace dorvik
