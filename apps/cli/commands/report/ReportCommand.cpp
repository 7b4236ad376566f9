#include "cli/commands/report/ReportCommand.h"

#include "cli/commands/results/ResultsFile.h"
#include "cli/commands/results/ResultsItems.h"
#include "cli/commands/review/WrittenPages.h"
#include "cli/output/Console.h"
#include "cli/output/Interrupt.h"
#include "cli/output/modCommandPath.h"
#include "criteria/ProgressInfo.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modFiles.h"
#include "reports/classic/ProjectReportOrder.h"
#include "reports/classic/ReportsEngine.h"
#include "reports/format/modReportFilename.h"
#include "reports/modern/ModernReport.h"
#include "results/ResultsDB.h"
#include "settings/DVKWorkData.h"

namespace dorvik {

namespace {

/// Ends the reports when the user interrupts the program.
class CancelByInterrupt final : public IReportsEngineEvents {
public:
    void ReportsProgress(ProgressInfo&, std::int32_t, bool& cancel) override {
        cancel = m_interrupt.Requested();
    }
    bool Requested() const { return m_interrupt.Requested(); }

private:
    Interrupt m_interrupt;
};

/// The review log is beside the database, if it is there still.
std::string LogBeside(const std::string& database) {
    const std::string log = database.substr(0, database.rfind('.')) + ".txt";
    return modFiles::FileExists(log) ? log : std::string();
}

/// Whether pages can be made of the database. What cannot be read is reported.
ExitCode Examine(const std::string& hostPath, std::string& projectFile) {
    return modResultsFile::Read(hostPath, [&](ResultsDB& results) {
        if (results.Review().GetReviewData().End.IsZero()) {
            modConsole::PrintError("no report of '" + hostPath + "' was written for that reason");
            return ExitCode::NothingDone;
        }
        projectFile = ResultsItems::FullPath(
            results.Items().GetProjectData("Path"), results.Items().GetProjectData("Filename"));
        return ExitCode::Passed;
    });
}

class ReportRun {
public:
    explicit ReportRun(const ReportCommandOptions& options)
        : m_options(options),
          m_folder(options.Folder.empty() ? std::string() : modCommandPath::Inner(options.Folder)) {
    }

    ExitCode Run() {
        bool complete = true;
        for (const std::string& database : m_options.Databases) {
            complete = Write(database) && complete;
            if (m_events.Requested()) {
                modConsole::PrintError("interrupted; the current page was not written");
                return ExitCode::Interrupted;
            }
        }
        if (!m_options.Quiet) {
            m_pages.Print();
        }
        m_pages.ReportReplaced();
        m_pages.ReportFailed();
        if (m_pages.Empty()) {
            return ExitCode::NothingDone;
        }
        return complete && m_pages.Complete() ? ExitCode::Passed : ExitCode::Incomplete;
    }

private:
    /// False where the database cannot be used, which is reported.
    bool Write(const std::string& hostPath) {
        std::string projectFile;
        if (Examine(hostPath, projectFile) != ExitCode::Passed) {
            return false;
        }
        DVKWorkData settings;  // not the user's, which the database would change at its end
        ResultsDB results(settings);
        const std::string database = modCommandPath::Inner(hostPath);
        const std::string folder =
            m_folder.empty() ? modUtilFunctions::PathFromFilename(database) : m_folder;
        const std::string what = "the report of '" + hostPath + "'";
        if (!results.OpenReview(database)) {
            modConsole::PrintError(
                what + " was not written, because the database can no longer be opened");
            return false;
        }
        WriteClassic(results, projectFile, folder, what);
        if (m_options.Modern && !m_events.Requested()) {
            WriteModern(results, projectFile, folder, what);
        }
        return true;
    }

    void WriteModern(
        ResultsDB& results,
        const std::string& projectFile,
        const std::string& folder,
        const std::string& what) {
        const OutputPlace page = ModernReport::PlaceFor(projectFile, folder);
        std::string refusal;
        if (ModernReport::Save(results, {}, page, &refusal)) {
            m_pages.Add(page.Path());
        } else {
            m_pages.AddFailed(page.Path(), what, refusal);
        }
    }

    void WriteClassic(
        ResultsDB& results,
        const std::string& projectFile,
        const std::string& folder,
        const std::string& what) {
        ProjectReportOrder order;
        order.ProjectFile = projectFile;
        order.ReportsFolder = folder;
        order.LogFile = LogBeside(results.Filename());
        order.Detailed = m_options.Detailed;
        ReportsEngine engine;
        engine.SetEvents(&m_events);
        ProgressInfo progress;
        if (!engine.CreateReportsOfDatabase(results, order, progress)) {
            const std::string page =
                modDorvikUtils::CreateReportFilename(projectFile, ReportKind::Project, folder);
            m_pages.AddFailed(page, what, engine.RefusalOf(page));
        }
        m_pages.Add(engine.WrittenReports());
        m_pages.AddFailed(engine);
    }

    const ReportCommandOptions& m_options;
    std::string m_folder;
    CancelByInterrupt m_events;
    WrittenPages m_pages;
};

}  // namespace

ExitCode RunReport(const ReportCommandOptions& options) {
    return ReportRun(options).Run();
}

}  // namespace dorvik
