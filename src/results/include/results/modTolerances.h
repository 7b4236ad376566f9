#pragma once

#include <array>
#include <string_view>

namespace dorvik {
class ReviewCriteria;
class VirtualObject;
}  // namespace dorvik

/// The measures that decide the verdict.
namespace dorvik::modTolerances {

/// One measure. `Name` is the property and the column of the actual figure; `Name` followed by "Limit" and by
/// "Pass" are those of the limit and of the result.
struct Measure {
    std::string_view Name;
    std::string_view Description;
};

/// All measures in their order: six counts and six impacts (severity 1 to 5, then the total), the
/// percentage of comments and the complexity.
inline constexpr std::array<Measure, 14> kMeasures = {{
    {"CVC", "Critical Violation Count"},
    {"HVC", "High Violation Count"},
    {"MVC", "Medium Violation Count"},
    {"LVC", "Low Violation Count"},
    {"IVC", "Information Violation Count"},
    {"TVC", "Total Violation Count"},
    {"CVI", "Critical Violation Impact"},
    {"HVI", "High Violation Impact"},
    {"MVI", "Medium Violation Impact"},
    {"LVI", "Low Violation Impact"},
    {"IVI", "Information Violation Impact"},
    {"TVI", "Total Violation Impact"},
    {"PC", "Percentage Comments"},
    {"CC", "Cyclomatic Complexity"},
}};

/// Measures a finished source file (or, with `isProjectFile`, the project file) against the tolerances that
/// are set and adds three properties for each measure to the object. A failure is logged and ends the work;
/// false then.
bool SetTolerancePassValue(
    VirtualObject& object, const ReviewCriteria& criteria, bool isProjectFile);

}  // namespace dorvik::modTolerances
