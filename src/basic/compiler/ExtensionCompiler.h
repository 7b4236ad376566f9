#pragma once

#include "AfterCall.h"
#include "LValue.h"
#include "Operand.h"
#include "ProcedurePart.h"

#include <string>
#include <vector>

namespace dorvik::basic {

/// Calls the members of the host's objects.
class ExtensionCompiler : private ProcedurePart {
public:
    explicit ExtensionCompiler(ProcedureContext& context) : ProcedurePart(context) {}

    /// A call that the extension does not know, or with the wrong number of arguments, becomes an error at run time.
    Operand Call(
        const ExtensionEntry& extension,
        const std::string& name,
        const std::vector<Argument>& arguments,
        SourcePlace place,
        bool wantsResult);

private:
    /// An out argument and where its value goes.
    struct OutArgument {
        LValue Target;
        Register Slot = 0;
        Register Reference = 0;  // unless the target is a variable
    };

    bool PassOut(
        const Argument& argument,
        Register slot,
        std::vector<OutArgument>& outs,
        std::vector<AfterCall>& pins);
    void StoreOut(const OutArgument& out);
    Operand RaiseAtRun(std::int32_t number, SourcePlace place, std::string warning);
};

}  // namespace dorvik::basic
