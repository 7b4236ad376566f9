#include "workstation/dialogs/frmProgress.h"

#include "criteria/ProgressInfo.h"
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

#include <array>
#include <chrono>
#include <cstddef>
#include <string_view>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmProgress";
constexpr std::string_view kCaption = "Review Progress";
constexpr std::chrono::milliseconds kTickInterval{10};

/// By action from 1.
constexpr std::array<std::string_view, 7> kActions{
    "Loading rulebase...",
    "Reviewing source code...",
    "Generating report...",
    "Extracting global names...",
    "Loading references...",
    "Initialising project review...",
    "Loading components..."};

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
      m_life(std::make_shared<const bool>(true)),
      m_onTick(tmrInterrupt.Ticked.Subscribe([this] { tmrInterrupt_Timer(); })) {}

frmProgress::~frmProgress() {
    if (Visible.Value()) {
        Trap({kModule, "frmProgress"}, [&] { m_screen.Hide(*this); });
    }
}

void frmProgress::CommenceReview(std::shared_ptr<ReviewCriteria> criteria) {
    Trap({kModule, "CommenceReview"}, [&] {
        m_manager = std::make_unique<ReviewManager>();
        m_manager->SetTypeLibraries(m_typeLibraries);
        m_manager->SetProgressHandler([this, life = std::weak_ptr<const bool>(m_life)](
                                          const ProgressInfo& progress, bool& cancel) {
            if (life.expired()) {
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
    const std::weak_ptr<const bool> life = m_life;
    RunSlice(kWholeReview);
    if (!life.expired()) {
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
        const std::weak_ptr<const bool> life = m_life;
        m_isInSlice = true;
        modHost::YieldToInput();
        if (life.expired()) {
            return;
        }
        m_isInSlice = false;
        const bool isUnfinished = !m_cancelled && RunSlice(m_tickCount);
        if (!isUnfinished && !life.expired()) {
            Finish();
        }
    });
}

bool frmProgress::RunSlice(std::int32_t ticks) {
    const std::weak_ptr<const bool> life = m_life;
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
    if (!life.expired()) {
        m_isInSlice = false;
    }
    return result == SliceResult::Continue;
}

void frmProgress::ReviewProgress(const ProgressInfo& progress, bool& cancel) {
    const std::weak_ptr<const bool> life = m_life;
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
    cancel = life.expired() || m_cancelled;
}

void frmProgress::ShowAction(std::int32_t action) {
    if (action == m_shown.Action) {
        return;
    }
    m_shown.Action = action;
    if (action >= 1 && static_cast<std::size_t>(action) <= kActions.size()) {
        lblAction.Set(std::string(kActions[static_cast<std::size_t>(action) - 1]));
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
    const std::weak_ptr<const bool> life = m_life;
    const bool wasBackground = m_isBackground;
    tmrInterrupt.Enabled.Set(false);
    m_manager.reset();  // an unfinished review is abandoned by this
    m_criteria.reset();
    m_isClosed = true;
    if (Visible.Value() && wasBackground) {
        m_screen.Hide(*this);
    }
    Visible.Set(false);
    Closed.Raise();
    if (wasBackground && !life.expired()) {
        BackgroundReviewEnded.Raise();
    }
}

}  // namespace dorvik
