#include "workstation/ide/IDEHelper.h"

#include "IDEFixture.h"
#include "support/ScriptedInput.h"

#include <gmock/gmock.h>

namespace dorvik::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kCode = "Option Explicit\r\n"
                                   "Private m_a As Long\r\n"
                                   "\r\n"
                                   "Public Sub First()\r\n"
                                   "    m_a = 1\r\n"
                                   "    m_a = m_a + _\r\n"
                                   "        2 + _\r\n"
                                   "        3\r\n"
                                   "End Sub\r\n"
                                   "\r\n"
                                   "Public Property Get Size() As Long\r\n"
                                   "    Size = m_a\r\n"
                                   "End Property\r\n"
                                   "\r\n"
                                   "Public Property Let Size(v As Long)\r\n"
                                   "    m_a = v\r\n"
                                   "End Property\r\n";

class IDEHelperTest : public IDEFixture {
protected:
    void SetUp() override {
        m_project = &m_host.AddProject("App", "C:\\App.vbp");
        m_code = &m_project->AddComponent("Code", kCode);
        m_ide.Initialise(m_host, m_screen);
        m_host.Calls.clear();
    }
    static Violation
    At(std::int32_t location, std::string member, std::int32_t line, std::string sourceLine) {
        Violation violation;
        violation.Location = location;
        violation.LocationMember = std::move(member);
        violation.SourceLineNumber = line;
        violation.SourceLine = std::move(sourceLine);
        return violation;
    }
    std::vector<std::string> Shown(const Violation& violation) {
        m_host.Calls.clear();
        m_ide.SelectSourceLine("App", "Code", violation);
        return m_host.Calls;
    }
    static std::vector<std::string> Line(int line) {
        const std::string number = std::to_string(line);
        return {
            "pane Code shown",
            "pane Code top " + number,
            "pane Code selection " + number + " 1 " + number + " 1",
            "pane Code focus"};
    }

    ScriptedProject* m_project = nullptr;
    ScriptedComponent* m_code = nullptr;
};

TEST_F(IDEHelperTest, TheToolWindowIsMadeWithItsNameCaptionAndNumber) {
    ASSERT_NE(m_host.LastToolWindowRequest(), nullptr);
    EXPECT_EQ(m_host.LastToolWindowRequest()->ProgrammaticId, "DVKWORK.UDOCDORVIK");
    EXPECT_EQ(m_host.LastToolWindowRequest()->Caption, "Dorvik Work Bench");
    EXPECT_EQ(m_host.LastToolWindowRequest()->Guid, "{4B82D228-1AF5-4f56-ACB8-AED7997248C4}");
    EXPECT_FALSE(m_ide.WorkbenchVisible());
}

TEST_F(IDEHelperTest, QuestionsAboutProjectsAreAnsweredByIndex) {
    m_host.AddProject("Lib", "", HostProjectType::ActiveXDll).Dirty = true;
    m_host.AddProject("Srv", "C:\\Srv.vbp", HostProjectType::ActiveXExe);
    m_host.AddProject("Ctl", "C:\\Ctl.vbp", HostProjectType::ActiveXControl);
    EXPECT_EQ(m_ide.ProjectCount(), 4);
    EXPECT_TRUE(m_ide.ProjectsOpen());
    EXPECT_EQ(m_ide.ProjectName(2), "Lib");
    EXPECT_EQ(m_ide.ProjectFileName(1), "C:\\App.vbp");
    EXPECT_EQ(m_ide.ProjectFileName(2), "");
    EXPECT_EQ(m_ide.ProjectType(1), "Exe");
    EXPECT_EQ(m_ide.ProjectType(2), "OleDll");
    EXPECT_EQ(m_ide.ProjectType(3), "OleExe");
    EXPECT_EQ(m_ide.ProjectType(4), "Control");
    EXPECT_FALSE(m_ide.ProjectDirty(1));
    EXPECT_TRUE(m_ide.ProjectDirty(2));
}

TEST_F(IDEHelperTest, AProjectNeverSavedNeedsAForcefulSave) {
    m_host.AddProject("Lib", "");
    EXPECT_FALSE(m_ide.ProjectNeedsForcefulSave("App"));
    EXPECT_TRUE(m_ide.ProjectNeedsForcefulSave("Lib"));
    EXPECT_FALSE(m_ide.ProjectNeedsSaving("App"));
    EXPECT_TRUE(m_ide.ProjectNeedsSaving("Lib"));
    m_project->Dirty = true;
    EXPECT_FALSE(m_ide.ProjectNeedsForcefulSave("App"));
    EXPECT_TRUE(m_ide.ProjectNeedsSaving("App"));
}

TEST_F(IDEHelperTest, ASaveWaitsForTheEnvironmentAndGivesWhetherThereIsAFileName) {
    ScriptedInput input;
    ScriptedProject& lib = m_host.AddProject("Lib", "");
    m_host.BusyTurns = 3;
    EXPECT_FALSE(m_ide.ExecuteVBProjectSave("Lib"));
    EXPECT_EQ(input.Yields, 3);
    m_host.OnSave = [](ScriptedProject& project) {
        project.SetFileName("C:\\Lib.vbp");
    };
    EXPECT_TRUE(m_ide.ExecuteVBProjectSave("Lib"));
    EXPECT_EQ(lib.FileName(), "C:\\Lib.vbp");
}

TEST_F(IDEHelperTest, CommandsOfTheEnvironmentAreRunByTheirNumbers) {
    m_ide.ShowVBProjectProperties();
    m_ide.ShowVBReferences();
    EXPECT_THAT(m_host.Calls, ElementsAre("command 2578", "command 942"));
}

TEST_F(IDEHelperTest, AMenuIsFoundByItsCaption) {
    EXPECT_EQ(m_ide.FindMenu("D&orvik"), m_ide.DorvikMenus()->DorvikMenu());
    EXPECT_EQ(m_ide.FindMenu("No such menu"), nullptr);
}

TEST_F(IDEHelperTest, AnUnknownProjectIsLoggedUnderTheOperation) {
    EXPECT_FALSE(m_ide.ProjectNeedsSaving("Other"));
    EXPECT_THAT(m_log.Entries(), ElementsAre(HasSubstr("IDEHelper::ProjectNeedsSaving")));
}

// ---- source lines ----

TEST_F(IDEHelperTest, ALineThatIsWhereItWasIsShown) {
    EXPECT_EQ(Shown(At(4, "First", 5, "    m_a = 1")), Line(5));
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
}

TEST_F(IDEHelperTest, ALineContinuedOverThreeLinesIsFoundByItsFirst) {
    const std::string statement = "    m_a = m_a + _\r\n        2 + _\r\n        3";
    EXPECT_EQ(Shown(At(4, "First", 6, statement)), Line(6));
    EXPECT_EQ(Shown(At(4, "First", 5, statement)), Line(6));
}

TEST_F(IDEHelperTest, ALineThatMovedWithinItsProcedureIsFound) {
    m_code->CodeModule().SetText("Option Explicit\r\n\r\nPublic Sub First()\r\n    ' new\r\n    ' "
                                 "more\r\n    m_a = 1\r\nEnd Sub\r\n");
    EXPECT_EQ(Shown(At(4, "First", 5, "    m_a = 1")), Line(6));
}

TEST_F(IDEHelperTest, ALineThatDiffersInCaseStillMatchesInPlace) {
    EXPECT_EQ(Shown(At(4, "First", 5, "    M_A = 1")), Line(5));
}

TEST_F(IDEHelperTest, ABlankLineAtTheStoredPlaceIsNoMatch) {
    EXPECT_EQ(Shown(At(4, "First", 10, "    m_a = 1")), Line(5));
}

TEST_F(IDEHelperTest, AMovedLineOfTheDeclarationsIsSoughtThereOnly) {
    m_code->CodeModule().SetText("Option Explicit\r\n\r\nPublic Sub First()\r\n    Dim x\r\n    "
                                 "Private m_a As Long\r\nEnd Sub\r\n");
    EXPECT_THAT(Shown(At(3, "(Declarations)", 2, "Private m_a As Long")), IsEmpty());
    ASSERT_EQ(m_boxes.Messages.size(), 1U);
    m_code->CodeModule().SetText("Option Explicit\r\nPrivate b As Long\r\nPrivate m_a As "
                                 "Long\r\n\r\nPublic Sub First()\r\nEnd Sub\r\n");
    EXPECT_EQ(Shown(At(3, "(Declarations)", 2, "Private m_a As Long")), Line(3));
}

TEST_F(IDEHelperTest, ALineThatIsGoneIsReported) {
    EXPECT_THAT(Shown(At(4, "First", 5, "    m_a = 99")), IsEmpty());
    EXPECT_THAT(
        m_boxes.Messages,
        ElementsAre(MessageText{
            MessageIcon::Information,
            "Dorvik Workstation",
            "The source line containing the violation cannot be found in the source and may have "
            "been deleted or modified to such an extent that it is no longer recognisable as the "
            "same line. You should review the source again to update/remove obsolete violations "
            "from the results."}));
}

TEST_F(IDEHelperTest, AViolationWithoutALineShowsItsProcedure) {
    EXPECT_EQ(Shown(At(4, "First", 0, "")), Line(3));
    EXPECT_EQ(Shown(At(6, "Size", 0, "")), Line(10));
    EXPECT_EQ(Shown(At(7, "Size", 0, "")), Line(14));
    EXPECT_EQ(Shown(At(3, "(Declarations)", 0, "")), Line(1));
}

TEST_F(IDEHelperTest, AProcedureThatIsGoneIsReported) {
    EXPECT_THAT(Shown(At(8, "Size", 0, "")), IsEmpty());
    EXPECT_THAT(
        m_boxes.Messages,
        ElementsAre(MessageText{
            MessageIcon::Information,
            "Dorvik Workstation",
            "The procedure containing the violation cannot be found in the source and may have "
            "been deleted. You should review the source again to remove obsolete violations from "
            "the results."}));
}

TEST_F(IDEHelperTest, AnUnknownFileIsLoggedAndNothingHappens) {
    m_ide.SelectSourceLine("App", "Other", At(4, "First", 5, "x"));
    EXPECT_THAT(m_host.Calls, IsEmpty());
    EXPECT_THAT(m_boxes.Messages, IsEmpty());
    EXPECT_THAT(m_log.Entries(), ElementsAre(HasSubstr("IDEHelper::SelectSourceLine")));
}

TEST_F(IDEHelperTest, AProcedureIsShownByNameAndType) {
    m_ide.SelectProcedureStartLine("App", "Code", "Size", "Property Let");
    EXPECT_EQ(m_host.Calls, Line(14));
    m_host.Calls.clear();
    m_ide.SelectProcedureStartLine("App", "Code", "Size", "Property Get");
    EXPECT_EQ(m_host.Calls, Line(10));
    m_host.Calls.clear();
    m_ide.SelectProcedureStartLine("App", "Code", "First", "Sub");
    EXPECT_EQ(m_host.Calls, Line(3));
    m_host.Calls.clear();
    m_ide.SelectProcedureStartLine("App", "Code", "", "");
    EXPECT_EQ(m_host.Calls, Line(1));
}

TEST_F(IDEHelperTest, AnUnknownProcedureIsALoggedError) {
    m_ide.SelectProcedureStartLine("App", "Code", "Gone", "Sub");
    EXPECT_THAT(m_log.Entries(), ElementsAre(HasSubstr("IDEHelper::SelectProcedureStartLine")));
}

// ---- designers ----

TEST_F(IDEHelperTest, AControlIsSelectedOnItsDesignerAndNoOther) {
    ScriptedDesigner& form = m_project->AddComponent("Form1").MakeForm();
    form.AddControl("Text1", 2);
    form.AddControl("Text1", 3);
    form.AddControl("Button").SetSelected(true);
    m_host.Calls.clear();
    m_ide.DisplayDesigner("App", "Form1", At(5, "Text1(3)", 0, ""));
    EXPECT_THAT(
        m_host.Calls,
        ElementsAre(
            "designer Form1 shown", "designer Form1 focus", "deselect Button", "select Text1(3)"));
}

TEST_F(IDEHelperTest, AControlWithoutAnIndexIsSelectedByItsName) {
    ScriptedDesigner& form = m_project->AddComponent("Form1").MakeForm();
    form.AddControl("Button");
    m_host.Calls.clear();
    m_ide.DisplayDesigner("App", "Form1", At(5, "button", 0, ""));
    m_ide.DisplayDesigner("App", "Form1", At(5, "Gone", 0, ""));
    EXPECT_THAT(
        m_host.Calls,
        ElementsAre(
            "designer Form1 shown",
            "designer Form1 focus",
            "select Button",
            "designer Form1 shown",
            "designer Form1 focus",
            "deselect Button"));
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

TEST_F(IDEHelperTest, TheLayoutShowsTheDesignerWithNothingSelected) {
    ScriptedDesigner& form = m_project->AddComponent("Form1").MakeForm();
    form.AddControl("Button").SetSelected(true);
    m_host.Calls.clear();
    m_ide.DisplayDesigner("App", "Form1", At(2, "", 0, ""));
    EXPECT_THAT(
        m_host.Calls,
        ElementsAre("designer Form1 shown", "designer Form1 focus", "deselect Button"));
}

TEST_F(IDEHelperTest, ADesignerThatIsNoFormsHasNoSelection) {
    ScriptedDesigner& other = m_project->AddComponent("Env").MakeForm();
    other.IsForm = false;
    other.AddControl("Button").SetSelected(true);
    m_host.Calls.clear();
    m_ide.DisplayDesigner("App", "Env", At(5, "Button", 0, ""));
    EXPECT_THAT(m_host.Calls, ElementsAre("designer Env shown", "designer Env focus"));
}

// ---- events ----

TEST_F(IDEHelperTest, BeforeTheListenersAreActivatedNoEventArrives) {
    int raised = 0;
    const Subscription added = m_ide.ProjectAdded.Subscribe(
        [&](const std::string&, const std::string&, const std::string&) { ++raised; });
    m_host.AddProject("Lib", "C:\\Lib.vbp");
    EXPECT_EQ(raised, 0);
}

TEST_F(IDEHelperTest, ChangesOfTheOpenProjectsArePassedOn) {
    m_ide.ActivateEventsListeners();
    std::vector<std::string> raised;
    const Subscription added = m_ide.ProjectAdded.Subscribe(
        [&](const std::string& name, const std::string& file, const std::string& type) {
            raised.push_back("added " + name + " " + file + " " + type);
        });
    const Subscription removed = m_ide.ProjectRemoved.Subscribe(
        [&](const std::string& name) { raised.push_back("removed " + name); });
    const Subscription renamed =
        m_ide.ProjectRenamed.Subscribe([&](const std::string& oldName, const std::string& newName) {
            raised.push_back("renamed " + oldName + " " + newName);
        });
    m_host.AddProject("Lib", "C:\\Lib.vbp", HostProjectType::ActiveXDll);
    m_host.RenameProject("Lib", "Library");
    m_host.RemoveProject("Library");
    EXPECT_THAT(
        raised,
        ElementsAre("added Lib C:\\Lib.vbp OleDll", "renamed Lib Library", "removed Library"));
}

TEST_F(IDEHelperTest, AddingAndRemovingRefreshTheMenus) {
    m_ide.ActivateEventsListeners();
    CommandControl& review = *m_ide.DorvikMenus()->DorvikMenu()->FindTag("DORVIK.REVIEW");
    m_host.RemoveProject("App");
    EXPECT_FALSE(review.Look().Enabled);
    m_host.AddProject("Lib", "C:\\Lib.vbp");
    EXPECT_TRUE(review.Look().Enabled);
}

TEST_F(IDEHelperTest, RefreshedMenusKnowOfAReviewInTheBackground) {
    m_ide.SetReviewRunning(true);
    m_ide.RefreshMenus();
    EXPECT_FALSE(m_ide.DorvikMenus()->DorvikMenu()->FindTag("DORVIK.RBDOC")->Look().Enabled);
}

TEST_F(IDEHelperTest, TheBenchIsShownAndHidden) {
    m_ide.SetWorkbenchVisible(true);
    EXPECT_TRUE(m_ide.WorkbenchVisible());
    EXPECT_TRUE(m_ide.DorvikUserDocument()->Results().WorkbenchVisible());
    m_ide.SetWorkbenchVisible(false);
    EXPECT_FALSE(m_ide.DorvikUserDocument()->Results().WorkbenchVisible());
}

TEST_F(IDEHelperTest, ShowingTheBenchRefreshesTheMenus) {
    CommandControl& open = *m_ide.DorvikMenus()->DorvikMenu()->FindTag("DORVIK.OPEN");
    open.SetEnabled(false);
    m_ide.SetWorkbenchVisible(true);
    EXPECT_TRUE(open.Look().Enabled);
}

TEST_F(IDEHelperTest, AfterTheEndNothingIsLeft) {
    m_ide.ActivateEventsListeners();
    m_ide.TerminateDorvik();
    EXPECT_EQ(m_ide.DorvikUserDocument(), nullptr);
    EXPECT_EQ(m_ide.DorvikMenus(), nullptr);
    EXPECT_EQ(m_host.ToolWindow(), nullptr);
    m_host.AddProject("Lib", "C:\\Lib.vbp");
    m_ide.TerminateDorvik();
    EXPECT_THAT(m_log.Entries(), IsEmpty());
}

}  // namespace
}  // namespace dorvik::test
