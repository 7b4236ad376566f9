#include "reports/modReportFilename.h"

#include "foundation/modUtilFunctions.h"

namespace dorvik::modDorvikUtils {

namespace {

struct Parts {
    std::string_view Suffix;
    std::string Base;
};

Parts PartsOf(ReportKind kind, std::string_view projectFile, std::string_view name) {
    switch (kind) {
        case ReportKind::BatchSummary:
            return {"BatchSummary", modUtilFunctions::FilenameFromFullPathName(projectFile)};
        case ReportKind::Project:
            return {"Dorvik", modUtilFunctions::FilenameFromFullPathName(projectFile)};
        case ReportKind::SourceFile: return {"Detail", std::string(name)};
    }
    return {};
}

std::string WithoutEnding(std::string_view sourceFile) {
    std::string name = modUtilFunctions::FilenameFromFullPathName(sourceFile);
    if (const auto point = name.rfind('.'); point != std::string::npos) {
        name.erase(point);
    }
    return name;
}

std::string Prefix(std::string_view projectFile, std::string_view folder) {
    if (folder.empty()) {
        return modUtilFunctions::PathFromFilename(projectFile) + "Dorvik\\";
    }
    return modUtilFunctions::AddBackslash(folder);
}

/// Required: only the last point is looked at; unless it is cut off with its project's ending, it
/// becomes "_".
void TakeOutPoint(std::string& path, ReportKind kind) {
    const auto point = path.rfind('.');
    const auto separator = path.rfind('\\');
    if (point == std::string::npos || (separator != std::string::npos && point < separator)) {
        return;
    }
    if (kind == ReportKind::Project) {
        path.erase(point);
    } else {
        path[point] = '_';
    }
}

}  // namespace

std::string CreateReportFilename(
    std::string_view projectFile,
    ReportKind kind,
    std::string_view folder,
    std::string_view sourceFile,
    std::string_view name) {
    const Parts parts = PartsOf(kind, projectFile, name);
    const std::string source = WithoutEnding(sourceFile);
    std::string path = Prefix(projectFile, folder);
    if (!source.empty()) {
        path += source + "_";
    }
    path += parts.Base;
    TakeOutPoint(path, kind);
    path += "_";
    path += parts.Suffix;
    path += ".html";
    return path;
}

}  // namespace dorvik::modDorvikUtils
