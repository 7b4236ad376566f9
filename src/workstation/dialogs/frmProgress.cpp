#include "workstation/dialogs/frmProgress.h"

#include "criteria/ProgressInfo.h"
#include "criteria/ReviewAction.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modHost.h"
#include "review/ReviewManager.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "workstation/screen/IScreen.h"

#include <chrono>
#include <string_view>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmProgress";
constexpr std::string_view kCaption = "Review Progress";
constexpr std::chrono::milliseconds kTickInterval{10};

struct ActionRow {
    std::int32_t Action;
    std::string_view Text;
};

constexpr ActionRow kActions[] = {
    {reviewaction::kLoadingRulebase, "Loading rulebase..."},
    {reviewaction::kReviewing, "Reviewing source code..."},
    {reviewaction::kGeneratingReport, "Generating report..."},
    {reviewaction::kExtractingNames, "Extracting global names..."},
    {reviewaction::kLoadingReferences, "Loading references..."},
    {reviewaction::kInitialisingReview, "Initialising project review..."},
    {reviewaction::kLoadingComponents, "Loading components..."},
};

std::string NumberOfAll(std::string_view label, std::int32_t number, std::int32_t all) {
    return std::string(label) + ": (" + std::to_string(number) + " of " + std::to_string(all) + ")";
}

std::string NameWithFile(const std::string& name, std::string_view path) {
    return name + " (" + modUtilFunctions::FilenameFromFullPathName(path) + ")";
}

/// No message boxes while this lives: the user of a background review is at work elsewhere.
class QuietLog {
public:
    QuietLog() : m_log(&modLog::Log()), m_wasQuiet(m_log->Quiet()) { m_log->SetQuiet(true); }
    /// The log may have gone meanwhile, and another one come.
    ~QuietLog() {
        if (m_log == &modLog::Log()) {
            m_log->SetQuiet(m_wasQuiet);
        }
    }
    QuietLog(const QuietLog&) = delete;
    QuietLog& operator=(const QuietLog&) = delete;

private:
    LogFile* m_log;
    bool m_wasQuiet;
};

}  // namespace

frmProgress::frmProgress(IScreen& screen)
    : tmrInterrupt(kTickInterval),
      Caption(std::string(kCaption)),
      m_screen(screen),
      m_onTick(tmrInterrupt.Ticked.Subscribe([this] { tmrInterrupt_Timer(); })) {}

frmProgress::~frmProgress() {
    Hide();
}

void frmProgress::CommenceReview(std::shared_ptr<ReviewCriteria> criteria) {
    Trap({kModule, "CommenceReview"}, [&] {
        m_manager = std::make_unique<ReviewManager>();
        m_manager->SetTypeLibraries(m_typeLibraries);
        m_manager->SetProgressHandler(
            [this, life = m_life.Watched()](const ProgressInfo& progress, bool& cancel) {
                if (life.IsOver()) {
                    cancel = true;
                } else {
                    ReviewProgress(progress, cancel);
                }
            });
        m_criteria = std::move(criteria);
        m_isBackground = m_criteria != nullptr && m_criteria->BackgroundReview();
        m_tickCount = modGlobal::WorkData().BackgroundTickCount;
        const bool isRefused = m_manager->InitialiseReview(m_criteria) != 0;
        if (isRefused) {
            Finish();
        } else {
            m_screen.ShowModal(*this);
        }
    });
}

void frmProgress::Activate() {
    if (m_wasActivated || m_manager == nullptr) {
        return;
    }
    Trap({kModule, "Activate"}, [&] {
        m_wasActivated = true;
        Visible.Set(true);
        if (m_isBackground) {
            BeginBackgroundReview();
        } else {
            RunForegroundReview();
        }
    });
}

void frmProgress::RunForegroundReview() {
    const Lifetime::Watch life = m_life.Watched();
    RunSlice(kWholeReview);
    if (!life.IsOver()) {
        Finish();
    }
}

/// Shown again without being modal, so that the user can go on working.
void frmProgress::BeginBackgroundReview() {
    tmrInterrupt.Enabled.Set(true);
    m_screen.Hide(*this);
    m_screen.Show(*this);
}

void frmProgress::tmrInterrupt_Timer() {
    if (m_isInSlice || m_manager == nullptr) {
        return;  // a tick while the slice gives way to input
    }
    Trap({kModule, "tmrInterrupt_Timer"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        m_isInSlice = true;
        modHost::YieldToInput();
        if (life.IsOver()) {
            return;
        }
        m_isInSlice = false;
        const bool isUnfinished = !m_cancelled && RunSlice(m_tickCount);
        if (!isUnfinished && !life.IsOver()) {
            Finish();
        }
    });
}

bool frmProgress::RunSlice(std::int32_t ticks) {
    const Lifetime::Watch life = m_life.Watched();
    m_isInSlice = true;
    SliceResult result = SliceResult::Failed;
    Trap({kModule, "RunSlice"}, [&] {
        if (m_isBackground) {
            const QuietLog quiet;
            result = m_manager->ReviewTimeSlice(ticks);
        } else {
            result = m_manager->ReviewTimeSlice(ticks);
        }
    });
    if (!life.IsOver()) {
        m_isInSlice = false;
    }
    return result == SliceResult::Continue;
}

void frmProgress::ReviewProgress(const ProgressInfo& progress, bool& cancel) {
    const Lifetime::Watch life = m_life.Watched();
    Trap({kModule, "ReviewProgress"}, [&] {
        if (progress.Process() != m_shown.Process) {
            m_shown.Process = progress.Process();
            Caption.Set(std::string(kCaption));
        }
        ShowAction(progress.Action());
        ShowProject(progress);
        ShowSourceFile(progress);
        ShowPercentages(progress);
        if (!progress.LogMessage().empty()) {
            lblMessage.Set(progress.LogMessage());
        }
        ProgressShown.Raise(progress);
        modHost::YieldToInput();
    });
    cancel = life.IsOver() || m_cancelled;
}

void frmProgress::ShowAction(std::int32_t action) {
    if (action == m_shown.Action) {
        return;
    }
    m_shown.Action = action;
    for (const ActionRow& row : kActions) {
        if (row.Action == action) {
            lblAction.Set(std::string(row.Text));
        }
    }
}

void frmProgress::ShowProject(const ProgressInfo& progress) {
    if (progress.ProjectName() == m_shown.ProjectName) {
        return;
    }
    m_shown.ProjectName = progress.ProjectName();
    lblProject.Set(NumberOfAll("Project", progress.CurrentProject(), progress.NumProjects()));
    lblProjectData.Set(NameWithFile(progress.ProjectName(), progress.ProjectPath()));
    prgProject.Set(0);
}

void frmProgress::ShowSourceFile(const ProgressInfo& progress) {
    if (progress.SourceFileName() == m_shown.SourceFileName) {
        return;
    }
    m_shown.SourceFileName = progress.SourceFileName();
    lblSourceFile.Set(
        NumberOfAll("Source File", progress.CurrentSourceFile(), progress.NumSourceFiles()));
    lblSourceFileData.Set(NameWithFile(progress.SourceFileName(), progress.SourceFilePath()));
    prgSourceFile.Set(0);
}

void frmProgress::ShowPercentages(const ProgressInfo& progress) {
    prgSourceFile.Set(progress.SourceFilePercentage());
    prgProject.Set(progress.ProjectPercentage());
    if (progress.ReviewPercentage() != m_shown.ReviewPercentage) {
        m_shown.ReviewPercentage = progress.ReviewPercentage();
        lblComplete.Set(std::to_string(progress.ReviewPercentage()) + "% complete.");
    }
}

void frmProgress::Finish() {
    const Lifetime::Watch life = m_life.Watched();
    const bool wasBackground = m_isBackground;
    tmrInterrupt.Enabled.Set(false);
    m_manager.reset();  // an unfinished review is abandoned by this
    m_criteria.reset();
    m_isClosed = true;
    Hide();
    Closed.Raise();
    if (wasBackground && !life.IsOver()) {
        BackgroundReviewEnded.Raise();
    }
}

/// A form that is modal is closed by the screen.
void frmProgress::Hide() {
    if (Visible.Value() && m_isBackground) {
        m_screen.Hide(*this);
    }
    Visible.Set(false);
}

}  // namespace dorvik
