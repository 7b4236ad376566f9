#include "reports/modReportFile.h"

#include "base/BasicError.h"
#include "platform/modFiles.h"
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
    modReportFile::Write(folder.Path("a.html"), "<p>\xc3\xb6");
    EXPECT_EQ(folder.Read("a.html"), "<p>&#246;");
}

TEST(modReportFile, TheFolderIsCreatedIfNeedBe) {
    const test::TemporaryFolder folder;
    modReportFile::Write(folder.Path("Reports\\2026\\a.html"), "x");
    EXPECT_EQ(folder.Read("Reports\\2026\\a.html"), "x");
}

TEST(modReportFile, APlaceThatCannotBeWrittenToRaises) {
    const test::TemporaryFolder folder;
    folder.Write("Reports", "a file");
    EXPECT_THROW(modReportFile::Write(folder.Path("Reports\\a.html"), "x"), BasicError);
}

}  // namespace
}  // namespace dorvik
