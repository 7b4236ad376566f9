#include "workstation/filehost/FileCodeModule.h"

#include "base/BasicError.h"
#include "support/RecordingMessageBox.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/filehost/HostFolder.h"
#include "workstation/filehost/OpenedMember.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace dorvik {

namespace {

using test::Dos;
using test::HostFolder;
using test::OpenedMember;
using test::TemporaryFolder;
using Texts = std::vector<std::string>;

template <typename Action>
std::int32_t NumberOf(Action action) {
    try {
        action();
    } catch (const BasicError& error) {
        return error.Number();
    }
    return 0;
}

const std::string kThree = "Attribute VB_Name = \"m\"\r\nDim a\r\nDim b\r\nDim c\r\n";

}  // namespace

TEST(FileCodeModule, HasNeitherLayoutNorAttributes) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    FileProject& project = host.Project(1);
    EXPECT_EQ(
        project.Component("frmMain").CodeModule().Texts(),
        (Texts{
            "Option Explicit",
            "",
            "Private WithEvents mobjThing As clsThing",
            "",
            "Private Sub Form_Load()",
            "    Beep",
            "End Sub"}));
    EXPECT_EQ(project.Component("clsThing").CodeModule().Texts(), Texts{"Public x As Long"});
    EXPECT_EQ(project.Component("modMain").CodeModule().Lines(1, 2), "Option Explicit\r\n");
}

TEST(FileCodeModule, FileWithoutANameHasItsHeaderAndLayoutHidden) {
    OpenedMember form(
        Dos("VERSION 5.00\nObject = \"{1}#1.0#0\"; \"A.OCX\"\nBegin VB.Form m \n   Begin VB.Label "
            "l \n   End\n"
            "End\nAttribute VB_Exposed = False\nDim x\n"),
        modEncoding::kDefaultCodePage,
        "Form=m.frm");
    EXPECT_EQ(form.Module().Texts(), Texts{"Dim x"});
    OpenedMember classFile(
        Dos("VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nDim x\n"),
        modEncoding::kDefaultCodePage,
        "Class=m; m.cls");
    EXPECT_EQ(classFile.Module().Texts(), Texts{"Dim x"});
    OpenedMember module(Dos("Dim x\nBegin y\n"));
    EXPECT_EQ(module.Module().Texts(), (Texts{"Dim x", "Begin y"}));
}

TEST(FileCodeModule, VariableWhoseNameBeginsLikeAnAttributeIsShown) {
    OpenedMember member(
        Dos("Attribute VB_Name = \"m\"\nAttributes = 1\nATTRIBUTE x.VB_Y = _\n  2\nDim z\n"));
    EXPECT_EQ(member.Module().Texts(), (Texts{"Attributes = 1", "Dim z"}));
}

TEST(FileCodeModule, LinesEndInAnyWayAndTheLastOneMayHaveNoEnd) {
    OpenedMember member("Attribute VB_Name = \"m\"\r\na\nb\rc\r\n\r\nd");
    EXPECT_EQ(member.Module().Texts(), (Texts{"a", "b", "c", "", "d"}));
    EXPECT_EQ(member.Module().Lines(2, 2), "b\r\nc");
    EXPECT_EQ(member.Module().Lines(5, 9), "d");
    EXPECT_EQ(member.Module().Lines(6, 1), "");
    EXPECT_EQ(member.Module().Lines(0, 1), "");
    EXPECT_EQ(member.Module().Lines(1, -5), "");
}

TEST(FileCodeModule, AnswersWhereAProcedureIs) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    const FileCodeModule& module = host.Project(1).Component("frmMain").CodeModule();
    EXPECT_EQ(module.CountOfLines(), 7);
    EXPECT_EQ(module.CountOfDeclarationLines(), 3);
    EXPECT_EQ(module.ProcStartLine("form_load", ProcedureKind::SubOrFunction), 4);
    EXPECT_EQ(module.ProcCountLines("Form_Load", ProcedureKind::SubOrFunction), 4);
    EXPECT_EQ(module.ProcStartLine("Form_Load", ProcedureKind::PropertyGet), 0);
    EXPECT_EQ(module.ProcCountLines("Nowhere", ProcedureKind::SubOrFunction), 0);
}

TEST(FileCodeModule, FindLooksAtTheWholeLinesOfItsRange) {
    OpenedMember member(kThree);
    const FileCodeModule& module = member.Module();
    EXPECT_EQ(module.Find("dim", {2, 1, 3, -1}, {}), (CodeRange{2, 1, 2, 4}));
    EXPECT_EQ(module.Find("b", {1, 1, 99, -1}, {}), (CodeRange{2, 5, 2, 6}));
    EXPECT_EQ(module.Find("b", {2, 6, 2, 2}, {}), (CodeRange{2, 5, 2, 6}));
    EXPECT_EQ(module.Find("b", {3, 1, 3, -1}, {}), std::nullopt);
    EXPECT_EQ(module.Find("a", {0, 1, 3, -1}, {}), std::nullopt);
    EXPECT_EQ(module.Find("a\r\nDim b", {1, 1, 3, -1}, {}), std::nullopt);
    EXPECT_EQ(
        module.Find("D?m [bc]", {1, 1, 3, -1}, {.PatternSearch = true}), (CodeRange{2, 1, 2, 6}));
    EXPECT_EQ(module.Find("DIM", {1, 1, 3, -1}, {.MatchCase = true}), std::nullopt);
    EXPECT_EQ(module.Find("im", {1, 1, 3, -1}, {.WholeWord = true}), std::nullopt);
}

TEST(FileCodeModule, ChangeOfOneLineLeavesEveryOtherByteAsItWas) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    host.Project(1).Component("frmMain").CodeModule().ReplaceLine(6, "    Beep 2");
    EXPECT_TRUE(host.Project(1).IsDirty());
    EXPECT_TRUE(host.SaveAll());
    EXPECT_FALSE(host.Project(1).IsDirty());
    std::string expected = Dos(HostFolder::kForm);
    expected.insert(expected.find("Beep") + 4, " 2");
    EXPECT_EQ(folder.Folder.Read("Forms\\frmMain.frm"), expected);
}

TEST(FileCodeModule, LineEndsAreKeptAndNewLinesHaveTheUsualOne) {
    OpenedMember member("Attribute VB_Name = \"m\"\na\r\nb\rc\nd");
    FileCodeModule& module = member.Module();
    module.ReplaceLine(1, "A");
    module.InsertLines(3, "x\r\ny");
    module.DeleteLines(6, 1);
    EXPECT_EQ(module.Texts(), (Texts{"A", "b", "x", "y", "c"}));
    EXPECT_EQ(member.SaveMessage(), "");
    EXPECT_EQ(member.Bytes(), "Attribute VB_Name = \"m\"\nA\r\nb\rx\ny\nc");
}

TEST(FileCodeModule, HiddenLinesStayWithTheLineInFrontOfThem) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    FileCodeModule& module = host.Project(1).Component("frmMain").CodeModule();
    module.InsertLines(6, "    Dim x");
    module.ReplaceLine(5, "Private Sub Form_Load() 'now");
    module.InsertLines(5, "' Loads.");
    host.SaveAll();
    const std::string bytes = folder.Folder.Read("Forms\\frmMain.frm");
    EXPECT_NE(
        bytes.find(Dos("' Loads.\nPrivate Sub Form_Load() 'now\nAttribute Form_Load.VB_Description "
                       "= \"Loads.\"\n"
                       "    Dim x\n    Beep\n")),
        std::string::npos);
    module.DeleteLines(6, 1);
    host.SaveAll();
    EXPECT_EQ(folder.Folder.Read("Forms\\frmMain.frm").find("VB_Description"), std::string::npos);
    module.Undo();
    host.SaveAll();
    EXPECT_EQ(folder.Folder.Read("Forms\\frmMain.frm"), bytes);
}

TEST(FileCodeModule, LineAfterAFileThatEndsInAHiddenLineBeginsANewOne) {
    OpenedMember member("Attribute VB_Name = \"m\"");
    EXPECT_EQ(member.Module().CountOfLines(), 0);
    EXPECT_EQ(member.Module().CountOfDeclarationLines(), 0);
    member.Module().InsertLines(1, "Dim x");
    member.SaveMessage();
    EXPECT_EQ(member.Bytes(), "Attribute VB_Name = \"m\"\r\nDim x");
    OpenedMember behind("Attribute VB_Name = \"m\"\r\nDim x\r\nAttribute x.VB_VarHelpID = -1");
    behind.Module().InsertLines(2, "Dim y");
    behind.SaveMessage();
    EXPECT_EQ(
        behind.Bytes(),
        "Attribute VB_Name = \"m\"\r\nDim x\r\nAttribute x.VB_VarHelpID = -1\r\nDim y");
}

TEST(FileCodeModule, LinesThatAreNotThereAreRefused) {
    OpenedMember member(kThree);
    FileCodeModule& module = member.Module();
    constexpr std::int32_t kRefused = runtimeerror::kSubscriptOutOfRange;
    EXPECT_EQ(NumberOf([&] { module.ReplaceLine(0, "x"); }), kRefused);
    EXPECT_EQ(NumberOf([&] { module.ReplaceLine(4, "x"); }), kRefused);
    EXPECT_EQ(NumberOf([&] { module.InsertLines(5, "x"); }), kRefused);
    EXPECT_EQ(NumberOf([&] { module.DeleteLines(3, 2); }), kRefused);
    EXPECT_EQ(NumberOf([&] { module.DeleteLines(2, -1); }), kRefused);
    EXPECT_EQ(NumberOf([&] { module.DeleteLines(2, INT32_MAX); }), kRefused);
    EXPECT_FALSE(module.IsDirty());
    module.InsertLines(4, "x");
    EXPECT_EQ(module.Lines(4, 1), "x");
}

TEST(FileCodeModule, ChangesAreUndoneAndRedoneOneByOne) {
    OpenedMember member(kThree);
    FileCodeModule& module = member.Module();
    EXPECT_FALSE(module.CanUndo());
    module.ReplaceLine(1, "one");
    module.InsertLines(2, "two\nthree");
    module.DeleteLines(4, 2);
    EXPECT_EQ(module.Texts(), (Texts{"one", "two", "three"}));
    module.Undo();
    EXPECT_EQ(module.Texts(), (Texts{"one", "two", "three", "Dim b", "Dim c"}));
    module.Undo();
    module.Undo();
    module.Undo();
    EXPECT_EQ(module.Texts(), (Texts{"Dim a", "Dim b", "Dim c"}));
    EXPECT_FALSE(module.IsDirty()) << "all is as it was read";
    module.Redo();
    module.Redo();
    EXPECT_EQ(module.Texts(), (Texts{"one", "two", "three", "Dim b", "Dim c"}));
    module.ReplaceLine(1, "ONE");
    EXPECT_FALSE(module.CanRedo());
}

TEST(FileCodeModule, UndoingBehindASaveMakesTheModuleDirty) {
    OpenedMember member(kThree);
    FileCodeModule& module = member.Module();
    module.ReplaceLine(1, "x");
    int changes = 0;
    const Subscription watch = module.DirtyChanged.Subscribe([&] { ++changes; });
    member.Host.SaveAll();
    EXPECT_FALSE(module.IsDirty());
    module.Undo();
    EXPECT_TRUE(module.IsDirty());
    module.Redo();
    EXPECT_FALSE(module.IsDirty());
    EXPECT_EQ(changes, 3);
}

TEST(FileCodeModule, OldChangesAreForgotten) {
    OpenedMember member(kThree);
    FileCodeModule& module = member.Module();
    for (std::size_t step = 0; step < FileCodeModule::kMostSteps + 5; ++step) {
        module.ReplaceLine(1, std::to_string(step));
    }
    while (module.CanUndo()) {
        module.Undo();
    }
    EXPECT_EQ(module.Lines(1, 1), "4");
    EXPECT_TRUE(module.IsDirty());
}

TEST(FileCodeModule, CyrillicFileIsWrittenBackAsItWasButForTheChangedLine) {
    std::string line = "' ";
    for (int byte = 0x80; byte < 0x100; ++byte) {
        line += static_cast<char>(byte);
    }
    OpenedMember member("Attribute VB_Name = \"m\"\r\n" + line + "\r\nx = \"\xE0\"\r\n", 1251);
    EXPECT_EQ(member.Module().Lines(2, 1), "x = \"\u0430\"");
    member.Module().ReplaceLine(2, "x = \"\u0411\u0430\"");
    EXPECT_EQ(member.SaveMessage(), "");
    EXPECT_EQ(member.Bytes(), "Attribute VB_Name = \"m\"\r\n" + line + "\r\nx = \"\xC1\xE0\"\r\n");
}

TEST(FileCodeModule, ChineseFileIsWrittenBackAsItWasButForTheChangedLine) {
    // A pair, a first byte without its second in front of a line end, bytes that are no characters.
    const std::string odd = "' \xC4\xE3\xBA\xC3 \x81\r\n' \xFF \x80 \xD7\x5C\r\n";
    OpenedMember member("Attribute VB_Name = \"m\"\r\n" + odd + "x = \"\xC4\xE3\"\r\n", 936);
    EXPECT_EQ(member.Module().CountOfLines(), 3);
    EXPECT_EQ(member.Module().Lines(3, 1), "x = \"\u4F60\"");
    member.Module().ReplaceLine(3, "x = \"\u597D\"");
    EXPECT_EQ(member.SaveMessage(), "");
    EXPECT_EQ(member.Bytes(), "Attribute VB_Name = \"m\"\r\n" + odd + "x = \"\xBA\xC3\"\r\n");
}

TEST(FileCodeModule, MarkOfUtf8IsKept) {
    OpenedMember member("\xEF\xBB\xBF"
                        "Attribute VB_Name = \"m\"\r\nx = \"\u0416\"\r\n");
    member.Module().ReplaceLine(1, "x = \"\u4F60\"");
    EXPECT_EQ(member.SaveMessage(), "");
    EXPECT_EQ(
        member.Bytes(),
        "\xEF\xBB\xBF"
        "Attribute VB_Name = \"m\"\r\nx = \"\u4F60\"\r\n");
}

TEST(FileCodeModule, Utf16IsKeptInItsByteOrder) {
    for (const bool isBigEndian : {false, true}) {
        const std::string mark = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
        const auto file = [&](std::string_view line) {
            return mark + modEncoding::EncodeUtf16(
                              "Attribute VB_Name = \"m\"\r\n' \u010A\u0A0D\r\n" +
                                  std::string(line) + "\n\r\n",
                              isBigEndian);
        };
        OpenedMember member(file("Dim a"));
        EXPECT_EQ(member.Module().Texts(), (Texts{"' \u010A\u0A0D", "Dim a", ""}));
        member.Module().ReplaceLine(2, "Dim \u0416");
        EXPECT_EQ(member.SaveMessage(), "");
        EXPECT_EQ(member.Bytes(), file("Dim \u0416"));
    }
}

TEST(FileCodeModule, CharacterThatTheCodePageLacksIsRefusedAndNothingIsLost) {
    const HostFolder folder;
    test::RecordingMessageBox box;
    FileHost host;
    host.Open(folder.Project());
    FileProject& project = host.Project(1);
    const std::string before = folder.Folder.Read("Forms\\frmMain.frm");
    project.Component("frmMain").CodeModule().ReplaceLine(6, "    Beep 2");
    project.Component("modMain").CodeModule().ReplaceLine(4, "' \u00E4\u0416\u4F60");
    EXPECT_FALSE(project.Save());
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_EQ(
        box.Messages[0].Text,
        "The file '" + folder.Folder.Path("modMain.bas") +
            "' was not saved: line 4 has the character '\u0416', which code page 1252 lacks. "
            "Nothing of the project "
            "'P' was saved.");
    EXPECT_EQ(folder.Folder.Read("Forms\\frmMain.frm"), before);
    EXPECT_TRUE(project.IsDirty());
    EXPECT_EQ(project.Component("modMain").CodeModule().Lines(4, 1), "' \u00E4\u0416\u4F60");
}

TEST(FileCodeModule, FileThatAnotherProgramChangedIsNotOverwritten) {
    OpenedMember member(kThree);
    member.Module().ReplaceLine(1, "x");
    member.Folder.Write("m.bas", "of someone else\r\n");
    EXPECT_EQ(
        member.SaveMessage(),
        "The file '" + member.Folder.Path("m.bas") +
            "' was changed on disk after it had been opened, and was not saved, so that nothing is "
            "lost. Close the "
            "project and open it again to see what is on disk.");
    EXPECT_EQ(member.Bytes(), "of someone else\r\n");
    EXPECT_TRUE(member.Host.Project(1).IsDirty());
}

TEST(FileCodeModule, FileThatWasWrittenAgainWithTheSameBytesIsSaved) {
    OpenedMember member(kThree);
    member.Module().ReplaceLine(1, "x");
    member.Folder.Write("m.bas", kThree);
    EXPECT_EQ(member.SaveMessage(), "");
    EXPECT_EQ(member.Bytes(), "Attribute VB_Name = \"m\"\r\nx\r\nDim b\r\nDim c\r\n");
}

TEST(FileCodeModule, FileThatIsGoneIsWrittenAnew) {
    OpenedMember member(kThree);
    member.Module().ReplaceLine(1, "x");
    std::filesystem::remove(member.Folder.HostPath() / "m.bas");
    EXPECT_EQ(member.SaveMessage(), "");
    EXPECT_EQ(member.Bytes(), "Attribute VB_Name = \"m\"\r\nx\r\nDim b\r\nDim c\r\n");
}

TEST(FileCodeModule, FolderThatIsGoneIsReportedAndTheModuleStaysDirty) {
    const HostFolder folder;
    test::RecordingMessageBox box;
    FileHost host;
    host.Open(folder.Project());
    host.Project(1).Component("frmMain").CodeModule().ReplaceLine(6, "x");
    std::filesystem::remove_all(folder.Folder.HostPath() / "Forms");
    EXPECT_FALSE(host.Project(1).Save());
    EXPECT_TRUE(host.Project(1).IsDirty());
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_NE(box.Messages[0].Text.find("frmMain.frm"), std::string::npos) << box.Messages[0].Text;
}

TEST(FileCodeModule, ReadOnlyFileIsNotOverwritten) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "nothing is read-only for the superuser";
    }
    OpenedMember member(kThree);
    std::filesystem::permissions(
        member.Folder.HostPath() / "m.bas", std::filesystem::perms::owner_read);
    EXPECT_TRUE(member.Host.Project(1).Component(1).IsReadOnly());
    member.Module().ReplaceLine(1, "x");
    EXPECT_EQ(
        member.SaveMessage(),
        "The file '" + member.Folder.Path("m.bas") + "' is read-only and was not saved.");
    EXPECT_EQ(member.Bytes(), kThree);
}

TEST(FileCodeModule, PaneFollowsItsLines) {
    OpenedMember member(kThree);
    FileCodeModule& module = member.Module();
    FileCodePane& pane = module.CodePane();
    pane.SetTopLine(2);
    pane.SetSelection({2, 1, 3, -1});
    EXPECT_EQ(pane.Selection(), (CodeRange{2, 1, 3, 6}));
    module.InsertLines(1, "x\ny");
    EXPECT_EQ(pane.TopLine(), 4);
    EXPECT_EQ(pane.Selection(), (CodeRange{4, 1, 5, 6}));
    module.DeleteLines(4, 2);
    EXPECT_EQ(pane.TopLine(), 3) << "the last line";
    EXPECT_EQ(pane.Selection().StartLine, 3);
    EXPECT_EQ(NumberOf([&] { pane.SetTopLine(0); }), runtimeerror::kSubscriptOutOfRange);
    EXPECT_EQ(
        NumberOf([&] {
            pane.SetSelection({0, 1, 0, 1});
        }),
        runtimeerror::kSubscriptOutOfRange);
    pane.SetTopLine(99);
    EXPECT_EQ(pane.TopLine(), 3);
    EXPECT_FALSE(pane.Window().Visible());
    pane.Show();
    EXPECT_TRUE(pane.Window().Visible());
}

TEST(FileCodeModule, ChangesAreReported) {
    OpenedMember member(kThree);
    FileCodeModule& module = member.Module();
    Texts said;
    const Subscription watch = module.Changed.Subscribe([&](const LinesChange& change) {
        said.push_back(
            std::to_string(change.Start) + " " + std::to_string(change.Removed) + " " +
            std::to_string(change.Inserted));
    });
    module.ReplaceLine(2, "x\ny");
    module.DeleteLines(1, 1);
    module.Undo();
    module.DeleteLines(1, 0);
    EXPECT_EQ(said, (Texts{"2 1 2", "1 1 0", "1 0 1"}));
}

// Hostile files.

TEST(FileCodeModule, FileThatIsNoTextIsRefused) {
    std::string bytes;
    for (int index = 0; index < 4000; ++index) {
        bytes += static_cast<char>((index * 7919) % 256);
    }
    OpenedMember member(bytes);
    EXPECT_EQ(NumberOf([&] { member.Module(); }), runtimeerror::kInvalidFileFormat);
    EXPECT_FALSE(member.Host.Project(1).IsDirty());
}

TEST(FileCodeModule, NulsAreKept) {
    using namespace std::string_literals;
    const std::string nuls = "Attribute VB_Name = \"m\"\r\nx = 1\0\0\r\nDim a\r\n\0"s;
    const std::string bytes = nuls + "Dim b with enough text around it\r\n";
    OpenedMember member(bytes);
    FileCodeModule& module = member.Module();
    EXPECT_EQ(module.Lines(1, 1), std::string("x = 1\0\0", 7));
    module.ReplaceLine(2, "Dim a");
    EXPECT_EQ(member.SaveMessage(), "");
    EXPECT_EQ(member.Bytes(), bytes);
}

TEST(FileCodeModule, LineOfFiftyMegabytesIsOpenedEditedAndSaved) {
    const std::string line(50'000'000, 'x');
    OpenedMember member("Attribute VB_Name = \"m\"\r\n' " + line + "\r\nDim a\r\n");
    FileCodeModule& module = member.Module();
    EXPECT_EQ(module.CountOfLines(), 2);
    EXPECT_EQ(module.Find("dim", {1, 1, 2, -1}, {}), (CodeRange{2, 1, 2, 4}));
    module.ReplaceLine(2, "Dim b");
    EXPECT_EQ(member.SaveMessage(), "");
    EXPECT_EQ(member.Bytes(), "Attribute VB_Name = \"m\"\r\n' " + line + "\r\nDim b\r\n");
}

TEST(FileCodeModule, FileOfTooManyLinesIsRefused) {
    OpenedMember member(std::string(static_cast<std::size_t>(CodeFile::kMostLines) + 1, '\n'));
    EXPECT_EQ(NumberOf([&] { member.Module(); }), runtimeerror::kPathFileAccess);
}

TEST(FileCodeModule, LayoutThatDoesNotEndHasNoCode) {
    OpenedMember member(
        "VERSION 5.00\r\nBegin VB.Form m \r\n   Begin VB.Label l \r\nEnd\r\nDim x\r\n",
        modEncoding::kDefaultCodePage,
        "Form=m.frm");
    EXPECT_EQ(member.Module().CountOfLines(), 0);
    EXPECT_EQ(member.Host.Project(1).Component(1).Designer()->ControlCount(), 1);
}

}  // namespace dorvik
