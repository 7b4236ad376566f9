#include "cli/commands/results/ResultsFile.h"

#include "base/Quoted.h"
#include "base/modTextCase.h"
#include "cli/output/Console.h"
#include "cli/output/modCommandPath.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modFiles.h"
#include "results/ResultsDB.h"
#include "results/ResultsStore.h"
#include "settings/DVKWorkData.h"

#include <chrono>

namespace dorvik::modResultsFile {

namespace {

/// A person who marks violations does not want to wait as long for a lock as a review does.
constexpr std::chrono::seconds kPatienceAtTheTerminal{2};

/// While it lives, a failure that the engine logs is noted as well.
class FailureWatch {
public:
    FailureWatch() : m_installed(m_message), m_wasQuiet(modLog::Log().Quiet()) {
        modLog::Log().SetQuiet(false);
    }
    ~FailureWatch() { modLog::Log().SetQuiet(m_wasQuiet); }
    FailureWatch(const FailureWatch&) = delete;
    FailureWatch& operator=(const FailureWatch&) = delete;

    bool HasSeenFailure() const { return !m_message.Text().empty(); }

private:
    KeptMessage m_message;
    ScopedInstall<IMessageBox> m_installed;
    bool m_wasQuiet;
};

std::string WordsFor(const StoreFailures& failures, const std::string& hostPath) {
    switch (failures.FirstNumber()) {
        case databaseerror::kNotADatabase:
            return Quoted(hostPath) + " is not a database, or is damaged";
        case databaseerror::kUnknownName: return Quoted(hostPath) + " is not a results database";
        default: return Quoted(hostPath) + " cannot be read: " + failures.Reason();
    }
}

/// Why the review in the database could not be opened.
std::string Objection(const ResultsDB& database, const std::string& hostPath) {
    const StoreFailures& failures = database.Failures();
    if (failures.Count() > 0) {
        return WordsFor(failures, hostPath);
    }
    if (!database.FoundVersion()) {
        return Quoted(hostPath) + " is not a results database";
    }
    const std::string& version = *database.FoundVersion();
    if (!modTextCase::Equal(version, ResultsStore::kSchemaVersion)) {
        return Quoted(hostPath) + " is a results database of version '" + version +
               "' instead of '" + std::string(ResultsStore::kSchemaVersion) +
               "'; review the project again";
    }
    return "the results database " + Quoted(hostPath) + " holds no review";
}

ExitCode Refuse(const std::string& sentence) {
    modConsole::PrintError(sentence);
    return ExitCode::NothingDone;
}

std::string SeeLog() {
    return " (see the log " + Quoted(modConsole::ShownPath(modLog::Log().LogFilePath())) + ")";
}

ExitCode
Use(const std::string& hostPath,
    const std::function<ExitCode(ResultsDB&)>& body,
    const std::function<ExitCode(ExitCode)>& reportFailure,
    std::chrono::milliseconds patience) {
    // Nothing is the name of no file, and has no absolute form.
    const std::string path = hostPath.empty() ? hostPath : modCommandPath::Inner(hostPath);
    if (!modFiles::FileExists(path)) {
        return Refuse(
            "the results database " + Quoted(hostPath) +
            (modFiles::FolderExists(path) ? " is a folder" : " does not exist"));
    }
    const FailureWatch watch;
    DVKWorkData settings;  // not the user's, which the database would change at its end
    ResultsDB database(settings);
    if (!database.OpenReview(path)) {
        return Refuse(Objection(database, hostPath));
    }
    database.SetPatience(patience);
    if (database.Review().GetReviewData().End.IsZero()) {
        modConsole::PrintError(
            "note: the results in " + Quoted(hostPath) +
            " are incomplete, because the review did not finish; there is no verdict, and only "
            "what "
            "was stored so far is shown");
    }
    const ExitCode code = body(database);
    if (watch.HasSeenFailure()) {
        return reportFailure(code);
    }
    return code;
}

}  // namespace

ExitCode Read(const std::string& hostPath, const std::function<ExitCode(ResultsDB&)>& body) {
    const auto reportFailure = [&](ExitCode) {
        return Refuse(
            "parts of the results database " + Quoted(hostPath) + " cannot be read" + SeeLog());
    };
    return Use(hostPath, body, reportFailure, Database::kPatience);
}

ExitCode Change(const std::string& hostPath, const std::function<ExitCode(ResultsDB&)>& body) {
    const auto reportFailure = [&](ExitCode code) {
        const std::string named = "the results database " + Quoted(hostPath);
        if (code == ExitCode::NothingDone) {
            return Refuse(
                named + " cannot be changed: it is read-only, or another program is writing to it" +
                SeeLog());
        }
        modConsole::PrintError(
            named +
            (code == ExitCode::Passed ? " was changed, but parts of it cannot be read"
                                      : " was changed only in part") +
            SeeLog());
        return ExitCode::Incomplete;
    };
    return Use(hostPath, body, reportFailure, kPatienceAtTheTerminal);
}

}  // namespace dorvik::modResultsFile
