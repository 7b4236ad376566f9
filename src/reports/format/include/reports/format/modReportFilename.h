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

/// Where reports are stored. All paths use the backslash.
namespace modDorvikUtils {

/// Folder and name of a report. If `folder` is empty, it is "Dorvik\" beside the project file. The first part of the
/// name comes from `sourceFile`, if it is not empty, the second from `name`, only for the report of a source file.
/// `modFileName` makes the name.
// Required: a file name without "." counts as empty.
OutputPlace ReportPlace(
    std::string_view projectFile,
    ReportKind kind,
    std::string_view folder,
    std::string_view sourceFile = {},
    std::string_view name = {});

/// Its full path.
std::string CreateReportFilename(
    std::string_view projectFile,
    ReportKind kind,
    std::string_view folder,
    std::string_view sourceFile = {},
    std::string_view name = {});

}  // namespace modDorvikUtils
}  // namespace dorvik
