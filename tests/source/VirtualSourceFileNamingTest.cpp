#include "source/VirtualSourceFile.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace dorvik {
namespace {

using test::CapturedLog;
using test::TemporaryFolder;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

class VirtualSourceFileNaming : public testing::Test {
protected:
    SourceFileStatus Init(std::string_view line) {
        return m_file.InitFileFromVBProjectFileLine(line, m_folder.Path());
    }
    /// Names a file by a form line, from a file of that text.
    SourceFileStatus InitFromText(std::string_view text, std::string_view key = "Form") {
        m_folder.Write("x.frm", text);
        return Init(std::string(key) + "=x.frm");
    }
    std::string Path(std::string_view name) const { return m_folder.Path() + std::string(name); }
    std::string Property(std::string_view name) { return m_file.Properties().Item(name).AsText(); }

    CapturedLog m_log;
    TemporaryFolder m_folder;
    VirtualSourceFile m_file;
};

TEST_F(VirtualSourceFileNaming, AFormThatIsNotOnDiskIsNamedByItsPath) {
    EXPECT_EQ(Init("Form=frmMain.frm"), SourceFileStatus::NotFound);
    EXPECT_EQ(m_file.Name(), Path("frmMain.frm"));
    EXPECT_EQ(m_file.FileType(), FileType::None);
    EXPECT_EQ(Property("Type"), "Form");
    EXPECT_EQ(Property("Extension"), ".frm");
    EXPECT_THAT(m_log.Lines(), IsEmpty());
}

TEST_F(VirtualSourceFileNaming, ANameInTheLineIsTakenAndAMissingFileOnlyShowsAtConnect) {
    EXPECT_EQ(Init("Class=clsThing; clsThing.cls"), SourceFileStatus::Good);
    EXPECT_EQ(m_file.Name(), "clsThing");
    EXPECT_EQ(m_file.FileType(), FileType::Class);
    EXPECT_EQ(m_file.Filename(), Path("clsThing.cls"));
    EXPECT_EQ(m_file.Connect(), SourceFileStatus::NotFound);
    EXPECT_THAT(
        m_log.Lines(),
        testing::ElementsAre(
            "Failed to open file " + Path("clsThing.cls") + " - Error 53 File not found"));
}

TEST_F(VirtualSourceFileNaming, AModuleLineIsBelievedEvenOverTheTextOfAForm) {
    m_folder.Write("mod.bas", "VERSION 5.00\nBegin VB.Form frmMain \nEnd\n");
    EXPECT_EQ(Init("Module=mod.bas; mod.bas"), SourceFileStatus::Good);
    EXPECT_EQ(m_file.FileType(), FileType::Module);
    EXPECT_EQ(m_file.Name(), "mod.bas");
}

TEST_F(VirtualSourceFileNaming, AFormWithoutAnyNameGivesStatusTwoAndNoFileType) {
    EXPECT_EQ(InitFromText("VERSION 5.00\nOption Explicit\n"), SourceFileStatus::NameUnknown);
    EXPECT_EQ(m_file.FileType(), FileType::None);
    EXPECT_EQ(m_file.Name(), Path("x.frm"));
    EXPECT_EQ(Property("Name"), Path("x.frm"));
}

TEST_F(VirtualSourceFileNaming, AnMdiFormUnderTheKeyFormBecomesAnMdiForm) {
    EXPECT_EQ(InitFromText("Begin VB.MDIForm Main \nEnd\n"), SourceFileStatus::Good);
    EXPECT_EQ(Property("Type"), "MDIForm");
    EXPECT_EQ(m_file.FileType(), FileType::MDIForm);
    EXPECT_EQ(m_file.Name(), "Main");
}

TEST_F(VirtualSourceFileNaming, EachKindOfLayoutLineGivesNameAndKey) {
    struct Row {
        const char* Text;
        const char* Name;
        FileType Type;
    };
    const Row rows[] = {
        {"Begin VB.Form frmA ", "frmA", FileType::Form},
        {"BEGIN vb.form frmA", "frmA", FileType::Form},
        {"Begin VB.MDIForm frmA", "frmA", FileType::MDIForm},
        {"Begin {C0E45035-5775-11D0-B388-00A0C9055D8E} DataA ", "DataA", FileType::Designer},
        {"Begin VB.PropertyPage ppA", "ppA", FileType::PropertyPage},
        {"Begin VB.UserDocument udA", "udA", FileType::UserDocument},
        {"Begin VB.UserControl ucA", "ucA", FileType::UserControl},
        {"Attribute VB_Name = \"modA\"", "modA", FileType::Class},
        {"attribute vb_name = \" modA \" 'x\"", "modA", FileType::Class},
    };
    for (const Row& row : rows) {
        m_folder.Write("x.txt", "VERSION 5.00\n" + std::string(row.Text) + "\nEnd\n");
        VirtualSourceFile file;
        EXPECT_EQ(
            file.InitFileFromVBProjectFileLine("Class=x.txt", m_folder.Path()),
            SourceFileStatus::Good)
            << row.Text;
        EXPECT_EQ(file.Name(), row.Name);
        EXPECT_EQ(file.FileType(), row.Type) << row.Text;
    }
}

TEST_F(VirtualSourceFileNaming, NestedControlsNameNoForm) {
    EXPECT_EQ(
        InitFromText(" Begin VB.Form frmInner \n\tBegin VB.Form frmTab\nBegin VB.Form frmOuter\n"),
        SourceFileStatus::Good);
    EXPECT_EQ(m_file.Name(), "frmOuter");
}

TEST_F(VirtualSourceFileNaming, TheLayoutNamesTheFormBeforeTheNameAttributeDoes) {
    EXPECT_EQ(
        InitFromText("Begin VB.Form frmLayout \nEnd\nAttribute VB_Name = \"frmAttribute\"\n"),
        SourceFileStatus::Good);
    EXPECT_EQ(m_file.Name(), "frmLayout");
}

TEST_F(VirtualSourceFileNaming, ANamelessLayoutLineLeavesThePathAsTheName) {
    EXPECT_EQ(InitFromText("Begin VB.Form  \n"), SourceFileStatus::Good);
    EXPECT_EQ(m_file.Name(), Path("x.frm"));
    EXPECT_EQ(m_file.FileType(), FileType::Form);
}

TEST_F(VirtualSourceFileNaming, ADesignerLineCutOffBeforeItsBraceHasNoName) {
    EXPECT_EQ(InitFromText("Begin {C0E45035-5775", "Designer"), SourceFileStatus::Good);
    EXPECT_EQ(m_file.Name(), Path("x.frm"));
    EXPECT_EQ(m_file.FileType(), FileType::Designer);
}

TEST_F(VirtualSourceFileNaming, ANameAttributeWithoutItsQuotesIsAnErrorThatIsLogged) {
    EXPECT_EQ(InitFromText("Attribute VB_Name = \"mod"), SourceFileStatus::UnexpectedError);
    EXPECT_EQ(m_file.Name(), Path("x.frm"));
    EXPECT_EQ(Property("Type"), "Form");
    EXPECT_THAT(
        m_log.Lines(),
        Contains(AllOf(
            HasSubstr("#Error #5 - "), HasSubstr("VirtualSourceFile::DetermineNameAndFileType"))));
}

TEST_F(VirtualSourceFileNaming, AFolderWhereTheFileShouldBeIsAnErrorThatIsLogged) {
    m_folder.Write("x.frm\\y.txt", "");
    EXPECT_EQ(Init("Form=x.frm"), SourceFileStatus::UnexpectedError);
    EXPECT_THAT(m_log.Lines(), Contains(HasSubstr("VirtualSourceFile::DetermineNameAndFileType")));
}

TEST_F(VirtualSourceFileNaming, ALineWithoutAnEqualsSignGivesStatusThreeAndNothingElse) {
    EXPECT_EQ(Init("Form frmMain.frm"), SourceFileStatus::TypeUnknown);
    EXPECT_EQ(m_file.Name(), "");
    EXPECT_EQ(m_file.Filename(), "");
    EXPECT_EQ(m_file.Properties().Count(), 0);
}

TEST_F(VirtualSourceFileNaming, AKeyThatIsNoFileTypeGivesStatusThreeWithoutANameOrProperties) {
    EXPECT_EQ(Init("Picture=picMain; main.bmp"), SourceFileStatus::TypeUnknown);
    EXPECT_EQ(m_file.Name(), "");
    EXPECT_EQ(m_file.Filename(), Path("main.bmp"));
    EXPECT_EQ(m_file.Properties().Count(), 0);
}

TEST_F(VirtualSourceFileNaming, TheNameInTheLineIsNotTrimmedButTheFileIs) {
    EXPECT_EQ(Init("Class= cls ;  c.cls  "), SourceFileStatus::Good);
    EXPECT_EQ(m_file.Name(), " cls ");
    EXPECT_EQ(m_file.Filename(), Path("c.cls"));
}

TEST_F(VirtualSourceFileNaming, AnEmptyNameInTheLineBecomesThePath) {
    EXPECT_EQ(Init("Class=; c.cls"), SourceFileStatus::Good);
    EXPECT_EQ(m_file.Name(), Path("c.cls"));
    EXPECT_EQ(m_file.FileType(), FileType::Class);
}

TEST_F(VirtualSourceFileNaming, TheBagHoldsNameTypeAndThePropertiesOfTheFileName) {
    EXPECT_EQ(Init("userCONTROL=ucGrid; Grid\\ucGrid.ctl"), SourceFileStatus::Good);
    const std::pair<const char*, std::string> rows[] = {
        {"Name", "ucGrid"},
        {"Type", "userCONTROL"},
        {"FullFilename", Path("Grid\\ucGrid.ctl")},
        {"Path", Path("Grid\\")},
        {"Filename", "ucGrid.ctl"},
        {"Extension", ".ctl"},
    };
    ASSERT_EQ(m_file.Properties().Count(), 6);
    std::int32_t index = 0;
    for (const auto& [name, value] : rows) {
        EXPECT_EQ(m_file.Properties().Key(++index), name);
        EXPECT_EQ(Property(name), value);
    }
}

TEST_F(VirtualSourceFileNaming, AnotherProjectFileUnderTheNameOfAFormHasNoName) {
    EXPECT_EQ(
        InitFromText("Type=Exe\nForm=frmMain.frm\nName=\"Other\"\n"),
        SourceFileStatus::NameUnknown);
    ASSERT_EQ(m_file.Connect(), SourceFileStatus::Good);
    SourceLine line;
    ASSERT_TRUE(m_file.GetNextSourceLine(line));
    EXPECT_EQ(line.Logical, "Type=Exe");
}

TEST_F(VirtualSourceFileNaming, AFilePaddedWithNulsStillGivesItsName) {
    std::string text = "Begin VB.Form frmMain \r\nEnd\r\n";
    text.append(4096, '\0');
    EXPECT_EQ(InitFromText(text), SourceFileStatus::Good);
    EXPECT_EQ(m_file.Name(), "frmMain");
    m_folder.Write("y.frm", std::string(8192, '\0'));
    VirtualSourceFile nulsOnly;
    EXPECT_EQ(
        nulsOnly.InitFileFromVBProjectFileLine("Form=y.frm", m_folder.Path()),
        SourceFileStatus::UnexpectedError);
    EXPECT_THAT(nulsOnly.Unreadable(), testing::HasSubstr("binary"));
}

TEST_F(VirtualSourceFileNaming, AByteOrderMarkBelongsToNoLine) {
    EXPECT_EQ(
        InitFromText("\xEF\xBB\xBF"
                     "Begin VB.Form frmMain\n"),
        SourceFileStatus::Good);
    EXPECT_EQ(m_file.Name(), "frmMain");
}

}  // namespace
}  // namespace dorvik
