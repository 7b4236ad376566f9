#include "source/VirtualProject.h"

#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvik {
namespace {

using test::CapturedLog;
using test::TemporaryFolder;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kStdole =
    "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#stdole2.tlb#OLE Automation\r\n";

class VirtualProjectTest : public testing::Test {
protected:
    ProjectLoadStatus Load(std::string_view bytes) {
        m_folder.Write("Billing.vbp", bytes);
        return m_project.LoadProject(Path("Billing.vbp"));
    }
    std::string Path(std::string_view name) const { return m_folder.Path() + std::string(name); }
    std::string Property(std::string_view name) {
        return m_project.Properties().Item(name).AsText();
    }

    CapturedLog m_log;
    TemporaryFolder m_folder;
    VirtualProject m_project;
};

TEST_F(VirtualProjectTest, IsEmptyAfterConstruction) {
    EXPECT_EQ(m_project.References().Count(), 0);
    EXPECT_EQ(m_project.Components().Count(), 0);
    EXPECT_EQ(m_project.RelatedDocs().Count(), 0);
    EXPECT_EQ(m_project.SourceFiles().Count(), 0);
    EXPECT_EQ(m_project.Properties().Count(), 0);
    EXPECT_EQ(m_project.Outcome().ReviewStatus, 0);
    EXPECT_EQ(m_project.Outcome().ReferenceErrors, 0);
    EXPECT_EQ(m_project.Outcome().ComponentErrors, 0);
    EXPECT_EQ(m_project.Outcome().FileErrors, 0);
    EXPECT_EQ(m_project.Outcome().ScanErrors, 0);
    EXPECT_EQ(m_project.FileCount(FileType::Form), 0);
}

TEST_F(VirtualProjectTest, ReadsAWholeProject) {
    m_folder.Write("frmMain.frm", "VERSION 5.00\r\nBegin VB.Form frmMain \r\nEnd\r\n");
    EXPECT_EQ(
        Load(
            "Type=Exe\r\n" + std::string(kStdole) +
            "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX\r\n"
            "Form=frmMain.frm\r\nModule=modMain; modMain.bas\r\nRelatedDoc=..\\readme.txt\r\n"
            "Startup=\"frmMain\"\r\nName=\"Billing\"\r\nMajorVer=1\r\nAutoIncrementVer=0\r\n"),
        ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_EQ(m_project.ProjectType(), "Exe");
    EXPECT_EQ(m_project.Filename(), Path("Billing.vbp"));
    EXPECT_EQ(m_project.RelatedDocs().Item("1"), "..\\readme.txt");
    EXPECT_EQ(m_project.Components().Count(), 1);
    EXPECT_EQ(m_project.References().Count(), 4);
    ASSERT_EQ(m_project.SourceFiles().Count(), 2);
    EXPECT_EQ(m_project.SourceFiles().Key(1), "frmMain");
    EXPECT_EQ(m_project.SourceFiles().Item("modmain")->Filename(), Path("modMain.bas"));
    EXPECT_THAT(m_log.Lines(), IsEmpty());

    std::vector<std::string> keys;
    for (std::int32_t index = 1; index <= m_project.Properties().Count(); ++index) {
        keys.push_back(m_project.Properties().Key(index));
    }
    EXPECT_EQ(
        keys,
        (std::vector<std::string>{
            "Type",
            "Startup",
            "Name",
            "MajorVer",
            "AutoIncrementVer",
            "FullFilename",
            "Path",
            "Filename",
            "Extension"}));
    EXPECT_TRUE(m_project.Properties().Item("MajorVer").IsText());
    EXPECT_EQ(Property("MajorVer"), "1");
    EXPECT_EQ(Property("Extension"), ".vbp");
}

TEST_F(VirtualProjectTest, TheFirstEmptyLineEndsTheReading) {
    EXPECT_EQ(
        Load("Name=\"Billing\"\r\n\r\nModule=modMain; modMain.bas\r\nMajorVer=1\r\n"),
        ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_EQ(m_project.SourceFiles().Count(), 0);
    EXPECT_FALSE(m_project.Properties().Contains("MajorVer"));
}

TEST_F(VirtualProjectTest, ForeignSectionsBehindABlankLineDisturbNothing) {
    EXPECT_EQ(
        Load("Type=Exe\r\nName=\"Billing\"\r\n\r\n[MS Transaction Server]\r\nAutoRefresh=1\r\n"
             "Name=other\r\n"),
        ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_FALSE(m_project.Properties().Contains("AutoRefresh"));
}

TEST_F(VirtualProjectTest, ForeignSectionsWithoutABlankLineAreProperties) {
    EXPECT_EQ(
        Load("Name=Billing\n[MS Transaction Server]\nAutoRefresh=1\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(Property("AutoRefresh"), "1");
}

TEST_F(VirtualProjectTest, AnEmptyFirstLineGivesStatusZeroAndTheThreeDefaultReferences) {
    EXPECT_EQ(Load("\r\nModule=modMain; modMain.bas\r\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.SourceFiles().Count(), 0);
    EXPECT_EQ(m_project.References().Count(), 3);
}

TEST_F(VirtualProjectTest, AProjectFileOfZeroBytesGivesStatusZero) {
    EXPECT_EQ(Load(""), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.References().Count(), 3);
    EXPECT_THAT(m_log.Lines(), IsEmpty());
}

TEST_F(VirtualProjectTest, ALineOfBlanksIsNotAnEmptyLine) {
    EXPECT_EQ(Load("Type=Exe\r\n   \r\nName=Billing\r\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Name(), "Billing");
}

TEST_F(VirtualProjectTest, AByteOrderMarkBelongsToNoLine) {
    EXPECT_EQ(Load("\xEF\xBB\xBFType=Exe\r\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.ProjectType(), "Exe");
    EXPECT_EQ(m_project.Properties().Key(1), "Type");
}

TEST_F(VirtualProjectTest, EveryKindOfLineEndIsRead) {
    EXPECT_EQ(Load("Type=Exe\rName=Billing\nTitle=x\r\nHelp=y"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.ProjectType(), "Exe");
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_EQ(Property("Title"), "x");
    EXPECT_EQ(Property("Help"), "y");
}

TEST_F(VirtualProjectTest, ALineWithoutAnEqualsSignChangesNothing) {
    EXPECT_EQ(Load("just words\r\nName=Billing\r\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Properties().Key(1), "Name");
}

TEST_F(VirtualProjectTest, AValueOfOneLoneQuoteIsLoggedAndStopsTheReading) {
    EXPECT_EQ(Load("Type=Exe\r\nTitle=\"\r\nName=Billing\r\n"), ProjectLoadStatus::LineFailed);
    EXPECT_EQ(m_project.ProjectType(), "Exe");
    EXPECT_EQ(m_project.Name(), "");
    EXPECT_THAT(
        m_log.Lines(),
        Contains(AllOf(
            HasSubstr("#Error #5 - "), HasSubstr("VirtualProject::DecodeLineFromVBProjectFile"))));
}

TEST_F(VirtualProjectTest, KeysKeepTheirSpellingInTheBagAndMatchInAnyCase) {
    m_folder.Write("x.cls", "");
    EXPECT_EQ(
        Load("NAME=Billing\ntYPE=OleDll\nCompilationtype=-1\nclass=clsX; x.cls\n"),
        ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_EQ(m_project.ProjectType(), "OleDll");
    EXPECT_EQ(m_project.Properties().Key(1), "NAME");
    EXPECT_EQ(m_project.Properties().Key(2), "tYPE");
    EXPECT_EQ(m_project.Properties().Key(3), "Compilationtype");
    EXPECT_EQ(m_project.FileCount(FileType::Class), 1);
}

TEST_F(VirtualProjectTest, KeyAndValueAreNotTrimmed) {
    EXPECT_EQ(Load("Name = Billing\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Name(), "");
    EXPECT_EQ(Property("Name "), " Billing");
}

TEST_F(VirtualProjectTest, TwoLinesOfOneKeyStopTheReadingWithStatusOne) {
    EXPECT_EQ(
        Load("Title=a\nRelatedDoc=x\ntitle=b\nName=Billing\n"), ProjectLoadStatus::LineFailed);
    EXPECT_EQ(Property("Title"), "a");
    EXPECT_EQ(m_project.RelatedDocs().Count(), 1);
    EXPECT_EQ(m_project.Name(), "");
    EXPECT_FALSE(m_project.Properties().Contains("FullFilename"));
    EXPECT_THAT(
        m_log.Lines(),
        Contains(AllOf(
            HasSubstr("the key 'title' is already in use."),
            HasSubstr("VirtualProject::DecodeLineFromVBProjectFile"))));
}

TEST_F(VirtualProjectTest, FormsAndMdiFormsShareOneCounter) {
    EXPECT_EQ(
        Load("Form=frmMain; frmMain.frm\nMDIForm=frmMDI; frmMDI.frm\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.FileCount(FileType::Form), 2);
    EXPECT_EQ(m_project.FileCount(FileType::MDIForm), 2);
    EXPECT_EQ(m_project.FileCount(FileType::Module), 0);
}

TEST_F(VirtualProjectTest, FileCountAnswersByFileTypeAndWithZeroForAnyOtherValue) {
    EXPECT_EQ(
        Load("Class=a; a\nDesigner=b; b\nDesigner=b2; b\nModule=c; c\nPropertyPage=d; d\n"
             "UserDocument=e; e\nUserControl=f; f\n"),
        ProjectLoadStatus::Good);
    const std::int32_t expected[] = {0, 1, 0, 2, 1, 1, 1, 1, 0, 0};
    for (int number = 0; number <= 9; ++number) {
        EXPECT_EQ(m_project.FileCount(static_cast<FileType>(number)), expected[number]) << number;
    }
}

TEST_F(VirtualProjectTest, AReferenceWithTooFewElementsIsLoggedAndOnlyThatLineIsLost) {
    EXPECT_EQ(
        Load("Reference=*\\G{0}#2.0#0#\r\n" + std::string(kStdole) + "Name=Billing\r\n"),
        ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.References().Count(), 4);
    EXPECT_FALSE(m_project.References().Contains("{0}"));
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_THAT(
        m_log.Lines(),
        Contains(AllOf(
            HasSubstr("#Error #9 - "), HasSubstr("VirtualProject::AddProjectFileReference"))));
}

TEST_F(VirtualProjectTest, AReferenceToADefaultLibraryIsLoggedAndTheDefaultStays) {
    EXPECT_EQ(
        Load("Reference=*\\G{fcfb3d2e-a0fa-1068-a738-08002b3371b5}#5.0#0#mine.olb#Mine\r\n"
             "Name=Billing\r\n"),
        ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.References().Count(), 3);
    EXPECT_EQ(
        m_project.References().Item("{FCFB3D2E-A0FA-1068-A738-08002B3371B5}")->Filename, "VB6.OLB");
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_THAT(m_log.Lines(), Contains(HasSubstr("VirtualProject::AddProjectFileReference")));
}

TEST_F(VirtualProjectTest, TheDefaultReferencesStandAheadOfAllOthers) {
    EXPECT_EQ(Load(kStdole), ProjectLoadStatus::Good);
    ASSERT_EQ(m_project.References().Count(), 4);
    const char* const rows[][3] = {
        {"{000204EF-0000-0000-C000-000000000046}", "MSVBVM60.DLL", "Visual Basic For Applications"},
        {"{EA544A21-C82D-11D1-A3E4-00A0C90AEA82}",
         "MSVBVM60.DLL\\3",
         "Visual Basic runtime objects and procedures"},
        {"{FCFB3D2E-A0FA-1068-A738-08002B3371B5}",
         "VB6.OLB",
         "Visual Basic objects and procedures"},
    };
    for (std::int32_t index = 1; index <= 3; ++index) {
        const auto& [guid, filename, description] = rows[index - 1];
        const VirtualReference& reference = *m_project.References().Item(index);
        EXPECT_EQ(m_project.References().Key(index), guid);
        EXPECT_EQ(reference.GUID, guid);
        EXPECT_EQ(reference.Filename, filename);
        EXPECT_EQ(reference.Description, description);
        EXPECT_EQ(reference.Version, "6.0");
        EXPECT_EQ(reference.LCID, 9);
        EXPECT_FALSE(reference.DesignTime);
    }
    EXPECT_EQ(m_project.References().Item(4)->Description, "OLE Automation");
}

TEST_F(VirtualProjectTest, ABrokenOrRepeatedComponentCostsOnlyItsLine) {
    EXPECT_EQ(
        Load("Object={A}#1.0#0; a.ocx\nObject={a}#2.0#0; b.ocx\nObject={B}#1.0#0\n"
             "Object=*\\AGrid.vbp\nName=Billing\n"),
        ProjectLoadStatus::Good);
    ASSERT_EQ(m_project.Components().Count(), 2);
    EXPECT_EQ(m_project.Components().Item("{A}")->Filename, "a.ocx");
    EXPECT_TRUE(m_project.Components().Item("AGrid.vbp")->DesignTime);
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_EQ(m_log.Lines().size(), 2U);
    EXPECT_THAT(m_log.Lines(), testing::Each(HasSubstr("VirtualProject::AddProjectFileComponent")));
}

TEST_F(VirtualProjectTest, FavorPentiumProIsFoundWithoutItsMark) {
    EXPECT_EQ(Load("favorpentiumpro(TM)=0\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Properties().Key(1), "FavorPentiumPro");
    EXPECT_EQ(Property("FavorPentiumPro"), "0");
    EXPECT_FALSE(m_project.Properties().Contains("FavorPentiumPro(tm)"));
}

TEST_F(VirtualProjectTest, RelatedDocumentsAreNumbered) {
    EXPECT_EQ(Load("RelatedDoc=a.txt\nRelatedDoc=\"b.txt\"\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.RelatedDocs().Key(2), "2");
    EXPECT_EQ(m_project.RelatedDocs().Item("2"), "b.txt");
}

TEST_F(VirtualProjectTest, MissingFilesAndPathsGiveStatusThreeWithoutALogEntry) {
    EXPECT_EQ(m_project.LoadProject(Path("none.vbp")), ProjectLoadStatus::NotFound);
    EXPECT_EQ(m_project.LoadProject(Path("none\\none.vbp")), ProjectLoadStatus::NotFound);
    EXPECT_EQ(m_project.LoadProject("Q:\\a\\a.vbp"), ProjectLoadStatus::NotFound);
    EXPECT_EQ(m_project.Filename(), "");
    EXPECT_EQ(m_project.References().Count(), 0);
    EXPECT_THAT(m_log.Lines(), IsEmpty());
}

TEST_F(VirtualProjectTest, AFolderWhereAFileIsExpectedGivesStatusTwoWithoutALogEntry) {
    m_folder.Write("folder.vbp\\x.txt", "");
    EXPECT_EQ(m_project.LoadProject(Path("folder.vbp")), ProjectLoadStatus::NotOpened);
    EXPECT_THAT(m_log.Lines(), IsEmpty());
}

TEST_F(VirtualProjectTest, ASourceFileThatFailedIsStillListed) {
    EXPECT_EQ(Load("Form=frmGone.frm\nName=Billing\n"), ProjectLoadStatus::Good);
    ASSERT_EQ(m_project.SourceFiles().Count(), 1);
    const VirtualSourceFile& file = *m_project.SourceFiles().Item(1);
    EXPECT_EQ(m_project.SourceFiles().Key(1), Path("frmGone.frm"));
    EXPECT_EQ(file.ReviewStatus(), SourceFileStatus::NotFound);
    EXPECT_EQ(file.Project(), &m_project);
    EXPECT_EQ(m_project.FileCount(FileType::Form), 1);
}

TEST_F(VirtualProjectTest, TwoSourceFilesUnderOneKeyGiveLoadStatusOne) {
    EXPECT_EQ(
        Load("Module=modA; a.bas\nClass=MODA; b.cls\nName=Billing\n"),
        ProjectLoadStatus::LineFailed);
    EXPECT_EQ(m_project.SourceFiles().Count(), 1);
    EXPECT_EQ(m_project.FileCount(FileType::Class), 1);
    EXPECT_EQ(m_project.Name(), "");
    EXPECT_THAT(
        m_log.Lines(),
        Contains(AllOf(
            HasSubstr("the key 'MODA' is already in use."),
            HasSubstr("VirtualProject::AddProjectFileSourceFile"))));
}

TEST_F(VirtualProjectTest, PropertiesOnlyFillsNoListButCountsTheFiles) {
    m_folder.Write(
        "a.vbp",
        std::string(kStdole) + "Object={A}#1.0#0; a.ocx\nRelatedDoc=x\nForm=frmGone.frm\n"
                               "Name=Billing\nTitle=t\n");
    EXPECT_EQ(m_project.LoadProjectFile(Path("a.vbp"), true), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.References().Count(), 0);
    EXPECT_EQ(m_project.Components().Count(), 0);
    EXPECT_EQ(m_project.RelatedDocs().Count(), 0);
    EXPECT_EQ(m_project.SourceFiles().Count(), 0);
    EXPECT_EQ(m_project.FileCount(FileType::Form), 1);
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_EQ(m_project.Properties().Count(), 2);
}

TEST_F(VirtualProjectTest, ClearingTheListsKeepsTheScalarValues) {
    EXPECT_EQ(
        Load("Name=Billing\nModule=modA; a.bas\nObject={A}#1.0#0; a\nRelatedDoc=x\n"),
        ProjectLoadStatus::Good);
    const auto file = m_project.SourceFiles().Item(1);
    m_project.Outcome().FileErrors = 3;
    m_project.ClearListProperties();
    EXPECT_EQ(m_project.References().Count(), 0);
    EXPECT_EQ(m_project.Components().Count(), 0);
    EXPECT_EQ(m_project.RelatedDocs().Count(), 0);
    EXPECT_EQ(m_project.SourceFiles().Count(), 0);
    EXPECT_EQ(m_project.Properties().Count(), 0);
    EXPECT_EQ(m_project.Name(), "Billing");
    EXPECT_EQ(m_project.Outcome().FileErrors, 3);
    EXPECT_EQ(m_project.FileCount(FileType::Module), 1);
    EXPECT_EQ(file->Project(), nullptr);
}

TEST_F(VirtualProjectTest, AFileThatOutlivesItsProjectRefersToNone) {
    std::shared_ptr<VirtualSourceFile> file;
    m_folder.Write("a.vbp", "Module=modA; a.bas\n");
    {
        VirtualProject project;
        ASSERT_EQ(project.LoadProject(Path("a.vbp")), ProjectLoadStatus::Good);
        file = project.SourceFiles().Item(1);
        ASSERT_EQ(file->Project(), &project);
    }
    EXPECT_EQ(file->Project(), nullptr);
}

TEST_F(VirtualProjectTest, AProjectThatNamesItselfAsASourceFileIsReadAsText) {
    EXPECT_EQ(
        Load("Form=Billing.vbp\nModule=modSelf; Billing.vbp\nName=Billing\n"),
        ProjectLoadStatus::Good);
    ASSERT_EQ(m_project.SourceFiles().Count(), 2);
    EXPECT_EQ(m_project.SourceFiles().Item(1)->ReviewStatus(), SourceFileStatus::NameUnknown);
    VirtualSourceFile& self = *m_project.SourceFiles().Item("modSelf");
    EXPECT_EQ(self.ReviewStatus(), SourceFileStatus::Good);
    ASSERT_EQ(self.Connect(), SourceFileStatus::Good);
    SourceLine line;
    ASSERT_TRUE(self.GetNextSourceLine(line));
    EXPECT_EQ(line.Logical, "Form=Billing.vbp");
}

TEST_F(VirtualProjectTest, NamesMatchTheDiskInAnyCaseAndThroughFolders) {
    m_folder.Write("Forms\\FrmMain.FRM", "Begin VB.Form frmMain \n");
    EXPECT_EQ(Load("Form=forms\\frmmain.frm\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.SourceFiles().Item("frmMain")->ReviewStatus(), SourceFileStatus::Good);
}

TEST_F(VirtualProjectTest, PathsThatLeadUpwardsAreResolvedAgainstTheProjectsFolder) {
    m_folder.Write("shared\\modShared.bas", "Attribute VB_Name = \"modShared\"\n");
    m_folder.Write("app\\App.vbp", "Module=modShared; ..\\shared\\modShared.bas\n");
    EXPECT_EQ(m_project.LoadProject(Path("app\\App.vbp")), ProjectLoadStatus::Good);
    const auto& file = m_project.SourceFiles().Item(1);
    EXPECT_EQ(file->Filename(), Path("shared\\modShared.bas"));
    EXPECT_EQ(file->Connect(), SourceFileStatus::Good);
}

TEST_F(VirtualProjectTest, AbsoluteAndNetworkPathsThatDoNotExistHereAreMissingFiles) {
    EXPECT_EQ(
        Load("Form=C:\\Work\\frmA.frm\nForm=\\\\server\\x\\frmB.frm\n"), ProjectLoadStatus::Good);
    for (std::int32_t index = 1; index <= 2; ++index) {
        EXPECT_EQ(m_project.SourceFiles().Item(index)->ReviewStatus(), SourceFileStatus::NotFound);
    }
    EXPECT_EQ(m_project.SourceFiles().Key(1), "C:\\Work\\frmA.frm");
}

TEST_F(VirtualProjectTest, TheCodePageReachesProjectAndSourceFiles) {
    m_folder.Write("c.vbp", "Name=\xC0\xE1\nModule=modA; a.bas\n");
    m_folder.Write("a.bas", "' \xC0\xE1\n");
    VirtualProject project(1251);
    ASSERT_EQ(project.LoadProject(Path("c.vbp")), ProjectLoadStatus::Good);
    EXPECT_EQ(project.Name(), "\xD0\x90\xD0\xB1");
    const auto& file = project.SourceFiles().Item(1);
    ASSERT_EQ(file->Connect(), SourceFileStatus::Good);
    SourceLine line;
    ASSERT_TRUE(file->GetNextSourceLine(line));
    EXPECT_EQ(line.Raw, "' \xD0\x90\xD0\xB1");
    EXPECT_EQ(line.RawLength, 4);
}

TEST_F(VirtualProjectTest, APropertyNamedAsOneOfTheFileNameKeepsTheStatus) {
    EXPECT_EQ(Load("Path=mine\nName=Billing\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(Property("Path"), "mine");
    EXPECT_EQ(m_log.Lines().size(), 1U);
}

TEST_F(VirtualProjectTest, BinaryDataIsReadAsLinesWithoutAFailure) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    EXPECT_NO_THROW(Load(bytes + bytes));
}

TEST_F(VirtualProjectTest, EachReadingBeginsAfreshWhateverTheLastReviewLeft) {
    const std::string text = "Type=Exe\r\nModule=modA; modA.bas\r\nName=\"P\"\r\n" +
                             std::string(kStdole) + "RelatedDoc=x.txt\r\n";
    ASSERT_EQ(Load(text), ProjectLoadStatus::Good);
    m_project.Outcome().ReferenceErrors = 1;
    m_project.Outcome().ComponentErrors = 2;
    m_project.Outcome().FileErrors = 3;
    m_project.Outcome().ScanErrors = 4;
    m_project.Outcome().ReviewStatus = 1;
    m_project.Outcome().UnreviewedFiles.push_back({"modA.bas", SourceFileStatus::Good});
    m_project.Outcome().CutLayouts.push_back({"frmA.frm", {7, "there is something wrong"}});
    ASSERT_EQ(Load(text), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Outcome().ReferenceErrors, 0);
    EXPECT_EQ(m_project.Outcome().ComponentErrors, 0);
    EXPECT_EQ(m_project.Outcome().FileErrors, 0);
    EXPECT_EQ(m_project.Outcome().ScanErrors, 0);
    EXPECT_EQ(m_project.Outcome().ReviewStatus, 0);
    EXPECT_THAT(m_project.Outcome().UnreviewedFiles, IsEmpty());
    EXPECT_THAT(m_project.Outcome().CutLayouts, IsEmpty());
    EXPECT_EQ(m_project.FileCount(FileType::Module), 1);
    EXPECT_EQ(m_project.SourceFiles().Count(), 1);
    EXPECT_EQ(m_project.RelatedDocs().Count(), 1);
    EXPECT_EQ(m_project.References().Count(), 4);
    EXPECT_EQ(Property("Type"), "Exe");
    EXPECT_THAT(m_log.Lines(), IsEmpty());
}

TEST_F(VirtualProjectTest, NothingOfTheLastReadingIsLeftInAProjectThatLacksIt) {
    Load("Type=Exe\r\nModule=modA; modA.bas\r\nName=\"P\"\r\n");
    Load("Title=\"x\"\r\n");
    EXPECT_EQ(m_project.Name(), "");
    EXPECT_EQ(m_project.ProjectType(), "");
    EXPECT_EQ(m_project.FileCount(FileType::Module), 0);
    EXPECT_EQ(m_project.SourceFiles().Count(), 0);
    EXPECT_FALSE(m_project.Properties().Contains("Type"));
    EXPECT_EQ(m_project.LoadProject(Path("Gone.vbp")), ProjectLoadStatus::NotFound);
    EXPECT_EQ(m_project.Properties().Count(), 0);
}

TEST_F(VirtualProjectTest, ProjectFileThatHoldsNoTextIsNotOpenedAndSaysWhy) {
    EXPECT_EQ(Load(std::string(1000, '\0')), ProjectLoadStatus::NotOpened);
    EXPECT_THAT(m_project.Unreadable(), HasSubstr("binary"));
    EXPECT_EQ(Load("Type=Exe\r\n"), ProjectLoadStatus::Good);
    EXPECT_EQ(m_project.Unreadable(), "");
}

}  // namespace
}  // namespace dorvik
