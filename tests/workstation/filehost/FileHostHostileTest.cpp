#include "support/CapturedLog.h"
#include "support/RecordingMessageBox.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/filehost/HostFolder.h"

#include <gtest/gtest.h>

namespace dorvik {

TEST(FileHostHostile, ProjectOfTenThousandMembersOpens) {
    const test::TemporaryFolder folder;
    std::string text = "Type=Exe\r\n";
    for (int index = 0; index < 10'000; ++index) {
        const std::string name = "m" + std::to_string(index);
        folder.Write(name + ".bas", "Attribute VB_Name = \"" + name + "\"\r\nDim x\r\n");
        text += "Module=" + name + "; " + name + ".bas\r\n";
    }
    test::RecordingMessageBox box;
    FileHost host;
    ASSERT_TRUE(host.Open(folder.Write("P.vbp", text + "Name=\"P\"\r\n")));
    EXPECT_EQ(host.Project(1).ComponentCount(), 10'000);
    EXPECT_EQ(host.Project(1).Component("M9999").CodeModule().CountOfLines(), 1);
    EXPECT_TRUE(box.Messages.empty());
}

TEST(FileHostHostile, TenThousandMissingMembersAreOneMessage) {
    const test::TemporaryFolder folder;
    std::string text = "Name=\"P\"\r\n";
    for (int index = 0; index < 10'000; ++index) {
        text += "Module=m" + std::to_string(index) + "; m" + std::to_string(index) + ".bas\r\n";
    }
    test::RecordingMessageBox box;
    FileHost host;
    EXPECT_TRUE(host.Open(folder.Write("P.vbp", text)));
    EXPECT_EQ(host.Project(1).ComponentCount(), 0);
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_TRUE(box.Messages[0].Text.ends_with("\r\n... and 9990 more."));
    EXPECT_LT(box.Messages[0].Text.size(), 5000U);
}

TEST(FileHostHostile, ProjectFileThatIsNoTextIsReported) {
    const test::TemporaryFolder folder;
    test::RecordingMessageBox box;
    FileHost host;
    const std::string path = folder.Write("P.vbp", std::string(2000, '\0'));
    EXPECT_FALSE(host.Open(path));
    ASSERT_EQ(box.Messages.size(), 1U);
    EXPECT_TRUE(box.Messages[0].Text.starts_with("The project file '" + path + "' "))
        << box.Messages[0].Text;
}

TEST(FileHostHostile, ProjectOfNulsInItsLinesOpens) {
    const test::TemporaryFolder folder;
    test::RecordingMessageBox box;
    const test::CapturedLog log;
    FileHost host;
    const std::string line("Module=\0m; \0.bas\r\n", 18);
    EXPECT_TRUE(host.Open(folder.Write("P.vbp", "Name=\"P\"\r\nTitle=\"long enough\"\r\n" + line)));
    EXPECT_EQ(host.Project(1).ComponentCount(), 0);
    EXPECT_EQ(box.Messages.size(), 1U);
}

TEST(FileHostHostile, EmptyProjectFileOpensUnderTheNameOfItsFile) {
    const test::TemporaryFolder folder;
    FileHost host;
    EXPECT_TRUE(host.Open(folder.Write("Empty.vbp", "")));
    EXPECT_EQ(host.Project(1).Name(), "Empty");
    EXPECT_EQ(host.Project(1).ComponentCount(), 0);
    host.RenameProject("Empty", "Full");
    EXPECT_TRUE(host.SaveAll());
    EXPECT_EQ(folder.Read("Empty.vbp"), "Name=\"Full\"\r\n");
}

TEST(FileHostHostile, LineOfFiftyMegabytesInAProjectFileOpens) {
    const test::TemporaryFolder folder;
    FileHost host;
    EXPECT_TRUE(host.Open(
        folder.Write("P.vbp", "Name=\"P\"\r\nTitle=\"" + std::string(50'000'000, 'x') + "\"\r\n")));
    EXPECT_EQ(host.Project(1).Name(), "P");
}

TEST(FileHostHostile, GroupOfManyProjectsThatAreNotThereIsOneMessage) {
    const test::TemporaryFolder folder;
    std::string text = "VBGROUP 5.0\r\n";
    for (int index = 0; index < 2000; ++index) {
        text += "Project=p" + std::to_string(index) + ".vbp\r\n";
    }
    test::RecordingMessageBox box;
    FileHost host;
    EXPECT_FALSE(host.Open(folder.Write("G.vbg", text)));
    EXPECT_EQ(box.Messages.size(), 1U);
}

}  // namespace dorvik
