#include "workstation/dialogs/FileDialogs.h"

#include "DialogsFixture.h"
#include "workstation/dialogs/frmAbout.h"
#include "workstation/dialogs/modItemIcons.h"

#include <gmock/gmock.h>

namespace dorvik {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileDialogsOfKinds : public test::DialogsFixture {
protected:
    std::vector<std::string> FiltersOf(int kind) {
        FileDialogs(m_screen).GetOpenFileName(static_cast<FileKind>(kind), "Title");
        return m_screen.Requests.back().Filters;
    }
};

TEST_F(FileDialogsOfKinds, EachKindHasItsFilters) {
    const std::string all = "All Files (*.*)|*.*";
    const std::string projects = "VB Projects (*.vbp)|*.vbp";
    const std::string groups = "VB Project Groups (*.vbg)|*.vbg";
    EXPECT_THAT(FiltersOf(1), ElementsAre("Dorvik Rulebases (*.dvk)|*.dvk", all));
    EXPECT_THAT(FiltersOf(2), ElementsAre("Dorvik Batch Files (*.batch)|*.batch"));
    EXPECT_THAT(FiltersOf(3), ElementsAre(projects));
    EXPECT_THAT(FiltersOf(4), ElementsAre(groups));
    EXPECT_THAT(FiltersOf(5), ElementsAre(projects, groups));
    EXPECT_THAT(FiltersOf(6), ElementsAre("ActiveX Controls (*.ocx)|*.ocx"));
    EXPECT_THAT(
        FiltersOf(7),
        ElementsAre(
            "Dynamic Link Libraries (*.dll)|*.dll",
            "Applications (*.exe)|*.exe",
            "Type Libraries (*.tlb, *.olb)|*.tlb;*.olb"));
    EXPECT_THAT(FiltersOf(8), ElementsAre("Log Files (*.log)|*.log", all));
    EXPECT_THAT(FiltersOf(9), ElementsAre("Results Databases (*.mdb)|*.mdb"));
    EXPECT_THAT(FiltersOf(10), IsEmpty());
    EXPECT_THAT(FiltersOf(11), ElementsAre("Rulebase Documents (*.html)|*.html", all));
}

TEST_F(FileDialogsOfKinds, DefaultExtensionsAreAddedWhenSavingAndToLogsAlways) {
    FileDialogs dialogs(m_screen);
    for (const FileKind kind :
         {FileKind::Rulebase, FileKind::Batch, FileKind::Log, FileKind::Project}) {
        dialogs.GetOpenFileName(kind, "Title");
    }
    dialogs.GetSaveFileName(FileKind::Rulebase, "Title");
    dialogs.GetSaveFileName(FileKind::Batch, "Title");
    std::vector<std::string> extensions;
    for (const FileRequest& request : m_screen.Requests) {
        extensions.push_back(request.DefaultExtension);
    }
    EXPECT_THAT(extensions, ElementsAre("", "", "*.log", "", "*.dvk", "*.batch"));
}

TEST_F(FileDialogsOfKinds, OnlyRulebasesAndBatchFilesAreSaved) {
    m_screen.Chosen = "\\chosen";
    FileDialogs dialogs(m_screen);
    EXPECT_EQ(dialogs.GetSaveFileName(FileKind::Batch, "Save", "\\here"), "\\chosen");
    EXPECT_TRUE(m_screen.Requests.back().ForSaving);
    EXPECT_EQ(m_screen.Requests.back().Title, "Save");
    EXPECT_EQ(m_screen.Requests.back().StartAt, "\\here");
    EXPECT_EQ(dialogs.GetSaveFileName(FileKind::Log, "Save"), std::nullopt);
    EXPECT_EQ(m_screen.Requests.size(), 1U);
}

TEST_F(FileDialogsOfKinds, ACancelledDialogChoosesNothing) {
    EXPECT_EQ(
        FileDialogs(m_screen).GetOpenFileName(FileKind::ResultsDatabase, "Open"), std::nullopt);
    EXPECT_FALSE(m_screen.Requests.back().ForSaving);
}

class AboutForm : public test::DialogsFixture {};

TEST_F(AboutForm, ShowsTheInstallationUntilItIsClosed) {
    modGlobal::Data().SetProductVersion("6.02.0001");
    modGlobal::Data().SetHomePageURL("http://home");
    modGlobal::Data().SetTechSupportPageURL("http://support");
    frmAbout form;
    EXPECT_EQ(form.ProductName(), "Dorvik Workstation");
    EXPECT_EQ(form.Caption(), "About Dorvik Workstation");
    EXPECT_EQ(form.Version(), "Version 6.02.0001");
    EXPECT_EQ(form.HomePageURL(), "http://home");
    EXPECT_EQ(form.TechSupportPageURL(), "http://support");
    int closed = 0;
    const Subscription heard = form.Closed.Subscribe([&] { ++closed; });
    EXPECT_FALSE(form.IsClosed());
    form.Ok();
    EXPECT_TRUE(form.IsClosed());
    EXPECT_EQ(closed, 1);
}

TEST(ItemIcons, ProjectsHaveTheIconOfTheirType) {
    using modItemIcons::ProjectIconKeyFromType;
    EXPECT_EQ(ProjectIconKeyFromType("OleDll"), "AXDLL");
    EXPECT_EQ(ProjectIconKeyFromType("OleExe"), "AXEXE");
    EXPECT_EQ(ProjectIconKeyFromType("exe"), "STDEXE");
    EXPECT_EQ(ProjectIconKeyFromType("Control"), "AXCONTROL");
    EXPECT_EQ(ProjectIconKeyFromType("Other"), "OTHER");
    EXPECT_EQ(ProjectIconKeyFromType(""), "OTHER");
}

TEST(ItemIcons, SourceFilesHaveTheIconOfTheirType) {
    for (const std::string_view type :
         {"Class",
          "Form",
          "Designer",
          "Module",
          "PropertyPage",
          "UserDocument",
          "UserControl",
          "MDIForm"}) {
        EXPECT_EQ(modItemIcons::IconFromSourceFileType(type), type);
    }
    EXPECT_EQ(modItemIcons::IconFromSourceFileType("Project"), "OTHER");
}

}  // namespace
}  // namespace dorvik
