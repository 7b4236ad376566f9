#include "workstation/forms/ProgressWindow.h"

#include "WindowChecks.h"
#include "criteria/ProgressInfo.h"
#include "workstation/dialogs/ReviewedFiles.h"
#include "workstation/forms/EventLoopInput.h"
#include "workstation/forms/QtScreen.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>

namespace dorvik::test {
namespace {

class ProgressWindowTest : public ReviewedFiles {
protected:
    ProgressWindowTest() {
        ChooseEverything();
        Settings().BackgroundTickCount = 1;
    }

    static ProgressWindow* Shown() {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            auto* const window = dynamic_cast<ProgressWindow*>(widget);
            if (window != nullptr && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    /// The review gives way to input with every step, instead of from time to time.
    void WaitInEachStep() {
        m_slow = m_form->ProgressShown.Subscribe([](const ProgressInfo&) { QTest::qSleep(16); });
    }
    void Commence(bool inBackground) {
        m_criteria->SetBackgroundReview(inBackground);
        m_form->CommenceReview(m_criteria);
    }
    bool WaitForTheEnd() {
        return QTest::qWaitFor([&] { return m_form == nullptr || m_form->IsClosed(); });
    }

    QtScreen m_desktop;
    EventLoopInput m_input;
    ScopedInstall<IHostInput> m_installedInput{m_input};
    std::unique_ptr<frmProgress> m_form = std::make_unique<frmProgress>(m_desktop);
    Subscription m_slow;
};

TEST_F(ProgressWindowTest, AForegroundReviewIsShownAsModalAndGoesWithItsEnd) {
    bool isModal = false;
    const Subscription heard = m_form->lblAction.Changed.Subscribe([&](const std::string&) {
        isModal = Shown() != nullptr && QApplication::activeModalWidget() == Shown();
    });
    Commence(/*inBackground=*/false);
    EXPECT_TRUE(isModal);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_TRUE(HasResults());
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(ProgressWindowTest, TheTextsAndBarsAreThoseOfTheReview) {
    WaitInEachStep();
    std::vector<std::string> files;
    int farthest = 0;
    const Subscription heard = m_form->ProgressShown.Subscribe([&](const ProgressInfo&) {
        EXPECT_EQ(Shown()->windowTitle().toStdString(), "Review Progress");
        const std::string file = Find<QLabel>(*Shown(), "lblSourceFileData").text().toStdString();
        if (files.empty() || files.back() != file) {
            files.push_back(file);
        }
        farthest = std::max(farthest, Find<QProgressBar>(*Shown(), "prgProject").value());
    });
    Commence(/*inBackground=*/false);
    EXPECT_THAT(files, testing::Contains("modA (modA.bas)"));
    EXPECT_THAT(files, testing::Contains("clsB (clsB.cls)"));
    EXPECT_GT(farthest, 50);
}

TEST_F(ProgressWindowTest, TheCancelButtonEndsAForegroundReview) {
    WaitInEachStep();
    bool wasPressed = false;
    QTimer::singleShot(30, qApp, [&] {
        wasPressed = true;
        QPushButton* const cancel = Shown()->findChild<QPushButton*>();
        QTest::mouseClick(cancel, Qt::LeftButton);
        EXPECT_FALSE(cancel->isEnabled());
        EXPECT_TRUE(Shown()->isVisible()) << "it stays until the review gives way";
    });
    Commence(/*inBackground=*/false);
    EXPECT_TRUE(wasPressed);
    EXPECT_TRUE(m_form->IsClosed());
    EXPECT_FALSE(HasResults());
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(ProgressWindowTest, EscapeAndClosingEndAReviewToo) {
    for (const bool byKey : {true, false}) {
        m_form = std::make_unique<frmProgress>(m_desktop);
        WaitInEachStep();
        QTimer::singleShot(30, qApp, [&] {
            if (byKey) {
                QTest::keyClick(Shown(), Qt::Key_Escape);
            } else {
                Shown()->close();
            }
        });
        Commence(/*inBackground=*/false);
        EXPECT_TRUE(m_form->IsClosed());
        EXPECT_FALSE(HasResults());
    }
}

TEST_F(ProgressWindowTest, ABackgroundReviewComesBackAtOnceAndRunsOnItsTimer) {
    int ended = 0;
    const Subscription heard = m_form->BackgroundReviewEnded.Subscribe([&] { ++ended; });
    Commence(/*inBackground=*/true);
    ASSERT_FALSE(m_form->IsClosed());
    ASSERT_NE(Shown(), nullptr);
    EXPECT_EQ(Shown()->windowModality(), Qt::NonModal);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(WaitForTheEnd());
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_TRUE(HasResults());
}

TEST_F(ProgressWindowTest, EscapeEndsABackgroundReview) {
    Commence(/*inBackground=*/true);
    QTest::keyClick(Shown(), Qt::Key_Escape);
    EXPECT_FALSE(m_form->IsClosed());
    EXPECT_TRUE(WaitForTheEnd());
    EXPECT_FALSE(HasResults());
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(ProgressWindowTest, AHandlerOfTheEndMayDestroyTheForm) {
    const Subscription heard = m_form->BackgroundReviewEnded.Subscribe([&] { m_form.reset(); });
    Commence(/*inBackground=*/true);
    EXPECT_TRUE(WaitForTheEnd());
    EXPECT_EQ(m_form, nullptr);
    EXPECT_EQ(Shown(), nullptr);
    QTest::qWait(30);
}

TEST_F(ProgressWindowTest, AFormThatGoesTakesItsWindowWithIt) {
    Commence(/*inBackground=*/true);
    QTest::qWait(20);
    m_form.reset();
    EXPECT_EQ(Shown(), nullptr);
    QTest::qWait(30);
    EXPECT_FALSE(HasResults());
}

TEST_F(ProgressWindowTest, AFormMayGoInAHandlerOfItsWindow) {
    Commence(/*inBackground=*/true);
    QPushButton* const cancel = Shown()->findChild<QPushButton*>();
    QObject::connect(cancel, &QPushButton::clicked, cancel, [&] { m_form.reset(); });
    cancel->click();
    EXPECT_EQ(m_form, nullptr);
    QTest::qWait(30);
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(ProgressWindowTest, AnOwnerThatGoesTakesTheWindowOfABackgroundReview) {
    auto owner = std::make_unique<QWidget>();
    m_desktop.SetOwner(owner.get());
    Commence(/*inBackground=*/true);
    ASSERT_NE(Shown(), nullptr);
    EXPECT_EQ(Shown()->parentWidget(), owner.get());
    owner.reset();
    EXPECT_EQ(Shown(), nullptr);
    m_form.reset();
}

TEST_F(ProgressWindowTest, AFigureBeyondTheWholeIsTheWhole) {
    ProgressWindow window(*m_form, nullptr);
    m_form->prgSourceFile.Set(200);
    QProgressBar& bar = Find<QProgressBar>(window, "prgSourceFile");
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() == 100; }));
}

TEST_F(ProgressWindowTest, TheWindowIsUsableAtEachFontSize) {
    m_form->lblAction.Set("Initialising project review...");
    m_form->lblProject.Set("Project: (1 of 2)");
    m_form->lblProjectData.Set("Billing (Billing.vbp)");
    m_form->lblSourceFile.Set("Source File: (17 of 211)");
    m_form->lblSourceFileData.Set("frmInvoiceOverview (InvoiceOverview.frm)");
    m_form->lblComplete.Set("43% complete.");
    m_form->prgProject.Set(43);
    m_form->prgSourceFile.Set(70);
    ExpectUsable([&](const auto& onPage) {
        ProgressWindow window(*m_form, nullptr);
        onPage(window);
        SavePicture(window, "progress");
    });
}

TEST_F(ProgressWindowTest, ALongNameIsShortenedAndWholeInItsTip) {
    m_form->lblSourceFileData.Set(std::string(300, 'x') + ".frm");
    ProgressWindow window(*m_form, nullptr);
    window.show();
    EXPECT_LT(window.width(), window.fontMetrics().horizontalAdvance(QLatin1Char('x')) * 200);
}

}  // namespace
}  // namespace dorvik::test
