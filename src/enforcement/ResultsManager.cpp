#include "enforcement/ResultsManager.h"

#include "ResultsFile.h"
#include "base/BasicError.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "platform/host/modHost.h"
#include "results/ResultsDB.h"
#include "source/VirtualObject.h"
#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_ResultsManager";

}  // namespace

ResultsManager::ResultsManager()
    : m_log(m_parserState),
      m_violations(m_parserState, m_log),
      m_resultsDB(std::make_unique<dorvik::ResultsDB>()) {
    m_violations.SetResults(*m_resultsDB);
}

ResultsManager::~ResultsManager() {
    modLog::Log().CloseReview();
}

bool ResultsManager::BeginReview(
    std::string_view projectFile, const ReviewCriteria& criteria, const Rulebase& rulebase) {
    bool started = false;
    auto file = std::make_unique<ResultsFile>(
        projectFile,
        criteria.UseProjectFolderResults() ? std::string() : criteria.FixedFolderResults());
    const ResultsFile& resultsFile = *file;
    const auto start = [&] {
        m_resultsDB = std::make_unique<dorvik::ResultsDB>();
        m_violations.SetResults(*m_resultsDB);
        m_file = std::move(file);
        started = m_file->Prepare(criteria.ClearLogBeforeReview()) &&
                  m_resultsDB->Writer().StartReview(m_file->Path(), rulebase, criteria);
    };
    Trap({kModule, "BeginReview"}, start, [&](const BasicError& failure) {
        const std::string reason = resultsFile.ReasonIn(failure);
        if (reason.empty()) {
            return false;
        }
        modHost::ShowMessage({MessageIcon::Exclamation, "Dorvik", reason});
        modLog::Log().LogEvent(reason, "BeginReview", kModule);
        return true;
    });
    return started;
}

std::shared_ptr<FileInUseMark> ResultsManager::Reservation() const {
    return m_file ? m_file->Reservation() : nullptr;
}

void ResultsManager::EndReview(std::int32_t ruleExecutionCount) {
    m_resultsDB->Writer().EndReview(ruleExecutionCount);
    if (m_file) {
        m_file->SetFinished();
    }
    modLog::Log().CloseReview();
}

void ResultsManager::AbortReview() {
    m_resultsDB->Writer().AbortReview();
    if (m_file) {
        m_file->SetFinished();
    }
    modLog::Log().CloseReview();
    m_file.reset();
}

void ResultsManager::LogVirtualObjectResults(std::string_view objectName) {
    const bool logged = Trap({kModule, "LogVirtualObjectResults"}, [&] {
        const std::shared_ptr<VirtualObject> object = m_parserState.GetVirtualObject(objectName);
        if (!object || object->ObjectID() == 0) {
            return;
        }
        m_resultsDB->Writer().LogVirtualObjectProperties(*object);
        m_resultsDB->Writer().LogVirtualObjectViolationStats(*object);
        if (object->HasLSTATS()) {
            m_resultsDB->Writer().LogVirtualObjectLineStats(*object);
        }
    });
    if (!logged) {
        m_resultsDB->NoteLoss("figures could not be stored, see the log");
    }
}

bool ResultsManager::IsClassName(std::string_view name) const {
    const auto* file = m_project->SourceFiles().Find(name);
    return file != nullptr && (*file)->FileType() == FileType::Class;
}

bool ResultsManager::IsFormName(std::string_view name) const {
    const auto* file = m_project->SourceFiles().Find(name);
    return file != nullptr &&
           ((*file)->FileType() == FileType::Form || (*file)->FileType() == FileType::MDIForm);
}

}  // namespace dorvik
