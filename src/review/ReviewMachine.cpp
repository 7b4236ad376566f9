#include "ReviewMachine.h"

#include "TimeSlice.h"
#include "VB6ProjectReview.h"
#include "criteria/ReviewAction.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "platform/host/IMessageBox.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modHost.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/model/Rulebase.h"
#include "source/VirtualProject.h"

#include <optional>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_ReviewManager";

/// The action codes that the driver sets; the progress window words them.

/// While this object exists, a background review writes the texts of message boxes to the log, because a box
/// would block the program until someone closes it. REQUIRES: no input is processed meanwhile.
class MessagesOfStep final : public IMessageBox {
public:
    explicit MessagesOfStep(const ReviewCriteria& criteria) {
        if (criteria.BackgroundReview()) {
            m_installed.emplace(*this);
        }
    }

    MessageAnswer Show(const MessageText& message) override {
        modLog::Log().LogEvent(message.Text, "ReviewTimeSlice", kModule);
        return Refusal(message.Buttons);
    }

private:
    std::optional<ScopedInstall<IMessageBox>> m_installed;
};

}  // namespace

ReviewMachine::ReviewMachine(ProjectReviewFactory factory) : m_factory(std::move(factory)) {
    if (!m_factory) {
        m_factory = [this] {
            return std::make_unique<VB6ProjectReview>(m_typeLibraries, &m_reservations);
        };
    }
    m_reports.SetEvents(this);
}

std::int32_t ReviewMachine::InitialiseReview(std::shared_ptr<ReviewCriteria> criteria) {
    if (!criteria || m_state != ReviewStatus::Start) {
        return 1;
    }
    m_criteria = std::move(criteria);
    m_slices.Open();
    return 0;
}

SliceResult ReviewMachine::ReviewTimeSlice(std::int32_t ticks) {
    if (const auto rejected = m_slices.Reject(kModule)) {
        return *rejected;
    }
    const SliceGuard::Slice running(m_slices);
    auto result = SliceResult::Failed;
    const bool ended = Trap({kModule, "ReviewTimeSlice"}, [&] {
        const SliceResult slice = RunSteps(ticks, [this] { return ReviewStep(); });
        if (slice != SliceResult::Continue) {
            ClearProjects();
        }
        result = slice;
    });
    if (!ended) {
        // Required: the lists of the projects stay as they are.
        m_projectReview.reset();
    }
    if (result != SliceResult::Continue) {
        m_slices.Close(result);
    }
    return result;
}

void ReviewMachine::Abandon() {
    m_isAbandoned = true;
    m_ruleEngine.Stop();
    if (m_slices.IsRunning()) {
        return;  // the slice tests it after its step
    }
    const bool hasOpenedProjects = m_state != ReviewStatus::Start && m_slices.IsReady();
    if (hasOpenedProjects) {
        Trap({kModule, "Abandon"}, [&] {
            Abort();
            ClearProjects();
        });
    }
    m_slices.Close(SliceResult::Aborted);
}

SliceResult ReviewMachine::ReviewStep() {
    ReviewStatus status = DetermineReviewStatus();
    if (status == ReviewStatus::IsReviewComplete) {
        return SliceResult::Complete;
    }
    if (status == ReviewStatus::IsAbort) {
        return Abort();
    }
    if (status == ReviewStatus::IsError) {
        status = RecoverFromError(m_state);
        if (status == ReviewStatus::IsError) {
            return SliceResult::Failed;
        }
    }
    m_state = status;
    modHost::YieldToInput();
    return m_isAbandoned ? Abort() : SliceResult::Continue;
}

SliceResult ReviewMachine::Abort() {
    if (m_projectReview) {
        m_projectReview->AbortReview();
        ReleaseProjectReview();
    }
    return SliceResult::Aborted;
}

ReviewStatus ReviewMachine::DetermineReviewStatus() {
    switch (m_state) {
        case ReviewStatus::Start: return ReviewStatus::ShowLoadingRulebase;
        case ReviewStatus::ShowLoadingRulebase: return State_ShowLoadingRulebase();
        case ReviewStatus::LoadRulebase: return State_LoadRulebase();
        case ReviewStatus::InitialiseReports: return State_InitialiseReports();
        case ReviewStatus::BeginProjects: return State_BeginProjects();
        case ReviewStatus::OpenProject: return State_OpenProject();
        case ReviewStatus::ProjectTimeSlice: return State_ProjectTimeSlice();
        case ReviewStatus::CloseProject: return State_CloseProject();
        case ReviewStatus::BatchReport: return State_BatchReport();
        case ReviewStatus::IsReviewComplete:
        case ReviewStatus::IsError:
        case ReviewStatus::IsAbort: break;
    }
    return ReviewStatus::IsError;
}

ReviewStatus ReviewMachine::RecoverFromError(ReviewStatus state) {
    if (state == ReviewStatus::OpenProject || state == ReviewStatus::ProjectTimeSlice ||
        state == ReviewStatus::CloseProject) {
        return MoveToNextProject(true);
    }
    return ReviewStatus::IsError;
}

ReviewStatus ReviewMachine::MoveToNextProject(bool releaseCurrent) {
    if (releaseCurrent && m_projectReview) {
        ReleaseProjectReview();
    }
    m_projectIndex = FindNextSelectedProject(m_projectIndex);
    const bool pastTheEnd =
        m_projectIndex > m_criteria->ProjectList().Count() || m_projectIndex < 1;
    return pastTheEnd ? ReviewStatus::BatchReport : ReviewStatus::OpenProject;
}

std::int32_t ReviewMachine::FindNextSelectedProject(std::int32_t from) const {
    std::int32_t index = from + 1;
    while (index <= m_criteria->ProjectList().Count() &&
           !m_criteria->ProjectList().Selected(index)) {
        ++index;
    }
    return index;
}

void ReviewMachine::ReleaseProjectReview() {
    m_projectReview->UnhookCallback();
    m_projectReview->Dispose();
    m_projectReview.reset();
}

void ReviewMachine::ClearProjects() {
    for (const auto& project : m_criteria->ProjectList()) {
        project->ClearListProperties();
    }
}

ReviewStatus ReviewMachine::SignalProgress(ReviewStatus status) {
    return IsCancelledNow() ? ReviewStatus::IsAbort : status;
}

bool ReviewMachine::IsCancelledNow() {
    m_progress.RecalcPercentages();
    bool cancel = false;
    if (m_progress.HasChanged()) {
        SignalReviewProgress(cancel);
    }
    return cancel;
}

void ReviewMachine::SignalReviewProgress(bool& cancel) {
    if (m_progressHandler && !m_isAbandoned) {
        m_progressHandler(m_progress, cancel);
    }
    cancel = cancel || m_isAbandoned;
}

void ReviewMachine::ReportsProgress(ProgressInfo&, std::int32_t /*state*/, bool& cancel) {
    if (IsCancelledNow()) {
        cancel = true;
        m_reportsCancelled = true;
    }
}

ReviewStatus ReviewMachine::State_ShowLoadingRulebase() {
    m_progress.SetAction(reviewaction::kLoadingRulebase);
    return SignalProgress(ReviewStatus::LoadRulebase);
}

ReviewStatus ReviewMachine::State_LoadRulebase() {
    const MessagesOfStep messages(*m_criteria);
    return Trapped({kModule, "State_LoadRulebase"}, ReviewStatus::IsError, [&] {
        RulebaseManager manager;
        m_rulebase = manager.LoadRulebase(m_criteria->LoadCriteria());
        if (!m_rulebase) {
            return ReviewStatus::IsError;
        }
        m_criteria->LoadCriteria().SetRulebaseTitle(m_rulebase->Title());
        m_criteria->LoadCriteria().SetRulebaseVersion(m_rulebase->Version());
        std::vector<basic::ScriptOrigin> origins;
        const std::string script = m_rulebase->RuleLists().CreateScriptFile(&origins);
        const bool loaded = m_ruleEngine.LoadScript(script, std::move(origins));
        return loaded ? ReviewStatus::InitialiseReports : ReviewStatus::IsError;
    });
}

ReviewStatus ReviewMachine::State_InitialiseReports() {
    m_reports.Initialise(m_rulebase->SeverityList(), m_rulebase->CategoryList());
    return SignalProgress(ReviewStatus::BeginProjects);
}

ReviewStatus ReviewMachine::State_BeginProjects() {
    m_progress.SetAction(reviewaction::kInitialisingReview);
    m_progress.BeginReview(m_criteria->ProjectList().SelectedCount());
    const ReviewStatus status = SignalProgress(ReviewStatus::BeginProjects);
    if (status != ReviewStatus::BeginProjects) {
        return status;
    }
    m_projectIndex = 0;
    return MoveToNextProject(false);
}

ReviewStatus ReviewMachine::State_OpenProject() {
    const MessagesOfStep messages(*m_criteria);
    return Trapped({kModule, "State_OpenProject"}, ReviewStatus::IsError, [&] {
        m_projectReview = m_factory();
        m_projectReview->HookupCallback(this);
        const bool opened = m_projectReview->InitialiseReview(
                                m_criteria, m_progress, m_rulebase, m_ruleEngine, m_reports) == 0 &&
                            m_projectReview->LoadProject(m_projectIndex) == 0;
        return opened ? ReviewStatus::ProjectTimeSlice : ReviewStatus::IsError;
    });
}

ReviewStatus ReviewMachine::State_ProjectTimeSlice() {
    switch (m_projectReview->ReviewTimeSlice(1)) {
        case SliceResult::Continue: return SignalProgress(ReviewStatus::ProjectTimeSlice);
        case SliceResult::Failed: return ReviewStatus::IsError;
        case SliceResult::Aborted: return ReviewStatus::IsAbort;
        case SliceResult::Complete: break;
    }
    return ReviewStatus::CloseProject;
}

ReviewStatus ReviewMachine::State_CloseProject() {
    ReleaseProjectReview();
    return MoveToNextProject(false);
}

ReviewStatus ReviewMachine::State_BatchReport() {
    if (m_criteria->ReviewType() == ReviewType_Batch && m_criteria->WritesBatchReport()) {
        m_reports.CreateBatchReport(*m_criteria, m_progress);
    }
    const ReviewStatus status = SignalProgress(ReviewStatus::BatchReport);
    return status == ReviewStatus::BatchReport ? ReviewStatus::IsReviewComplete : status;
}

}  // namespace dorvik
