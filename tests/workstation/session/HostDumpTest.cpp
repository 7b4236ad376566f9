#include "workstation/session/HostDump.h"

#include "support/RecordingMessageBox.h"
#include "support/TemporaryFolder.h"
#include "workstation/session/FileSessionHost.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

/// A host with the project P of a module m.
class DumpedHost {
public:
    DumpedHost() {
        m_folder.Write("m.bas", "Attribute VB_Name = \"m\"\r\nDim a\r\nDim \"b\"\r\n");
        modHostCommands::Open(Host, m_folder.Write("P.vbp", "Module=m; m.bas\r\nName=\"P\"\r\n"));
    }

    std::string HostText() { return modHostDump::DumpHost(Host); }
    std::string CodeText(std::string_view file = "m.bas") {
        std::string json;
        EXPECT_EQ(modHostDump::DumpCode(Host, file, json), std::nullopt);
        return json;
    }
    std::string Bytes() const { return m_folder.Read("m.bas"); }

    FileSessionHost Host;
    test::RecordingMessageBox Box;

private:
    test::TemporaryFolder m_folder;
};

}  // namespace

TEST(HostDump, CodeHasLinesTopAndSelection) {
    DumpedHost dumped;
    dumped.Host.FindComponent("m")->CodeModule().CodePane().SetTopLine(2);
    dumped.Host.FindComponent("m")->CodeModule().CodePane().SetSelection({1, 2, 2, -1});
    EXPECT_EQ(
        dumped.CodeText(),
        R"({"dump":"code","lines":["Dim a","Dim \"b\""],"top":2,"selection":[1,2,2,8]})");
}

TEST(HostDump, HostHasTheCalls) {
    DumpedHost dumped;
    EXPECT_EQ(dumped.HostText(), R"({"dump":"host","calls":[]})");
    dumped.Host.Environment().ExecuteCommand(942);
    dumped.Host.FindComponent("m")->CodeModule().CodePane().SetTopLine(2);
    EXPECT_EQ(dumped.HostText(), R"({"dump":"host","calls":["references","show-line P m 2"]})");
}

TEST(HostDump, LinesAreEditedInsertedAndDeleted) {
    DumpedHost dumped;
    EXPECT_EQ(modHostCommands::Edit(dumped.Host, "m", 1, "Dim x"), std::nullopt);
    EXPECT_EQ(modHostCommands::Insert(dumped.Host, "M.BAS", 1, "' top"), std::nullopt);
    EXPECT_EQ(modHostCommands::Delete(dumped.Host, "m", 3), std::nullopt);
    EXPECT_EQ(modHostCommands::Insert(dumped.Host, "m", 3, "' end"), std::nullopt);
    EXPECT_TRUE(dumped.Host.Environment().Project(1).IsDirty());
    EXPECT_EQ(modHostCommands::Save(dumped.Host, "P"), std::nullopt);
    EXPECT_EQ(dumped.Bytes(), "Attribute VB_Name = \"m\"\r\n' top\r\nDim x\r\n' end\r\n");
    EXPECT_FALSE(dumped.Host.Environment().Project(1).IsDirty());
}

TEST(HostDump, WhatIsNotThereIsRefused) {
    DumpedHost dumped;
    FileSessionHost& host = dumped.Host;
    EXPECT_EQ(modHostCommands::Edit(host, "x", 1, ""), "there is no file 'x'");
    EXPECT_EQ(modHostCommands::Edit(host, "m.bas", 3, ""), "'m' has no line 3");
    EXPECT_EQ(modHostCommands::Insert(host, "m", 4, ""), "'m' has no line 4");
    EXPECT_EQ(modHostCommands::Delete(host, "m", 0), "'m' has no line 0");
    EXPECT_EQ(modHostCommands::Close(host, "x"), "there is no project 'x'");
    EXPECT_EQ(modHostCommands::Activate(host, "x"), "there is no project 'x'");
    EXPECT_EQ(modHostCommands::Rename(host, "x", "y"), "there is no project 'x'");
    EXPECT_EQ(modHostCommands::SetDirty(host, "x", true), "there is no project 'x'");
    EXPECT_EQ(modHostCommands::SetNeverSaved(host, "x", true), "there is no project 'x'");
    EXPECT_EQ(modHostCommands::Save(host, "x"), "there is no project 'x'");
    EXPECT_EQ(modHostCommands::SelectFile(host, "x"), "there is no file 'x'");
    EXPECT_EQ(
        modHostCommands::Open(host, "\\gone\\x.vbp"), "nothing was opened from '\\gone\\x.vbp'");
    std::string json;
    EXPECT_EQ(modHostDump::DumpCode(host, "x", json), "there is no file 'x'");
    EXPECT_EQ(json, "");
    EXPECT_NE(modHostCommands::Rename(host, "P", ""), std::nullopt);
}

TEST(HostDump, ProjectIsMarkedRenamedAndClosed) {
    DumpedHost dumped;
    FileSessionHost& host = dumped.Host;
    EXPECT_EQ(modHostCommands::SetDirty(host, "p", true), std::nullopt);
    EXPECT_TRUE(host.Environment().Project(1).IsDirty());
    EXPECT_EQ(modHostCommands::SetDirty(host, "p", false), std::nullopt);
    EXPECT_FALSE(host.Environment().Project(1).IsDirty());
    EXPECT_EQ(modHostCommands::SetNeverSaved(host, "p", true), std::nullopt);
    EXPECT_EQ(host.Environment().Project(1).FileName(), "");
    EXPECT_EQ(modHostCommands::Save(host, std::nullopt), std::nullopt);
    EXPECT_NE(host.Environment().Project(1).FileName(), "");
    EXPECT_EQ(modHostCommands::Rename(host, "P", "Q"), std::nullopt);
    EXPECT_EQ(modHostCommands::Activate(host, "Q"), std::nullopt);
    EXPECT_EQ(modHostCommands::SelectFile(host, "m"), std::nullopt);
    EXPECT_EQ(modHostCommands::Close(host, "Q"), std::nullopt);
    EXPECT_EQ(host.Environment().ProjectCount(), 0);
}

TEST(HostDump, SaveThatFailsIsRefused) {
    DumpedHost dumped;
    modHostCommands::Edit(dumped.Host, "m", 1, "' \u0416");
    EXPECT_EQ(modHostCommands::Save(dumped.Host, std::nullopt), "not all could be saved");
    EXPECT_EQ(dumped.Box.Messages.size(), 1U);
}

}  // namespace dorvik
