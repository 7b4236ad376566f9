#pragma once

#include "Fallbacks.h"
#include "workstation/session/SessionRefusal.h"
#include "workstation/session/modSessionWords.h"

#include <QPointer>

#include <functional>
#include <map>
#include <memory>
#include <string>

class QAbstractButton;
class QLineEdit;
class QWidget;

namespace dorvik {
class FormWindow;
class frmAbout;
class frmOptions;
class frmProgress;
class frmReviewOptions;
class frmReviewSummary;
}  // namespace dorvik

namespace dorvik::test {

/// The windows of the forms of a session, and the hands that fill them in. Windows show what their forms have after each
/// step, or a test fails. No event loop runs: a review in the background takes its steps from the script alone.
class FormHands {
public:
    /// REQUIRES: `fallbacks` outlives this.
    explicit FormHands(Fallbacks& fallbacks);
    ~FormHands();
    FormHands(const FormHands&) = delete;
    FormHands& operator=(const FormHands&) = delete;

    void Show(frmAbout& form);
    void Show(frmOptions& form);
    void Show(frmReviewOptions& form);
    void Show(frmProgress& form);
    void Show(frmReviewSummary& form);
    void Drop(const void* form);

    bool Step(const SessionWords& words, frmAbout& form);
    bool Step(const SessionWords& words, frmOptions& form);
    bool Step(const SessionWords& words, frmReviewOptions& form);
    /// The summary that is open.
    bool Summary(const SessionWords& words, SessionRefusal& refusal);
    /// The progress of a review in the background.
    bool CancelReview();
    void Compare();
    bool ShowsProgress() const { return m_progress != nullptr; }

private:
    struct Shown {
        std::unique_ptr<FormWindow> Window;
        std::function<void()> Compare;
    };

    void Keep(const void* form, std::unique_ptr<FormWindow> window, std::function<void()> compare);
    FormWindow& WindowOf(const void* form) const;
    /// OK or Cancel.
    static bool Leave(const SessionWords& words, QWidget& window);
    bool SetButton(QWidget& window, const std::string& name, bool checked);
    bool SetText(QWidget& window, const std::string& name, const std::string& text);
    bool SetPath(QWidget& window, const std::string& name, const std::string& word);
    bool SetMarks(const SessionWords& words, frmReviewOptions& form);
    QLineEdit* Reachable(QWidget& window, const std::string& name);

    Fallbacks& m_fallbacks;
    std::map<const void*, Shown> m_shown;
    frmReviewSummary* m_summary = nullptr;
    frmProgress* m_progress = nullptr;
};

}  // namespace dorvik::test
