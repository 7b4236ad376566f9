#include "enforcement/NamingConventionHelper.h"

#include "base/modTextCase.h"
#include "platform/host/IHostInput.h"
#include "platform/host/ScopedInstall.h"
#include "source/VirtualSourceFile.h"
#include "support/CapturedLog.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace dorvik {

namespace {

/// A helper, and source files in a folder of their own.
class NamingConventionHelperTest : public testing::Test {
protected:
    /// Scans a file of that name, type and text. Lone line feeds become CR LF.
    std::int32_t Scan(const std::string& name, FileType type, const std::string& text) {
        VirtualSourceFile file;
        file.SetName(name);
        file.SetFileType(type);
        file.SetFilename(
            m_folder.Write(name + ".bas", modTextCase::ReplaceAll(text, "\n", "\r\n")));
        return m_helper.ExtractGlobalNames(file);
    }

    std::optional<NameKind> Find(std::string_view typeName, std::string_view module = "") const {
        return m_helper.NameTable().FindName(typeName, module);
    }

    test::TemporaryFolder m_folder;
    test::CapturedLog m_log;
    NamingConventionHelper m_helper;
};

TEST_F(NamingConventionHelperTest, ExtractGlobalNames_TakesTheFileUnderItsKind) {
    struct Row {
        FileType Type;
        NameKind Kind;
    };
    const Row rows[] = {
        {FileType::Class, NameKind::ClassFile},
        {FileType::Form, NameKind::FormFile},
        {FileType::Designer, NameKind::DesignerFile},
        {FileType::Module, NameKind::ModuleFile},
        {FileType::PropertyPage, NameKind::PropertyPageFile},
        {FileType::UserDocument, NameKind::UserDocumentFile},
        {FileType::UserControl, NameKind::UserControlFile},
        {FileType::MDIForm, NameKind::MDIFormFile},
    };
    for (const Row& row : rows) {
        const std::string name = "File" + std::to_string(static_cast<int>(row.Type));
        EXPECT_EQ(Scan(name, row.Type, "Option Explicit\n"), 0);
        EXPECT_EQ(Find(name), row.Kind) << name;
    }
}

TEST_F(NamingConventionHelperTest, ExtractGlobalNames_FindsTypesAndEnumerationsWithTheirScopes) {
    EXPECT_EQ(
        Scan(
            "modA",
            FileType::Module,
            "Attribute VB_Name = \"modA\"\n"
            "Public Enum Colours\n    Red\nEnd Enum\n"
            "Private Enum Secrets\n    One\nEnd Enum\n"
            "Type Address\n    Street As String\nEnd Type\n"
            "Private Type Hidden\n    X As Long\nEnd Type\n"),
        0);
    EXPECT_EQ(Find("Colours", "modB"), NameKind::Enumeration);
    EXPECT_EQ(Find("modA.Colours", "modB"), NameKind::Enumeration);
    EXPECT_EQ(Find("Secrets", "modA"), NameKind::Enumeration);
    EXPECT_EQ(Find("Secrets", "modB"), std::nullopt);
    EXPECT_EQ(Find("Address", "modB"), NameKind::UserDefinedType);
    EXPECT_EQ(Find("Hidden", "modA"), NameKind::UserDefinedType);
    EXPECT_EQ(Find("Hidden", "modB"), std::nullopt);
}

TEST_F(NamingConventionHelperTest, ExtractGlobalNames_StopsAtTheFirstProcedure) {
    Scan(
        "modA",
        FileType::Module,
        "Public Enum Before\n    One\nEnd Enum\n"
        "Public Sub Work()\nEnd Sub\n"
        "Public Type After\n    X As Long\nEnd Type\n");
    EXPECT_EQ(Find("Before"), NameKind::Enumeration);
    EXPECT_EQ(Find("After"), std::nullopt);
}

TEST_F(NamingConventionHelperTest, ExtractGlobalNames_WorksOnWholeLogicalLines) {
    Scan(
        "modA",
        FileType::Module,
        "Public _\n  Enum Continued\n    One\nEnd Enum\n"
        "Dim x As Long: Public Enum AfterAColon\n    One\nEnd Enum\n");
    EXPECT_EQ(Find("Continued"), NameKind::Enumeration);
    EXPECT_EQ(Find("AfterAColon"), std::nullopt);
}

TEST_F(NamingConventionHelperTest, ExtractGlobalNames_FileThatIsMissingIsKnownByNameAndGivesTen) {
    VirtualSourceFile file;
    file.SetName("modGone");
    file.SetFileType(FileType::Module);
    file.SetFilename(m_folder.Path("modGone.bas"));
    EXPECT_EQ(m_helper.ExtractGlobalNames(file), 10);
    EXPECT_EQ(Find("modGone"), NameKind::ModuleFile);
}

TEST_F(NamingConventionHelperTest, ExtractGlobalNames_LeavesTheFileFreeForItsReview) {
    VirtualSourceFile file;
    file.SetName("modA");
    file.SetFileType(FileType::Module);
    file.SetFilename(m_folder.Write("modA.bas", "Option Explicit\r\nSub Work()\r\nEnd Sub\r\n"));
    m_helper.ExtractGlobalNames(file);
    ASSERT_EQ(file.Connect(), SourceFileStatus::Good);
    SourceLine line;
    ASSERT_TRUE(file.GetNextSourceLine(line));
    EXPECT_EQ(line.Logical, "Option Explicit");
}

class CountingInput final : public IHostInput {
public:
    bool InputIsWaiting() override { return true; }
    void ProcessInput() override { ++Processed; }
    int Processed = 0;
};

TEST_F(NamingConventionHelperTest, ExtractGlobalNames_GivesWayToWaitingInputAtEachLine) {
    CountingInput input;
    const ScopedInstall<IHostInput> installed(input);
    Scan("modA", FileType::Module, "Option Explicit\nDim a As Long\nDim b As Long\n");
    EXPECT_EQ(input.Processed, 3);
}

TEST_F(NamingConventionHelperTest, AClassOfTheProjectIsKnownBesideALibrariesClassOfThatName) {
    const auto library = std::make_shared<VirtualTypeLibrary>(nullptr);
    library->AddTypeKind("Foo", 5);
    m_helper.AddTypeLibrary("Lib", library);
    Scan("Foo", FileType::Class, "Option Explicit\n");
    EXPECT_EQ(Find("Foo", "modA"), NameKind::ClassFile);
}

TEST_F(NamingConventionHelperTest, AddTypeLibrary_UnderAKeyInUseFailsAndIsLogged) {
    const auto library = std::make_shared<VirtualTypeLibrary>(nullptr);
    EXPECT_TRUE(m_helper.AddTypeLibrary("Lib", library));
    EXPECT_FALSE(m_helper.AddTypeLibrary("LIB", library));
    EXPECT_TRUE(m_log.Contains("'LIB' is already in use.#C_NCHelper::AddTypeLibrary"));
}

}  // namespace

}  // namespace dorvik
