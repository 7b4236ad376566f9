#include "VB6ProjectReview.h"

#include "SourceFileResults.h"
#include "TimeSlice.h"
#include "base/BasicError.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/EventActions.h"
#include "enforcement/NamingConventionHelper.h"
#include "enforcement/ResultsManager.h"
#include "enforcement/RuleEngine.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "modProjectLog.h"
#include "parser/IFileParser.h"
#include "parser/VB6ParserState.h"
#include "platform/host/ITypeLibrarySource.h"
#include "platform/host/modHost.h"
#include "review/IProjectReviewEvents.h"
#include "rulebase/model/Rulebase.h"
#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VB6ProjectReview";
constexpr std::string_view kAbortedByUser = "Review aborted by user.";
constexpr std::string_view kUnexpectedError = "Review terminated due to unexpected error.";

}  // namespace

VB6ProjectReview::VB6ProjectReview(
    ITypeLibrarySource* typeLibraries, ResultsReservations* reservations)
    : m_typeLibrarySource(typeLibraries), m_reservations(reservations) {}

VB6ProjectReview::~VB6ProjectReview() {
    AbortUnfinishedResults();
    if (m_ruleEngine != nullptr) {
        DisconnectRules();
    }
}

void VB6ProjectReview::HookupCallback(IProjectReviewEvents* callback) {
    m_callback = callback;
}

void VB6ProjectReview::UnhookCallback() {
    m_callback = nullptr;
}

std::int32_t VB6ProjectReview::InitialiseReview(
    std::shared_ptr<ReviewCriteria> criteria,
    ProgressInfo& progress,
    std::shared_ptr<Rulebase> rulebase,
    RuleEngine& ruleEngine,
    ReportsEngine& reports) {
    m_criteria = std::move(criteria);
    m_progress = &progress;
    m_rulebase = std::move(rulebase);
    m_ruleEngine = &ruleEngine;
    m_reports = &reports;
    return 0;
}

void VB6ProjectReview::Dispose() {
    if (m_fileParser) {
        m_fileParser->UnhookCallback();
        m_fileParser->Dispose();
        m_fileParser.reset();
    }
    AbortUnfinishedResults();
    if (m_ruleEngine != nullptr) {
        DisconnectRules();
    }
    if (m_project) {
        m_project->ClearListProperties();
    }
}

void VB6ProjectReview::AbortReview() {
    Trap({kModule, "AbortReview"}, [&] {
        if (m_resultsManager) {
            AbortResults(kAbortedByUser);
            m_slices.Close(SliceResult::Aborted);
        }
    });
}

void VB6ProjectReview::AbortResults(std::string_view line) {
    m_areResultsAborted = true;
    LogLine(line);
    m_resultsManager->AbortReview();
}

void VB6ProjectReview::AbortUnfinishedResults() {
    if (m_resultsManager && m_slices.IsOpen() && !m_areResultsAborted) {
        AbortResults(kUnexpectedError);
    }
}

SliceResult VB6ProjectReview::ReviewTimeSlice(std::int32_t ticks) {
    if (const auto rejected = m_slices.Reject(kModule)) {
        return *rejected;
    }
    const SliceGuard::Slice running(m_slices);
    auto result = SliceResult::Failed;
    Trap({kModule, "ReviewTimeSlice"}, [&] {
        const SliceResult slice = RunSteps(ticks, [this] { return ProjectReviewStep(); });
        if (slice != SliceResult::Continue && m_resultsManager) {
            AbortResults(slice == SliceResult::Aborted ? kAbortedByUser : kUnexpectedError);
        }
        result = slice;
    });
    if (result != SliceResult::Continue) {
        m_slices.Close(result);
    }
    return result;
}

SliceResult VB6ProjectReview::ProjectReviewStep() {
    ProjectReviewStatus status = DetermineProjectParserStatus();
    if (status == ProjectReviewStatus::IsProjectComplete) {
        return SliceResult::Complete;
    }
    if (status == ProjectReviewStatus::IsAbort) {
        return SliceResult::Aborted;
    }
    if (status == ProjectReviewStatus::IsError) {
        status = RecoverFromProjectError(m_state);
        if (status == ProjectReviewStatus::IsError) {
            return SliceResult::Failed;
        }
    }
    m_state = status;
    modHost::YieldToInput();
    return SliceResult::Continue;
}

ProjectReviewStatus VB6ProjectReview::DetermineProjectParserStatus() {
    switch (m_state) {
        case ProjectReviewStatus::BeginLoadReferences: return State_BeginLoadReferences();
        case ProjectReviewStatus::LoadTypeLibReference: return State_LoadTypeLib_Reference();
        case ProjectReviewStatus::BeginLoadComponents: return State_BeginLoadComponents();
        case ProjectReviewStatus::LoadTypeLibComponent: return State_LoadTypeLib_Component();
        case ProjectReviewStatus::BeginPrescan: return State_BeginPrescan();
        case ProjectReviewStatus::PrescanFile: return State_PrescanFile();
        case ProjectReviewStatus::BeginProject: return State_BeginProject();
        case ProjectReviewStatus::Reference: return State_Reference();
        case ProjectReviewStatus::BeginSourceFiles: return State_BeginSourceFiles();
        case ProjectReviewStatus::LoadSourceFile: return State_LoadSourceFile();
        case ProjectReviewStatus::SourceFileTick: return State_SourceFileTick();
        case ProjectReviewStatus::EndSourceFile: return State_EndSourceFile(false);
        case ProjectReviewStatus::EndSourceFiles: return State_EndSourceFiles();
        case ProjectReviewStatus::EndProject: return State_EndProject();
        case ProjectReviewStatus::IsSourceFileOpened:
        case ProjectReviewStatus::IsSourceFileClosed:
        case ProjectReviewStatus::IsProjectComplete:
        case ProjectReviewStatus::IsError:
        case ProjectReviewStatus::IsAbort: break;
    }
    return ProjectReviewStatus::IsError;
}

ProjectReviewStatus VB6ProjectReview::RecoverFromProjectError(ProjectReviewStatus state) {
    switch (state) {
        case ProjectReviewStatus::BeginLoadReferences:
        case ProjectReviewStatus::LoadTypeLibReference:
            ++m_project->Outcome().ReferenceErrors;
            return ProjectReviewStatus::LoadTypeLibReference;
        case ProjectReviewStatus::BeginLoadComponents:
        case ProjectReviewStatus::LoadTypeLibComponent:
            ++m_project->Outcome().ComponentErrors;
            return ProjectReviewStatus::LoadTypeLibComponent;
        case ProjectReviewStatus::BeginPrescan:
        case ProjectReviewStatus::PrescanFile:
            ++m_project->Outcome().ScanErrors;
            return ProjectReviewStatus::PrescanFile;
        case ProjectReviewStatus::IsSourceFileOpened:
        case ProjectReviewStatus::LoadSourceFile:
        case ProjectReviewStatus::IsSourceFileClosed:
        case ProjectReviewStatus::SourceFileTick: return State_EndSourceFile(true);
        case ProjectReviewStatus::Reference: return ProjectReviewStatus::BeginSourceFiles;
        case ProjectReviewStatus::BeginProject:
        case ProjectReviewStatus::BeginSourceFiles:
        case ProjectReviewStatus::EndSourceFile:
        case ProjectReviewStatus::EndSourceFiles:
        case ProjectReviewStatus::EndProject:
        case ProjectReviewStatus::IsProjectComplete:
        case ProjectReviewStatus::IsError:
        case ProjectReviewStatus::IsAbort: break;
    }
    return ProjectReviewStatus::IsError;
}

ProjectReviewStatus VB6ProjectReview::SignalProjectProgress(ProjectReviewStatus status) {
    if (!m_progress->HasChanged()) {
        return status;
    }
    bool cancel = false;
    if (m_callback != nullptr) {
        m_callback->SignalReviewProgress(cancel);
    }
    return cancel ? ProjectReviewStatus::IsAbort : status;
}

ProjectReviewStatus VB6ProjectReview::MoveToNextSourceFile() {
    while (true) {
        ++m_sourceFileIndex;
        if (m_sourceFileIndex > m_project->SourceFiles().Count()) {
            return ProjectReviewStatus::EndSourceFiles;
        }
        if (m_project->SourceFiles().Selected(m_sourceFileIndex)) {
            ++m_reviewedFileCount;
            return ProjectReviewStatus::LoadSourceFile;
        }
    }
}

void VB6ProjectReview::ParserEvent(dorvik::ParserEvent event) {
    ExecuteEventActions(event);
}

void VB6ProjectReview::FireProjectEvent(dorvik::ParserEvent event) {
    ParserState().SetParserEvent(event);
    ExecuteEventActions(event);
}

VB6ParserState& VB6ProjectReview::ParserState() {
    return m_resultsManager->ParserState();
}

void VB6ProjectReview::ExecuteEventActions(dorvik::ParserEvent event) {
    bool isRuleError = false;
    const auto execute = [&] {
        m_eventActions->Execute(event, m_fileParser != nullptr);
        if (event == dorvik::ParserEvent::EndFile) {
            LogLine(m_sourceFile->Filename() + " successfully reviewed.");
            m_fileResults->LogFileResults();
        }
    };
    const bool isDone =
        Trap({kModule, "ExecuteEventActions"}, execute, [&](const BasicError& /*ofRule*/) {
            isRuleError = true;
            return false;
        });
    if (!isDone && !isRuleError) {
        m_fileResults->NoteSkippedRules();
    }
}

void VB6ProjectReview::LogLine(std::string_view line) {
    modProjectLog::LogLine(m_resultsManager->Log(), line);
}

}  // namespace dorvik
