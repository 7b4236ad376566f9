#include "ResultsFile.h"

#include "base/BasicError.h"
#include "base/DateTime.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/database/Database.h"
#include "platform/host/FileInUse.h"
#include "platform/host/FileInUseMark.h"
#include "platform/host/HostError.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHost.h"
#include "platform/host/modHostPath.h"
#include "results/modResultsFilename.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"

#include <utility>

namespace dorvik {

namespace {

/// A path for a message: as the operating system writes it.
std::string ShownPath(const std::string& path) {
    return modHostPath::Shown(modHostPath::FromProgram(path));
}

/// The user and the start of the review, as a text to follow the number of the process.
std::string Holder() {
    const DateTime now = modHost::Now();
    return " of user '" + modHost::LogonName() + "', since " + modDateText::LongTime(now) + " on " +
           modDateText::LongDate(now);
}

/// Which review has reserved the results file, and what the user can do.
std::string
InUseText(const FileInUse& failure, const std::string& projectFile, const std::string& database) {
    if (failure.Holder().empty()) {
        return "Unable to replace the existing results database '" + ShownPath(database) +
               "', because it is locked by another process.";
    }
    return "'" + ShownPath(projectFile) + "' is in another review (" + failure.Holder() +
           "): wait for its end, or choose another folder for the results";
}

}  // namespace

ResultsFile::ResultsFile(std::string_view projectFile, std::string folder)
    : m_projectFile(projectFile),
      m_folder(std::move(folder)),
      m_path(modDorvikUtils::CreateResultsFilename(projectFile, m_folder)) {}

bool ResultsFile::Prepare(bool clearLog) {
    if (m_path.empty()) {
        RaiseRuntimeError(runtimeerror::kPathNotFound, m_projectFile);
    }
    const std::string log = modDorvikUtils::CreateProjectLogFilename(m_projectFile, m_folder);
    ReserveOutput(log);
    modLog::Log().SetReviewLog(log, clearLog);
    return CopyTemplate();
}

/// Changes nothing before all of the output is known to be writable and reserved for this review.
void ResultsFile::ReserveOutput(const std::string& log) {
    const OutputPlace output = modDorvikUtils::ResultsPlace(m_projectFile, m_folder);
    output.MakeFolder();
    Database::NeedRoom(output.Path());
    modObstacles::NeedFile(modHostPath::FromProgram(log));
    m_reservation = Database::Reserve(output.Path(), Holder());
}

bool ResultsFile::CopyTemplate() {
    const std::string& templateFile = modGlobal::Data().ProjectResultsDB();
    Database::DeleteFile(m_path);
    if (!modFiles::FileExists(templateFile)) {
        modLog::Log().LogSetupError(
            "Template results database file '" + templateFile + "' not found.",
            "BeginReview",
            "C_ResultsManager");
        return false;
    }
    m_unfinished.emplace(m_path);
    Database::CopyFile(templateFile, m_path);
    return true;
}

std::string ResultsFile::ReasonIn(const BasicError& failure) const {
    if (std::string refusal = OutputRefusal::SentenceIn(failure); !refusal.empty()) {
        return refusal;
    }
    if (const auto* const inUse = dynamic_cast<const FileInUse*>(&failure)) {
        return InUseText(*inUse, m_projectFile, m_path);
    }
    if (dynamic_cast<const HostError*>(&failure) != nullptr) {
        return "Nothing can be written to '" +
               ShownPath(modUtilFunctions::PathFromFilename(m_path)) +
               "': " + RuntimeErrorText(failure.Number());
    }
    return {};
}

}  // namespace dorvik
