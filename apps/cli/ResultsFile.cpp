#include "cli/ResultsFile.h"

#include "base/modTextCase.h"
#include "cli/Console.h"
#include "foundation/LogFile.h"
#include "foundation/Trap.h"
#include "platform/OutputRefusal.h"
#include "platform/ScopedInstall.h"
#include "platform/modFiles.h"
#include "results/ResultsDB.h"
#include "settings/DVKWorkData.h"

#include <filesystem>

namespace dorvik::modResultsFile {

namespace {

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

std::string Quoted(const std::string& path) {
    return "'" + path + "'";
}

std::string WordsFor(const BasicError& failure, const std::string& hostPath) {
    if (std::string refusal = OutputRefusal::SentenceIn(failure); !refusal.empty()) {
        return refusal;
    }
    switch (failure.Number()) {
        case databaseerror::kNotADatabase: return Quoted(hostPath) + " is no database, or damaged";
        case databaseerror::kUnknownName: return Quoted(hostPath) + " is no results database";
        default: return Quoted(hostPath) + " cannot be read: " + RuntimeErrorText(failure.Number());
    }
}

/// Why the file is not to be opened; empty for a results database of this version. Nothing is touched.
std::string Objection(const std::string& path, const std::string& hostPath) {
    if (!modFiles::FileExists(path)) {
        return "the results database " + Quoted(hostPath) +
               (modFiles::FolderExists(path) ? " is a folder" : " does not exist");
    }
    std::string objection = Quoted(hostPath) + " cannot be read";
    const auto look = [&] {
        Database database;
        database.OpenUntouched(path);
        auto rows =
            database.OpenRecordset("SELECT Version FROM SystemInfo", RecordsetType::Snapshot);
        if (rows.EOF_()) {
            objection = Quoted(hostPath) + " is no results database";
            return;
        }
        const std::string version = rows.Value("Version").AsText();
        objection = modTextCase::Equal(version, ResultsDB::kSchemaVersion)
                        ? ""
                        : Quoted(hostPath) + " is a results database of version '" + version +
                              "' instead of '" + std::string(ResultsDB::kSchemaVersion) +
                              "'; review the project again";
    };
    Trap({"modResultsFile", "Objection"}, look, [&](const BasicError& failure) {
        objection = WordsFor(failure, hostPath);
        return true;
    });
    return objection;
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
    const std::string& failure) {
    // Nothing is the name of no file, and has no absolute form.
    const std::string path =
        hostPath.empty()
            ? hostPath
            : modFiles::FromHostPath(std::filesystem::absolute(hostPath).lexically_normal());
    if (const std::string objection = Objection(path, hostPath); !objection.empty()) {
        return Refuse(objection);
    }
    const FailureWatch watch;
    DVKWorkData settings;  // not the user's, which the database would change at its end
    ResultsDB database(settings);
    if (!database.OpenReview(path)) {
        return Refuse(
            "the results database " + Quoted(hostPath) +
            (watch.HasSeenFailure() ? " cannot be read" + SeeLog() : " holds no review"));
    }
    if (database.GetReviewData().End.IsZero()) {
        modConsole::PrintError(
            "note: the review in " + Quoted(hostPath) +
            " did not come to its end; this is what it stored so far");
    }
    const ExitCode code = body(database);
    if (watch.HasSeenFailure()) {
        return Refuse(failure + SeeLog());
    }
    return code;
}

}  // namespace

ExitCode Read(const std::string& hostPath, const std::function<ExitCode(ResultsDB&)>& body) {
    return Use(
        hostPath, body, "parts of the results database " + Quoted(hostPath) + " cannot be read");
}

ExitCode Change(const std::string& hostPath, const std::function<ExitCode(ResultsDB&)>& body) {
    return Use(
        hostPath,
        body,
        "the results database " + Quoted(hostPath) +
            " cannot be changed: it is read-only, or another program is writing to it");
}

}  // namespace dorvik::modResultsFile
