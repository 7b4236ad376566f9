#pragma once

#include "foundation/text/OutputPlace.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// What a report page is about.
enum class ReportKind : std::int32_t {
    BatchSummary = 1,
    Project = 2,
    SourceFile = 3,
};

/// Where reports lie. All paths use the backslash.
namespace modDorvikUtils {

/// The place of a report. `folder` empty means the sub-folder "Dorvik\" beside the project file.
/// `sourceFile` (empty for none) gives the first part of the name, `name` (only for the report of a
/// source file) the second. The name is made by `modFileName`.
// Required: a file name without "." counts as empty.
OutputPlace ReportPlace(
    std::string_view projectFile,
    ReportKind kind,
    std::string_view folder,
    std::string_view sourceFile = {},
    std::string_view name = {});

/// Full path of the same.
std::string CreateReportFilename(
    std::string_view projectFile,
    ReportKind kind,
    std::string_view folder,
    std::string_view sourceFile = {},
    std::string_view name = {});

}  // namespace modDorvikUtils
}  // namespace dorvik
