#pragma once

#include "workstation/controls/Event.h"
#include "workstation/controls/Lifetime.h"
#include "workstation/controls/Observable.h"
#include "workstation/controls/Timer.h"

#include <cstdint>
#include <memory>
#include <string>

namespace dorvik {

class IScreen;
class ITypeLibrarySource;
class ProgressInfo;
class ReviewCriteria;
class ReviewManager;

/// Runs one review and shows how far it has come: in the foreground the user is held until the review is over, in the
/// background it advances by a slice with each tick of the timer. A form is for one review. Needs the objects of
/// `modGlobal`.
class frmProgress {
public:
    /// REQUIRES: `screen` outlives this.
    explicit frmProgress(IScreen& screen);
    /// A review that is still running is abandoned, and a form that is shown is hidden.
    ~frmProgress();
    frmProgress(const frmProgress&) = delete;
    frmProgress& operator=(const frmProgress&) = delete;

    /// Where the projects' type libraries come from; null, as at first, for nowhere. REQUIRES: it outlives this.
    void SetTypeLibraries(ITypeLibrarySource* typeLibraries) { m_typeLibraries = typeLibraries; }

    /// Shows the form as modal. A foreground review is over when this comes back; a background review has only begun,
    /// and `BackgroundReviewEnded` reports its end. A review that cannot be initialised never shows the form.
    void CommenceReview(std::shared_ptr<ReviewCriteria> criteria);
    /// The review ends at the next point where it gives way to the host. The same as `Cancel`.
    void AbortBackgroundReview() { Cancel(); }
    /// The form was shown. Only the first time counts: a foreground review runs to its end in this call.
    void Activate();
    /// The Cancel button.
    void Cancel() { m_cancelled = true; }

    /// What the review reports: shows what has changed and gives way to the host. `cancel` is set once the user has
    /// cancelled.
    void ReviewProgress(const ProgressInfo& progress, bool& cancel);

    /// The review is over, and the form with it.
    bool IsClosed() const { return m_isClosed; }
    Event<> Closed;
    /// After `Closed`, for a background review. A handler may destroy the form.
    Event<> BackgroundReviewEnded;
    /// The texts and bars have been brought up to date.
    Event<const ProgressInfo&> ProgressShown;

    Timer tmrInterrupt;
    Observable<bool> Visible;
    Observable<std::string> Caption;
    Observable<std::string> lblAction;
    Observable<std::string> lblProject;
    Observable<std::string> lblProjectData;
    Observable<std::string> lblSourceFile;
    Observable<std::string> lblSourceFileData;
    Observable<std::int32_t> prgProject;     // per cent
    Observable<std::int32_t> prgSourceFile;  // per cent, may pass 100
    Observable<std::string> lblComplete;
    Observable<std::string> lblMessage;

private:
    /// What was shown last, so that only changes are.
    struct Shown {
        std::int32_t Process = 0;
        std::int32_t Action = 0;
        std::string ProjectName;
        std::string SourceFileName;
        std::int16_t ReviewPercentage = 0;
    };

    void RunForegroundReview();
    void BeginBackgroundReview();
    void tmrInterrupt_Timer();
    /// True where the review is not over.
    bool RunSlice(std::int32_t ticks);
    void ShowAction(std::int32_t action);
    void ShowProject(const ProgressInfo& progress);
    void ShowSourceFile(const ProgressInfo& progress);
    void ShowPercentages(const ProgressInfo& progress);
    void Finish();
    void Hide();

    IScreen& m_screen;
    ITypeLibrarySource* m_typeLibraries = nullptr;
    std::shared_ptr<ReviewCriteria> m_criteria;
    std::unique_ptr<ReviewManager> m_manager;  // null before the review and after it
    std::int16_t m_tickCount = 0;
    bool m_isBackground = false;
    bool m_wasActivated = false;
    bool m_isInSlice = false;
    bool m_cancelled = false;
    bool m_isClosed = false;
    Shown m_shown;
    Lifetime m_life;  // the form may go while input is processed
    Subscription m_onTick;
};

}  // namespace dorvik
