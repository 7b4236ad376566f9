#pragma once

#include "basic/program/BuiltinFunction.h"

#include <span>

/// The rows of the built-in functions, group by group. Only the registry reads them.
namespace dorvik::basic::modBuiltinTables {

std::span<const BuiltinFunction> StringFunctions();
std::span<const BuiltinFunction> ByteFunctions();
std::span<const BuiltinFunction> SearchFunctions();
std::span<const BuiltinFunction> ArrayTextFunctions();
std::span<const BuiltinFunction> ConversionFunctions();
std::span<const BuiltinFunction> MathFunctions();
std::span<const BuiltinFunction> RandomNumbers();
std::span<const BuiltinFunction> DateFunctions();
std::span<const BuiltinFunction> DateIntervals();
std::span<const BuiltinFunction> FormatFunctions();
std::span<const BuiltinFunction> InformationFunctions();
std::span<const BuiltinFunction> ChoiceFunctions();
std::span<const BuiltinFunction> RefusedFunctions();

}  // namespace dorvik::basic::modBuiltinTables
