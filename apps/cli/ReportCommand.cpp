#include "cli/ReportCommand.h"

#include "cli/Console.h"
#include "cli/Interrupt.h"
#include "cli/ResultsFile.h"
#include "cli/ResultsItems.h"
#include "cli/WrittenPages.h"
#include "criteria/ProgressInfo.h"
#include "foundation/LogFile.h"
#include "foundation/modLog.h"
#include "foundation/modUtilFunctions.h"
#include "platform/modFiles.h"
#include "reports/ModernReport.h"
#include "reports/ProjectReportOrder.h"
#include "reports/ReportsEngine.h"
#include "results/ResultsDB.h"
#include "settings/DVKWorkData.h"

#include <filesystem>

namespace dorvik {

namespace {

std::string InnerPath(const std::string& hostPath) {
    return modFiles::FromHostPath(std::filesystem::absolute(hostPath).lexically_normal());
}

/// Ends the reports when the user asks for it.
class CancelByInterrupt final : public IReportsEngineEvents {
public:
    void ReportsProgress(ProgressInfo&, std::int32_t, bool& cancel) override {
        cancel = m_interrupt.Requested();
    }
    bool Requested() const { return m_interrupt.Requested(); }

private:
    Interrupt m_interrupt;
};

/// The review log lies beside the database, if it is there still.
std::string LogBeside(const std::string& database) {
    const std::string log = database.substr(0, database.rfind('.')) + ".txt";
    return modFiles::FileExists(log) ? log : std::string();
}

/// Why there are no pages to be made of the database; empty if they can be made. What cannot be read
/// is told.
ExitCode Examine(const std::string& hostPath, std::string& projectFile) {
    return modResultsFile::Read(hostPath, [&](ResultsDB& results) {
        if (results.GetReviewData().End.IsZero()) {
            modConsole::PrintError("there is no report of '" + hostPath + "' for that reason");
            return ExitCode::NothingDone;
        }
        projectFile = ResultsItems::FullPath(
            results.GetProjectData("Path"), results.GetProjectData("Filename"));
        return ExitCode::Passed;
    });
}

class ReportRun {
public:
    explicit ReportRun(const ReportCommandOptions& options)
        : m_options(options),
          m_folder(options.Folder.empty() ? std::string() : InnerPath(options.Folder)) {}

    ExitCode Run() {
        std::size_t failed = 0;
        for (const std::string& database : m_options.Databases) {
            failed += Write(database) ? 0 : 1;
            if (m_events.Requested()) {
                modConsole::PrintError("interrupted; the page at hand was not written");
                return ExitCode::Interrupted;
            }
        }
        if (!m_options.Quiet) {
            m_pages.Print();
        }
        m_pages.TellReplaced();
        if (failed == m_options.Databases.size()) {
            return ExitCode::NothingDone;
        }
        return failed == 0 ? ExitCode::Passed : ExitCode::Incomplete;
    }

private:
    bool Write(const std::string& hostPath) {
        std::string projectFile;
        if (Examine(hostPath, projectFile) != ExitCode::Passed) {
            return false;
        }
        DVKWorkData settings;  // not the user's, which the database would change at its end
        ResultsDB results(settings);
        const std::string database = InnerPath(hostPath);
        const std::string folder =
            m_folder.empty() ? modUtilFunctions::PathFromFilename(database) : m_folder;
        const bool written = results.OpenReview(database) &&
                             (m_options.Modern ? WriteModern(results, projectFile, folder)
                                               : WriteClassic(results, projectFile, folder));
        if (!written && !m_events.Requested()) {
            modConsole::PrintError(
                "the report of '" + hostPath + "' was not written into '" +
                modConsole::ShownPath(folder) + "' (see the log '" +
                modConsole::ShownPath(modLog::Log().LogFilePath()) + "')");
        }
        return written;
    }

    bool
    WriteModern(ResultsDB& results, const std::string& projectFile, const std::string& folder) {
        const std::string page = ModernReport::CreateFilename(projectFile, folder);
        const bool written = ModernReport::Save(results, {}, page);
        if (written) {
            m_pages.Add(page);
        }
        return written;
    }

    bool
    WriteClassic(ResultsDB& results, const std::string& projectFile, const std::string& folder) {
        ProjectReportOrder order;
        order.ProjectFile = projectFile;
        order.ReportsFolder = folder;
        order.LogFile = LogBeside(results.Filename());
        order.Detailed = m_options.Detailed;
        ReportsEngine engine;
        engine.SetEvents(&m_events);
        ProgressInfo progress;
        const bool written = engine.CreateReportsOfDatabase(results, order, progress);
        m_pages.Add(engine.WrittenReports());
        return written;
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
