#include "reports/format/modReportFile.h"

#include "base/BasicError.h"
#include "platform/host/OutputRefusal.h"
#include "platform/host/modFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

TEST(modReportFile, AsciiTextStandsToTheByte) {
    const std::string page("<td>\r\n&amp; \x7f\0</td>", 20);
    EXPECT_EQ(modReportFile::ToAscii(page), page);
    EXPECT_EQ(modReportFile::ToAscii(""), "");
}

TEST(modReportFile, CharactersBeyondAsciiAreNumericReferences) {
    EXPECT_EQ(modReportFile::ToAscii("K\xc3\xb6ln \xe2\x82\xac"), "K&#246;ln &#8364;");
    EXPECT_EQ(modReportFile::ToAscii("\xf0\x9f\x98\x80x"), "&#128512;x");
    EXPECT_EQ(modReportFile::ToAscii("\xc2\xa0"), "&#160;");
}

TEST(modReportFile, ControlsThatBrowsersTakeForOtherCharactersAreTheReplacementCharacter) {
    EXPECT_EQ(modReportFile::ToAscii("\xc2\x80|\xc2\x92|\xc2\x9f"), "&#65533;|&#65533;|&#65533;");
}

TEST(modReportFile, BytesThatAreNoTextAreTheReplacementCharacter) {
    EXPECT_EQ(modReportFile::ToAscii("a\xffz\xc3"), "a&#65533;z&#65533;");
}

TEST(modReportFile, WritingReplacesAnEarlierPageAndAddsNothing) {
    const test::TemporaryFolder folder;
    folder.Write("a.html", "a much longer page");
    modReportFile::Write({folder.Path(), "", "a.html"}, "<p>\xc3\xb6");
    EXPECT_EQ(folder.Read("a.html"), "<p>&#246;");
}

TEST(modReportFile, TheFolderIsCreatedIfNeedBe) {
    const test::TemporaryFolder folder;
    modReportFile::Write({folder.Path("Reports\\2026\\"), "", "a.html"}, "x");
    EXPECT_EQ(folder.Read("Reports\\2026\\a.html"), "x");
}

TEST(modReportFile, APlaceThatCannotBeWrittenToRaises) {
    const test::TemporaryFolder folder;
    folder.Write("Reports", "a file");
    EXPECT_THROW(modReportFile::Write({folder.Path("Reports\\"), "", "a.html"}, "x"), BasicError);
}

TEST(modReportFile, NothingIsWrittenOutsideTheFolder) {
    const test::TemporaryFolder folder;
    const OutputPlace place{folder.Path(), "Dorvik\\", ""};
    for (const std::string& name :
         {std::string("..\\a.html"),
          std::string("../a.html"),
          std::string("x\\a.html"),
          std::string("a\0.html", 7),
          std::string(".."),
          std::string()}) {
        EXPECT_THROW(modReportFile::Write({place.Chosen, place.Below, name}, "x"), BasicError)
            << name;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.HostPath())) {
        EXPECT_EQ(entry.path(), folder.HostPath() / "Dorvik");
    }
}

TEST(modReportFile, ALinkInTheWayIsRefusedAndStays) {
    const test::TemporaryFolder folder;
    const std::string kept = folder.Write("victim.txt", "kept");
    std::filesystem::create_symlink("victim.txt", folder.HostPath() / "a.html");
    EXPECT_THROW(modReportFile::Write({folder.Path(), "", "a.html"}, "x"), OutputRefusal);
    EXPECT_THROW(modReportFile::WriteAsItIs({folder.Path(), "", "a.html"}, "x"), OutputRefusal);
    EXPECT_EQ(folder.Read("victim.txt"), "kept");
    std::filesystem::create_directory_symlink(".", folder.HostPath() / "Dorvik");
    EXPECT_THROW(modReportFile::Write({folder.Path(), "Dorvik\\", "b.html"}, "x"), OutputRefusal);
    EXPECT_EQ(folder.Read("b.html"), "");
}

}  // namespace
}  // namespace dorvik
