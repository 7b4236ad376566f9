#pragma once

#include "ModuleScope.h"

namespace dorvik::basic {

/// Warns of what loads and cannot work: names that nothing declares, that a procedure reads and never sets
/// (a misspelt one is Empty without a word), and objects that `CreateObject` does not know.
void WarnOfUnsetNames(ModuleScope& scope);

}  // namespace dorvik::basic
