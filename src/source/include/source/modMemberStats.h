#pragma once

#include <cstdint>
#include <string_view>

namespace dorvik {
class VirtualObject;
class VirtualProject;
}  // namespace dorvik

/// The starting values of the member counts ("VariableCount" and its kin), which are ordinary
/// numeric properties, and the words for a cyclomatic complexity.
namespace dorvik::modMemberStats {

/// Adds the counts of the project's lists and files to its bag.
/// Raises kyErrKeyInUse if a count is there already, as the other two do.
void InitialiseProjectMemberStats(VirtualProject& project);
/// Adds the nineteen counts of a source file, all 0.
void InitialiseFileMemberStats(VirtualObject& object);
/// Adds "ConstCount" and "VariableCount", both 0.
void InitialiseProcedureMemberStats(VirtualObject& object);

/// "N/A" for 0, "Simple" from 1, "Moderately easy" from 11, "Complex" from 21, "Extremely
/// difficult" from 51; empty below 0. The other two go by the same bands.
std::string_view CyclomaticComplexityToUnderstandText(std::int32_t value);
std::string_view CyclomaticComplexityToTestText(std::int32_t value);
std::string_view CyclomaticComplexityToChangeText(std::int32_t value);

}  // namespace dorvik::modMemberStats
