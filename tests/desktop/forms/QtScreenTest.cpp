#include "workstation/forms/QtScreen.h"

#include "ModalActions.h"
#include "WindowChecks.h"
#include "workstation/dialogs/FileDialogs.h"
#include "workstation/dialogs/ReviewOptionsFixture.h"
#include "workstation/dialogs/frmAbout.h"
#include "workstation/dialogs/frmOptions.h"
#include "workstation/forms/AboutWindow.h"
#include "workstation/forms/QtMessageBox.h"
#include "workstation/forms/modFileChoice.h"
#include "workstation/forms/modPathText.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>

namespace dorvik::test {
namespace {

class QtScreenTest : public ReviewedFiles {
protected:
    static void Press(QWidget& window, QDialogButtonBox::StandardButton button) {
        window.findChild<QDialogButtonBox*>()->button(button)->click();
    }
    /// The next file dialog is left with that path of the machine.
    void ChooseInNextDialog(const std::string& path, const std::string& title) {
        m_user.Add([path, title](QWidget& window) {
            auto& dialog = dynamic_cast<QFileDialog&>(window);
            EXPECT_EQ(dialog.windowTitle().toStdString(), title);
            Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(path));
            static_cast<QDialog&>(dialog).accept();
        });
    }
    std::string HostPathOf(const std::string& name) const {
        return modTextCase::ReplaceAll(m_folder.Path(name), "\\", "/");
    }

    QtScreen m_desktop;
    ModalActions m_user;
};

// ---- forms ----

TEST_F(QtScreenTest, AModalFormIsShownUntilItIsClosed) {
    frmOptions form(m_desktop);
    m_user.Add([&](QWidget& window) {
        EXPECT_EQ(window.windowModality(), Qt::ApplicationModal);
        Press(window, QDialogButtonBox::Ok);
    });
    m_desktop.ShowModal(form);
    EXPECT_FALSE(form.Cancelled());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(QtScreenTest, ClosingTheWindowIsCancel) {
    frmReviewOptions form(m_desktop);
    form.ReviewOptions(m_criteria);
    m_user.Add([](QWidget& window) { window.close(); });
    m_desktop.ShowModal(form);
    EXPECT_TRUE(form.IsClosed());
    EXPECT_TRUE(form.Cancelled());
}

TEST_F(QtScreenTest, AFormThatIsClosedByTheProgramGoesToo) {
    frmOptions form(m_desktop);
    m_user.Add([&](QWidget&) { form.Cancel(); });
    m_desktop.ShowModal(form);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(QtScreenTest, TheEndOfTheProgramCancelsAModalForm) {
    frmOptions form(m_desktop);
    m_user.Add([](QWidget&) { QCoreApplication::exit(); });
    QTimer::singleShot(0, qApp, [&] { m_desktop.ShowModal(form); });
    QCoreApplication::exec();
    EXPECT_TRUE(form.IsClosed());
    EXPECT_TRUE(form.Cancelled());
}

TEST_F(QtScreenTest, AnOwnerThatGoesEndsTheDialogsInFrontOfIt) {
    auto owner = std::make_unique<QWidget>();
    m_desktop.SetOwner(owner.get());
    frmOptions form(m_desktop);
    m_user.Add([&](QWidget& window) {
        EXPECT_EQ(window.parentWidget(), owner.get());
        owner.reset();
        form.Cancel();
    });
    m_desktop.ShowModal(form);
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(QtScreenTest, AMessageIsInFrontOfTheDialogThatItIsAbout) {
    QtMessageBox messages;
    const ScopedInstall<IMessageBox> installed(messages);
    frmReviewOptions form(m_desktop);
    form.ReviewOptions(m_criteria);
    m_user.Add([&](QWidget& window) {
        m_user.Add([&](QWidget& box) {
            EXPECT_EQ(box.parentWidget(), &window);
            EXPECT_EQ(
                dynamic_cast<QMessageBox&>(box).text().toStdString(),
                "Please select a rulebase for the review.");
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        Press(window, QDialogButtonBox::Ok);
        EXPECT_FALSE(form.IsClosed());
        window.close();
    });
    m_desktop.ShowModal(form);
    EXPECT_TRUE(m_user.AllDone());
    EXPECT_TRUE(form.Cancelled());
}

TEST_F(QtScreenTest, AboutShowsTheProductAndItsLinks) {
    frmAbout form;
    m_user.Add([&](QWidget& window) {
        EXPECT_EQ(window.windowTitle().toStdString(), "About Dorvik Workstation");
        EXPECT_EQ(Find<QLabel>(window, "lblVersion").text().toStdString(), form.Version());
        ExpectNamed(window);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    m_desktop.ShowModal(form);
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(QtScreenTest, AboutIsUsableAtEachFontSize) {
    std::vector<std::string> opened;
    ExpectUsable([&](const auto& onPage) {
        frmAbout form;
        AboutWindow window(
            form, nullptr, [&](const std::string& address) { opened.push_back(address); });
        onPage(window);
        SavePicture(window, "about");
        Q_EMIT Find<QLabel>(window, "lnkHomePage")
            .linkActivated(QString::fromStdString(form.HomePageURL()));
    });
    EXPECT_THAT(opened, testing::ElementsAre(frmAbout().HomePageURL(), frmAbout().HomePageURL()));
}

// ---- files and folders ----

TEST_F(QtScreenTest, AFileIsChosenWithThePathsOfTheMachine) {
    ChooseInNextDialog(HostPathOf("Rules.dvk"), "Select Rulebase");
    EXPECT_EQ(
        FileDialogs(m_desktop).GetOpenFileName(FileKind::Rulebase, "Select Rulebase"),
        m_folder.Path("Rules.dvk"));
    EXPECT_TRUE(m_user.AllDone());
}

TEST_F(QtScreenTest, ADialogBeginsWhereItIsTold) {
    m_user.Add([&](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.directory().path().toStdString(), HostPathOf("Demo"));
        EXPECT_EQ(
            dialog.nameFilters().join(QLatin1Char('/')).toStdString(),
            "Dorvik Rulebases (*.dvk)/All Files (*)");
        window.close();
    });
    EXPECT_EQ(
        FileDialogs(m_desktop).GetOpenFileName(
            FileKind::Rulebase, "Select Rulebase", m_folder.Path("Demo\\modA.bas")),
        std::nullopt);
}

TEST_F(QtScreenTest, ANameWithoutAnEndingIsSavedWithTheDefaultOne) {
    ChooseInNextDialog(HostPathOf("Night"), "Save");
    EXPECT_EQ(
        FileDialogs(m_desktop).GetSaveFileName(FileKind::Batch, "Save"),
        m_folder.Path("Night.batch"));
}

TEST_F(QtScreenTest, AFolderIsChosenWithThePathsOfTheMachine) {
    m_user.Add([&](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        EXPECT_EQ(dialog.directory().path().toStdString(), HostPathOf("Demo"));
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(m_desktop.ChooseFolder("Folder", m_folder.Path("Demo")), m_folder.Path("Demo"));
}

TEST_F(QtScreenTest, AFilterIsWrittenAsTheDialogHasIt) {
    EXPECT_EQ(
        modFileChoice::FilterOf("Type Libraries (*.tlb, *.olb)|*.tlb;*.olb").toStdString(),
        "Type Libraries (*.tlb *.olb)");
    EXPECT_EQ(modFileChoice::FilterOf("All Files (*.*)|*.*").toStdString(), "All Files (*)");
}

TEST(PathTexts, GoBothWays) {
    EXPECT_EQ(modPathText::Shown("\\home\\ann\\a b").toStdString(), "/home/ann/a b");
    EXPECT_EQ(modPathText::Typed(QStringLiteral("/home/ann/a b")), "\\home\\ann\\a b");
    EXPECT_EQ(modPathText::Shown("").toStdString(), "");
    EXPECT_EQ(modPathText::Typed(QString()), "");
    EXPECT_EQ(modPathText::Shown("C:\\Rules\\a.dvk").toStdString(), "C:\\Rules\\a.dvk");
    EXPECT_EQ(modPathText::Typed(QStringLiteral("C:\\Rules\\a.dvk")), "C:\\Rules\\a.dvk");
    EXPECT_EQ(modPathText::Typed(QStringLiteral("/r/ä.dvk")), "\\r\\ä.dvk");
}

// ---- other programs ----

TEST_F(QtScreenTest, FilesAndAddressesAreOpenedByTheSystem) {
    QTextBrowser system;  // takes the addresses
    for (const char* const scheme : {"file", "https"}) {
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &system, "setSource");
    }
    EXPECT_TRUE(m_desktop.OpenWithSystem("https://example.org/help"));
    EXPECT_EQ(system.source().toString().toStdString(), "https://example.org/help");
    const std::string file = m_folder.Write("a#b c.txt", "x");
    EXPECT_TRUE(m_desktop.OpenWithSystem(m_folder.Path("a#b c.txt")));
    EXPECT_EQ(system.source().toLocalFile().toStdString(), HostPathOf("a#b c.txt"));
    m_desktop.OpenWithChoice(m_folder.Path("Demo\\modA.bas"));
    EXPECT_EQ(system.source().toLocalFile().toStdString(), HostPathOf("Demo\\modA.bas"));
    for (const char* const scheme : {"file", "https"}) {
        QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }
}

}  // namespace
}  // namespace dorvik::test
