#pragma once

#include "basic/operations/MachineState.h"

namespace dorvik::basic {

/// The initial value of a variable. Counts the work of making a big one.
Value InitialOf(MachineState& state, const VariableShape& shape);
/// The initial value of an element of an array.
Value InitialElement(MachineState& state, const DeclaredType& type);

/// Assigns to what a reference refers to, whose type only the reference knows.
void StoreThrough(const Value& reference, const Value& value);

/// Copies the members of one record into those of another of the same type.
void CopyRecord(RecordBody& target, const RecordBody& source);

}  // namespace dorvik::basic
