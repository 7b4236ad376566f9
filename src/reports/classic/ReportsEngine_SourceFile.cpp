// The report of one source file.

#include "SourceFileReport.h"
#include "foundation/log/Trap.h"
#include "reports/classic/ReportsEngine.h"

namespace dorvik {

void ReportsEngine::CreateSourceFileReport(
    std::string_view projectFile,
    const BasicObject& sourceFile,
    ResultsDB& results,
    ProgressInfo& progress,
    std::string_view folder,
    bool& cancel,
    bool tolerancesSet) {
    const std::string path = sourceFile.Path + sourceFile.Filename;
    const bool ended = Trap({kModule, "CreateSourceFileReport"}, [&] {
        SourceFileReport report(
            *this, {projectFile, sourceFile, folder, tolerancesSet}, results, progress);
        cancel = !report.Build();
        if (!cancel) {
            SaveReport(
                report.Html(), projectFile, ReportKind::SourceFile, folder, path, sourceFile.Name);
        }
    });
    if (!ended) {
        m_failedReports.push_back(modDorvikUtils::CreateReportFilename(
            projectFile, ReportKind::SourceFile, folder, path, sourceFile.Name));
    }
}

}  // namespace dorvik
