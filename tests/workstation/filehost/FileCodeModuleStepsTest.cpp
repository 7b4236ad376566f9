#include "workstation/filehost/FileCodeModule.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/filehost/HostFolder.h"
#include "workstation/filehost/OpenedMember.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {

using test::Dos;
using test::HostFolder;
using test::OpenedMember;

namespace {

const std::string kThreeLines = "Attribute VB_Name = \"m\"\r\nDim a\r\nDim b\r\nDim c\r\n";

}  // namespace

TEST(FileCodeModule, WhatIsTypedInALineIsUndoneTogether) {
    OpenedMember member(kThreeLines);
    FileCodeModule& module = member.Module();
    module.TypeLine(2, "Dim bb");
    module.TypeLine(2, "Dim bbc");
    EXPECT_EQ(module.Texts()[1], "Dim bbc");
    module.EndTyping();
    module.TypeLine(2, "Dim");
    module.Undo();
    EXPECT_EQ(module.Texts()[1], "Dim bbc");
    module.Undo();
    EXPECT_EQ(module.Texts()[1], "Dim b");
    EXPECT_FALSE(module.IsDirty());
    EXPECT_FALSE(module.CanUndo());
    module.Redo();
    EXPECT_EQ(module.Texts()[1], "Dim bbc");
}

TEST(FileCodeModule, TypingDoesNotJoinWhatWasSaved) {
    OpenedMember member(kThreeLines);
    FileCodeModule& module = member.Module();
    module.TypeLine(2, "Dim x");
    ASSERT_EQ(member.SaveMessage(), "");
    module.TypeLine(2, "Dim xy");
    EXPECT_TRUE(module.IsDirty());
    module.Undo();
    EXPECT_EQ(module.Texts()[1], "Dim x");
    EXPECT_FALSE(module.IsDirty());
}

TEST(FileCodeModule, ChangesOfAGroupAreUndoneAndRedoneTogether) {
    OpenedMember member(kThreeLines);
    FileCodeModule& module = member.Module();
    {
        const ChangeGroup group(module);
        module.ReplaceLine(1, "one");
        const ChangeGroup inner(module);
        module.DeleteLines(2, 1);
        module.InsertLines(1, "zero");
    }
    module.ReplaceLine(1, "nought");
    module.Undo();
    EXPECT_EQ(module.Lines(1, 9), "zero\r\none\r\nDim c");
    module.Undo();
    EXPECT_EQ(module.Lines(1, 9), "Dim a\r\nDim b\r\nDim c");
    EXPECT_FALSE(module.IsDirty());
    module.Redo();
    EXPECT_EQ(module.Lines(1, 9), "zero\r\none\r\nDim c");
}

TEST(FileCodeModule, GroupIsForgottenAsAWhole) {
    OpenedMember member(kThreeLines);
    FileCodeModule& module = member.Module();
    {
        const ChangeGroup group(module);
        module.ReplaceLine(1, "one");
        module.ReplaceLine(1, "two");
    }
    for (std::size_t step = 0; step + 1 < FileCodeModule::kMostSteps; ++step) {
        module.ReplaceLine(2, std::to_string(step));
    }
    while (module.CanUndo()) {
        module.Undo();
    }
    EXPECT_EQ(module.Texts()[0], "two");
}

TEST(FileCodeModule, HiddenLinesComeBackWithTheLineThatIsUndone) {
    const HostFolder folder;
    FileHost host;
    host.Open(folder.Project());
    FileComponent& form = host.Project(1).Component("frmMain");
    const std::string before = folder.Folder.Read("Forms\\frmMain.frm");
    form.CodeModule().DeleteLines(5, 1);
    form.CodeModule().Undo();
    form.CodeModule().ReplaceLine(6, "    Stop");
    ASSERT_TRUE(host.SaveAll());
    std::string expected = before;
    expected.replace(expected.find("Beep"), 4, "Stop");
    EXPECT_EQ(folder.Folder.Read("Forms\\frmMain.frm"), expected);
}

TEST(FileCodeModule, FileIsReadAnew) {
    OpenedMember member(kThreeLines);
    FileCodeModule& module = member.Module();
    module.ReplaceLine(3, "lost");
    std::vector<std::int32_t> changes;
    const Subscription watch = module.Changed.Subscribe([&](const LinesChange& change) {
        changes = {change.Start, change.Removed, change.Inserted};
    });
    member.Folder.Write(member.Name, "Attribute VB_Name = \"m\"\r\nDim a\r\nDim n\r\nDim c\r\n");
    member.Host.Project(1).Component(1).Reload();
    EXPECT_EQ(module.Lines(1, 9), "Dim a\r\nDim n\r\nDim c");
    EXPECT_EQ(changes, (std::vector<std::int32_t>{2, 2, 2}));
    EXPECT_FALSE(module.IsDirty());
    EXPECT_FALSE(module.CanUndo());
    EXPECT_FALSE(module.File().HasChangedOnDisk());
}

TEST(FileCodeModule, FileOnDiskIsOverwrittenOnceThatIsAccepted) {
    OpenedMember member(kThreeLines);
    member.Module().ReplaceLine(1, "mine");
    member.Folder.Write(member.Name, "theirs");
    EXPECT_NE(member.SaveMessage(), "");
    member.Box.Messages.clear();
    member.Module().AcceptFileOnDisk();
    EXPECT_EQ(member.SaveMessage(), "");
    EXPECT_EQ(member.Bytes(), Dos("Attribute VB_Name = \"m\"\nmine\nDim b\nDim c\n"));
}

TEST(FileCodeModule, ChangeOnDiskIsTakenUnlessSomethingWouldBeLost) {
    OpenedMember member(kThreeLines);
    FileComponent& component = member.Host.Project(1).Component(1);
    EXPECT_EQ(component.FollowDisk(), DiskState::Same) << "nothing was read yet";
    FileCodeModule& module = member.Module();
    EXPECT_EQ(component.FollowDisk(), DiskState::Same);
    member.Folder.Write(member.Name, "Attribute VB_Name = \"m\"\r\nDim theirs\r\n");
    EXPECT_EQ(component.FollowDisk(), DiskState::Reloaded);
    EXPECT_EQ(module.Lines(1, 9), "Dim theirs");
    module.ReplaceLine(1, "Dim mine");
    member.Folder.Write(member.Name, "Attribute VB_Name = \"m\"\r\nDim other\r\n");
    EXPECT_EQ(component.FollowDisk(), DiskState::Conflict);
    EXPECT_EQ(module.Lines(1, 9), "Dim mine");
}

}  // namespace dorvik
