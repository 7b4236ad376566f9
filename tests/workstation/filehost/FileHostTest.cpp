#include "workstation/filehost/FileHost.h"

#include "base/BasicError.h"
#include "support/CapturedLog.h"
#include "support/RecordingMessageBox.h"
#include "workstation/filehost/HostFolder.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

using test::HostFolder;
using Texts = std::vector<std::string>;

/// What the environment's events say, each as a text.
class EventTexts {
public:
    explicit EventTexts(HostEvents& events) {
        Take(events.ProjectActivated.Subscribe(
            [this](IHostProject& project) { Said.push_back("activated " + project.Name()); }));
        Take(events.ProjectAdded.Subscribe(
            [this](IHostProject& project) { Said.push_back("added " + project.Name()); }));
        Take(events.ProjectRemoved.Subscribe(
            [this](const std::string& name) { Said.push_back("removed " + name); }));
        Take(events.ProjectRenamed.Subscribe([this](IHostProject& project, const std::string& old) {
            Said.push_back("renamed " + old + " " + project.Name());
        }));
        Take(
            events.FileRenamed.Subscribe([this](IHostComponent& component, const std::string& old) {
                Said.push_back("renamed file " + old + " " + component.Name());
            }));
        Take(events.AfterChangeFileName.Subscribe(
            [this](IHostProject& project, HostFileType type, const std::string& file) {
                Said.push_back(
                    "file " + project.Name() + " " + std::to_string(static_cast<int>(type)) + " " +
                    file.substr(file.find_last_of('\\') + 1));
            }));
        Take(
            events.FileSelected.Subscribe([this](IHostProject& project, IHostComponent& component) {
                Said.push_back("selected " + project.Name() + " " + component.Name());
            }));
    }

    Texts Said;

private:
    void Take(Subscription subscription) { m_subscriptions.push_back(std::move(subscription)); }

    std::vector<Subscription> m_subscriptions;
};

Texts NamesOf(FileProject& project) {
    Texts names;
    for (std::int32_t index = 1; index <= project.ComponentCount(); ++index) {
        names.push_back(project.Component(index).Name());
    }
    return names;
}

template <typename Action>
std::int32_t ErrorOf(Action action) {
    try {
        action();
    } catch (const BasicError& error) {
        return error.Number();
    }
    return 0;
}

std::string WrittenProject(const test::TemporaryFolder& folder, const std::string& name) {
    folder.Write(name + "\\m.bas", "Attribute VB_Name = \"m\"\r\nDim x\r\n");
    return folder.Write(
        name + "\\" + name + ".vbp",
        test::Dos("Type=Exe\nModule=m; m.bas\nName=\"" + name + "\"\n"));
}

}  // namespace

TEST(FileHost, OpensAProjectWithItsComponents) {
    const HostFolder folder;
    test::RecordingMessageBox box;
    FileHost host;
    ASSERT_TRUE(host.Open(folder.Project()));
    FileProject& project = host.Project(1);
    EXPECT_EQ(project.Name(), "P");
    EXPECT_EQ(project.FileName(), folder.Project());
    EXPECT_EQ(project.Type(), HostProjectType::ActiveXDll);
    EXPECT_EQ(NamesOf(project), (Texts{"frmMain", "modMain", "clsThing"}));
    EXPECT_FALSE(project.IsDirty());
    EXPECT_TRUE(box.Messages.empty());
}

TEST(FileHost, ComponentIsFoundByNameAndByFileWithAndWithoutFolder) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    FileProject& project = host.Project("p");
    EXPECT_EQ(&project.Component("FRMMAIN"), &project.Component(1));
    EXPECT_EQ(&project.Component("frmmain.frm"), &project.Component(1));
    EXPECT_EQ(&project.Component(folder.Folder.Path("forms\\FRMMAIN.frm")), &project.Component(1));
    EXPECT_EQ(ErrorOf([&] { project.Component("frmOther"); }), runtimeerror::kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { project.Component(0); }), runtimeerror::kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { host.Project("Q"); }), runtimeerror::kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { host.Project(2); }), runtimeerror::kSubscriptOutOfRange);
}

TEST(FileHost, GroupOpensItsProjectsInTheirOrder) {
    const test::TemporaryFolder folder;
    WrittenProject(folder, "A");
    WrittenProject(folder, "B");
    const std::string group = folder.Write(
        "G.vbg", test::Dos("VBGROUP 5.0\nProject=B\\B.vbp\nStartupProject=A\\A.vbp\n"));
    FileHost host;
    EventTexts events(host.Events());
    ASSERT_TRUE(host.Open(group));
    EXPECT_EQ(events.Said, (Texts{"added B", "activated B", "added A"}));
    EXPECT_EQ(host.ActiveProject(), &host.Project("B"));
    EXPECT_FALSE(host.Open(group)) << "all are open";
    EXPECT_EQ(host.ProjectCount(), 2);
}

TEST(FileHost, MissingMemberIsReportedAndTheRestOpens) {
    const test::TemporaryFolder folder;
    folder.Write("m.bas", "Dim x\r\n");
    const std::string path = folder.Write(
        "P.vbp", test::Dos("Module=gone; gone.bas\nForm=gone.frm\nModule=m; m.bas\nName=\"P\"\n"));
    test::RecordingMessageBox box;
    FileHost host;
    ASSERT_TRUE(host.Open(path));
    EXPECT_EQ(NamesOf(host.Project(1)), Texts{"m"});
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_EQ(box.Messages[0].Title, "Dorvik Workstation");
    EXPECT_EQ(box.Messages[0].Icon, MessageIcon::Exclamation);
    EXPECT_EQ(
        box.Messages[0].Text,
        "The file '" + folder.Path("gone.bas") +
            "' of the project 'P' cannot be found.\r\nThe file '" + folder.Path("gone.frm") +
            "' of the project 'P' cannot be found.");
}

TEST(FileHost, ProjectThatIsNotThereIsReported) {
    const test::TemporaryFolder folder;
    test::RecordingMessageBox box;
    FileHost host;
    EXPECT_FALSE(host.Open(folder.Path("Gone.vbp")));
    EXPECT_FALSE(host.Open(folder.Path("Gone.vbg")));
    EXPECT_FALSE(host.Open(folder.Write("x.txt", "x")));
    EXPECT_EQ(host.ProjectCount(), 0);
    EXPECT_EQ(host.ActiveProject(), nullptr);
    ASSERT_EQ(box.Messages.size(), 3U);
    EXPECT_EQ(
        box.Messages[0].Text,
        "The project file '" + folder.Path("Gone.vbp") + "' cannot be found.");
    EXPECT_TRUE(box.Messages[1].Text.starts_with(
        "The group file '" + folder.Path("Gone.vbg") + "' cannot be opened: "));
    EXPECT_EQ(box.Messages[2].Text, "'" + folder.Path("x.txt") + "' is not a project file.");
}

TEST(FileHost, FolderInPlaceOfAProjectIsReported) {
    const test::TemporaryFolder folder;
    folder.Write("P.vbp\\x", "");
    test::RecordingMessageBox box;
    FileHost host;
    EXPECT_FALSE(host.Open(folder.Path("P.vbp")));
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_EQ(
        box.Messages[0].Text, "The project file '" + folder.Path("P.vbp") + "' cannot be opened.");
}

TEST(FileHost, GroupThatNamesItselfAndOthersOpensItsProjectsOnly) {
    const test::TemporaryFolder folder;
    WrittenProject(folder, "A");
    const std::string group =
        folder.Write("G.vbg", test::Dos("Project=G.vbg\nProject=A\\A.vbp\nProject=Gone.vbp\n"));
    test::RecordingMessageBox box;
    FileHost host;
    EXPECT_TRUE(host.Open(group));
    EXPECT_EQ(host.ProjectCount(), 1);
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_EQ(
        box.Messages[0].Text,
        "'" + group + "' is not a project file.\r\nThe project file '" + folder.Path("Gone.vbp") +
            "' cannot be found.");
}

TEST(FileHost, GroupWithoutProjectsIsReported) {
    const test::TemporaryFolder folder;
    const std::string group = folder.Write("G.vbg", "VBGROUP 5.0\r\n");
    test::RecordingMessageBox box;
    FileHost host;
    EXPECT_FALSE(host.Open(group));
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_EQ(box.Messages[0].Text, "The group file '" + group + "' names no project.");
}

TEST(FileHost, LineThatCannotBeReadIsReportedAndWhatPrecedesItIsOpen) {
    const test::TemporaryFolder folder;
    folder.Write("m.bas", "Dim x\r\n");
    folder.Write("n.bas", "Dim x\r\n");
    const std::string path =
        folder.Write("P.vbp", test::Dos("Name=\"P\"\nModule=m; m.bas\nModule=m; n.bas\n"));
    test::RecordingMessageBox box;
    const test::CapturedLog log;
    FileHost host;
    EXPECT_TRUE(host.Open(path));
    EXPECT_EQ(NamesOf(host.Project(1)), Texts{"m"});
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_EQ(
        box.Messages[0].Text,
        "Line 3 of the project file '" + path +
            "' cannot be read. The project is open without what follows that line.");
}

TEST(FileHost, UserActionsRaiseTheEventsOfTheEnvironment) {
    const test::TemporaryFolder folder;
    FileHost host;
    host.Open(WrittenProject(folder, "A"));
    host.Open(WrittenProject(folder, "B"));
    EventTexts events(host.Events());
    host.ActivateProject("B");
    host.RenameProject("A", "C");
    host.SelectFile("m");
    EXPECT_EQ(events.Said, (Texts{"activated B", "renamed A C", "selected B m"}));
    events.Said.clear();
    host.CloseProject("B");
    EXPECT_EQ(events.Said, Texts{"removed B"});
    EXPECT_EQ(host.ActiveProject(), &host.Project("C"));
    host.CloseProject("c");
    EXPECT_EQ(host.ActiveProject(), nullptr);
}

TEST(FileHost, SelectingAFileOfAnotherProjectActivatesThatProject) {
    const HostFolder folder;
    const test::TemporaryFolder other;
    FileHost host;
    host.Open(WrittenProject(other, "A"));
    host.Open(folder.Project());
    EventTexts events(host.Events());
    host.SelectFile("frmMain.frm");
    EXPECT_EQ(events.Said, (Texts{"activated P", "selected P frmMain"}));
    EXPECT_EQ(ErrorOf([&] { host.SelectFile("nowhere"); }), runtimeerror::kSubscriptOutOfRange);
}

TEST(FileHost, NameOfAnotherProjectIsRefused) {
    const test::TemporaryFolder folder;
    FileHost host;
    host.Open(WrittenProject(folder, "A"));
    host.Open(WrittenProject(folder, "B"));
    EXPECT_EQ(ErrorOf([&] { host.RenameProject("A", "b"); }), runtimeerror::kInvalidProcedureCall);
    EXPECT_EQ(ErrorOf([&] { host.RenameProject("A", ""); }), runtimeerror::kInvalidProcedureCall);
    EXPECT_EQ(ErrorOf([&] { host.RenameProject("X", "Y"); }), runtimeerror::kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { host.CloseProject("X"); }), runtimeerror::kSubscriptOutOfRange);
}

TEST(FileHost, NewNameIsInTheProjectFileOnceItIsSaved) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    const std::string before = folder.Folder.Read("P.vbp");
    host.RenameProject("P", "Neu\u00E4");
    EXPECT_TRUE(host.Project(1).IsDirty());
    EXPECT_EQ(folder.Folder.Read("P.vbp"), before);
    EXPECT_TRUE(host.SaveAll());
    EXPECT_FALSE(host.Project(1).IsDirty());
    std::string after = before;
    after.replace(after.find("Name=\"P\""), 8, "Name=\"Neu\xE4\"");
    EXPECT_EQ(folder.Folder.Read("P.vbp"), after);
}

TEST(FileHost, NameThatTheCodePageLacksIsRefusedWhenSaving) {
    const HostFolder folder;
    test::RecordingMessageBox box;
    FileHost host;
    host.Open(folder.Project());
    const std::string before = folder.Folder.Read("P.vbp");
    host.RenameProject("P", "\u0416");
    EXPECT_FALSE(host.SaveAll());
    EXPECT_EQ(folder.Folder.Read("P.vbp"), before);
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_EQ(
        box.Messages[0].Text,
        "The file '" + folder.Project() +
            "' was not saved: a name has the character '\u0416', which code page 1252 "
            "lacks.");
}

TEST(FileHost, NewNameOfAComponentIsInItsFileAndInThatOfTheProjectOnceTheyAreSaved) {
    const HostFolder folder;
    folder.Folder.Write(
        "P.vbp",
        folder.Folder.Read("P.vbp").insert(0, "Startup=\"frmMain\"\r\nIconForm=\"frmMain\"\r\n"));
    FileHost host;
    host.Open(folder.Project());
    EventTexts events(host.Events());
    host.RenameComponent("P", "frmMain", "frmStart");
    host.RenameComponent("P", "modMain.bas", "modFirst");
    host.RenameComponent("P", "modFirst", "modStart");
    EXPECT_EQ(
        events.Said,
        (Texts{
            "renamed file frmMain frmStart",
            "renamed file modMain modFirst",
            "renamed file modFirst modStart"}));
    EXPECT_TRUE(host.Project(1).IsDirty());
    const std::string project = folder.Folder.Read("P.vbp");
    EXPECT_TRUE(host.SaveAll());
    EXPECT_FALSE(host.Project(1).IsDirty());
    const auto replaced = [](std::string text, const std::string& from, const std::string& to) {
        return text.replace(text.find(from), from.size(), to);
    };
    EXPECT_EQ(
        folder.Folder.Read("P.vbp"),
        replaced(
            replaced(
                replaced(project, "Startup=\"frmMain", "Startup=\"frmStart"),
                "IconForm=\"frmMain",
                "IconForm=\"frmStart"),
            "Module=modMain;",
            "Module=modStart;"));
    EXPECT_EQ(
        folder.Folder.Read("Forms\\frmMain.frm"),
        replaced(
            replaced(
                test::Dos(HostFolder::kForm), "Begin VB.Form frmMain ", "Begin VB.Form frmStart "),
            "VB_Name = \"frmMain\"",
            "VB_Name = \"frmStart\""));
    EXPECT_TRUE(
        folder.Folder.Read("modMain.bas").starts_with("Attribute VB_Name = \"modStart\"\r\n"));
    FileHost again;
    again.Open(folder.Project());
    EXPECT_EQ(NamesOf(again.Project(1)), (Texts{"frmStart", "modStart", "clsThing"}));
}

TEST(FileHost, NameOfAnotherComponentIsRefused) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    constexpr std::int32_t kRefused = runtimeerror::kInvalidProcedureCall;
    EXPECT_EQ(ErrorOf([&] { host.RenameComponent("P", "frmMain", "MODMAIN"); }), kRefused);
    EXPECT_EQ(ErrorOf([&] { host.RenameComponent("P", "frmMain", ""); }), kRefused);
    EXPECT_EQ(ErrorOf([&] { host.RenameComponent("P", "frmMain", "\u0416"); }), kRefused);
    EXPECT_FALSE(host.Project(1).IsDirty());
    EXPECT_NO_THROW(host.RenameComponent("P", "frmMain", "FRMMAIN"));
}

TEST(FileHost, ProjectThatWasNeverSavedHasNoFileNameUntilItIs) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    FileProject& project = host.Project(1);
    project.SetNeverSaved(true);
    EXPECT_EQ(project.FileName(), "");
    EventTexts events(host.Events());
    host.BeginSave(project);
    EXPECT_TRUE(host.IsIdle());
    EXPECT_EQ(project.FileName(), folder.Project());
    EXPECT_EQ(events.Said, Texts{"file P 3 P.vbp"});
    EXPECT_EQ(host.Calls().Take(), Texts{"save P"});
}

TEST(FileHost, ProjectThatSaysItIsChangedIsSavedByTheEnvironment) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    FileProject& project = host.Project(1);
    project.SetDirty(true);
    EXPECT_TRUE(project.IsDirty());
    host.BeginSave(project);
    EXPECT_FALSE(project.IsDirty());
}

TEST(FileHost, SavingUnderAnotherNameStaysInTheFolder) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    EventTexts events(host.Events());
    FileProject& project = host.Project(1);
    project.SaveAs(folder.Folder.Path("Q.vbp"));
    EXPECT_EQ(project.FileName(), folder.Folder.Path("Q.vbp"));
    EXPECT_EQ(folder.Folder.Read("Q.vbp"), folder.Folder.Read("P.vbp"));
    EXPECT_EQ(events.Said, Texts{"file P 3 Q.vbp"});
    EXPECT_EQ(
        ErrorOf([&] { project.SaveAs(folder.Folder.Path("Forms\\Q.vbp")); }),
        runtimeerror::kPathFileAccess);
    EXPECT_EQ(ErrorOf([&] { project.SaveAs(folder.Project()); }), runtimeerror::kPathFileAccess);
    EXPECT_NO_THROW(project.SaveAs(folder.Folder.Path("Q.vbp")));
}

TEST(FileHost, CallsOfTheAddInAreRecordedInOrder) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    FileComponent& form = host.Project(1).Component("frmMain");
    form.DesignerWindow()->SetVisible(true);
    form.Designer()->FindControl("text1", 3)->SetSelected(true);
    form.Designer()->FindControl("text1", 3)->SetSelected(false);
    form.Designer()->FindControl("mnuFile", std::nullopt)->SetSelected(true);
    form.CodeModule().CodePane().SetTopLine(6);
    form.CodeModule().CodePane().SetTopLine(6);
    host.ExecuteCommand(2578);
    host.ExecuteCommand(942);
    host.ExecuteCommand(3);
    EXPECT_EQ(
        host.Calls().Take(),
        (Texts{
            "show-designer P frmMain",
            "select-control P frmMain Text1 3",
            "select-control P frmMain mnuFile",
            "show-line P frmMain 6",
            "show-line P frmMain 6",
            "properties",
            "references",
            "command 3"}));
    EXPECT_EQ(host.Calls().Take(), Texts{});
}

TEST(FileHost, ModulesAndClassesHaveNoDesigner) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    for (const char* const name : {"modMain", "clsThing"}) {
        EXPECT_EQ(host.Project(1).Component(name).DesignerWindow(), nullptr);
        EXPECT_EQ(host.Project(1).Component(name).Designer(), nullptr);
    }
}

TEST(FileHost, MenuBarHasTheMenusOfTheEnvironment) {
    FileHost host;
    EXPECT_NE(host.MenuBar().FindId(30007), nullptr);
    EXPECT_NE(host.MenuBar().FindId(30005), nullptr);
    CommandControl& bar = host.AddCommandBar("Tools of a test");
    ASSERT_EQ(host.CommandBars().size(), 1U);
    EXPECT_EQ(host.CommandBars()[0]->Look().Caption, "Tools of a test");
    host.RemoveCommandBar(bar);
    EXPECT_TRUE(host.CommandBars().empty());
}

TEST(FileHost, ToolWindowInformsItsDocument) {
    struct Document final : IUserDocument {
        Texts Said;
        void VisibleChanged(bool visible) override {
            Said.emplace_back(visible ? "shown" : "hidden");
        }
    } document;
    FileHost host;
    FileToolWindow* made = nullptr;
    const Subscription watch =
        host.ToolWindowCreated.Subscribe([&](FileToolWindow& window) { made = &window; });
    const auto window = host.CreateToolWindow({"A.B", "Caption", "{1}"}, document);
    EXPECT_FALSE(window->Visible());
    EXPECT_EQ(made->Request().Caption, "Caption");
    window->SetVisible(true);
    window->SetVisible(true);
    window->SetVisible(false);
    window->SetVisible(true);
    window->Close();
    window->SetVisible(true);
    EXPECT_EQ(document.Said, (Texts{"shown", "hidden", "shown"}));
}

}  // namespace dorvik
