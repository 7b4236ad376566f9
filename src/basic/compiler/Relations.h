#pragma once

#include "basic/program/Instruction.h"
#include "basic/values/Operators.h"

namespace dorvik::basic {

bool IsRelation(BinaryOperator which);
/// REQUIRES: the operator is a relation.
Relation RelationOf(BinaryOperator which);
/// The relation that holds of (b, a) when this one holds of (a, b).
Relation Swapped(Relation relation);
/// The relation that holds when this one does not.
Relation Inverted(Relation relation);

}  // namespace dorvik::basic
