#pragma once

#include "ModuleScope.h"

namespace dorvik::basic {

/// Writes the code of one procedure of the module, whose head is declared already. Errors and warnings go to the
/// messages of the scope; with an error the code is of no use.
void CompileProcedure(ModuleScope& scope, std::size_t index);

}  // namespace dorvik::basic
