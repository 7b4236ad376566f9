#include "reports/format/modReportFilename.h"

#include "foundation/text/modFileName.h"
#include "foundation/text/modUtilFunctions.h"

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

// Required: only the last point counts. If it is not cut off with the ending of the project, it becomes "_".
void TakeOutPoint(std::string& name, ReportKind kind) {
    const auto point = name.rfind('.');
    if (point == std::string::npos) {
        return;
    }
    if (kind == ReportKind::Project) {
        name.erase(point);
    } else {
        name[point] = '_';
    }
}

}  // namespace

OutputPlace ReportPlace(
    std::string_view projectFile,
    ReportKind kind,
    std::string_view folder,
    std::string_view sourceFile,
    std::string_view name) {
    const Parts parts = PartsOf(kind, projectFile, name);
    std::string text = WithoutEnding(sourceFile);
    if (!text.empty()) {
        text += "_";
    }
    text += parts.Base;
    TakeOutPoint(text, kind);
    OutputPlace place = OutputPlace::For(std::string(projectFile), std::string(folder));
    place.Name = modFileName::FromText(text, "_" + std::string(parts.Suffix) + ".html");
    return place;
}

std::string CreateReportFilename(
    std::string_view projectFile,
    ReportKind kind,
    std::string_view folder,
    std::string_view sourceFile,
    std::string_view name) {
    return ReportPlace(projectFile, kind, folder, sourceFile, name).Path();
}

}  // namespace dorvik::modDorvikUtils
