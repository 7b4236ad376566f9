#include "foundation/text/modFileName.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace dorvik {
namespace {

using modFileName::FromText;
using testing::EndsWith;
using testing::MatchesRegex;
using testing::StartsWith;

/// What is put behind a name that had to be changed.
constexpr const char* kMarkAndEnding = "-[0-9a-f]+_Detail\\.html";

TEST(modFileName, AnOrdinaryTextStaysAsItIs) {
    for (const char* text :
         {"",
          "Billing",
          "My.Project",
          "a b",
          "100% #1 & more",
          "Gr\xC3\xB6\xC3\x9F"
          "e?",
          "x*\"<>|:",
          "Console",
          "Com",
          "Com12",
          "a.",
          "_a",
          "~$a",
          "-"}) {
        EXPECT_EQ(FromText(text, "_Detail.html"), std::string(text) + "_Detail.html");
    }
}

struct ChangedRow {
    std::string Text;
    std::string Beginning;
};

class ChangedNames : public testing::TestWithParam<ChangedRow> {};

TEST_P(ChangedNames, KeepWhatCanBeKeptAndGetAMark) {
    EXPECT_THAT(
        FromText(GetParam().Text, "_Detail.html"),
        MatchesRegex(GetParam().Beginning + kMarkAndEnding));
}

INSTANTIATE_TEST_SUITE_P(
    All,
    ChangedNames,
    testing::Values(
        ChangedRow{"a\\b", "a_b"},
        ChangedRow{"a/b", "a_b"},
        ChangedRow{"..", "__"},
        ChangedRow{"..\\..\\x", "__.*_x"},
        ChangedRow{"a..b", "a._b"},
        ChangedRow{"a\nb\x7f", "a_b_"},
        ChangedRow{std::string("a\0b", 3), "a_b"},
        ChangedRow{"a\xC2\x85z", "a_z"},  // a control beyond ASCII
        ChangedRow{"a\xFFz", "a_z"},      // no character at all
        ChangedRow{".hidden", "_hidden"},
        ChangedRow{" a", "_a"}));

TEST(modFileName, NamesOfDevicesAreToldByWhatStandsBeforeTheFirstPoint) {
    for (const std::string text :
         {"CON", "con.x", "Nul .x", "com1.a.b", "LPT9.x", "COM\xC2\xB9.x", "conin$.x"}) {
        const std::string name = FromText(text, ".html");
        EXPECT_THAT(name, StartsWith("_")) << text;
        EXPECT_THAT(name, EndsWith(".html"));
    }
    EXPECT_EQ(FromText("CON", "_Detail.html"), "CON_Detail.html");
    EXPECT_EQ(FromText("COM0.x", ".html"), "COM0.x.html");
}

TEST(modFileName, TextsThatComeOutAlikeHaveNamesOfTheirOwn) {
    std::set<std::string> names;
    const std::vector<std::string> texts = {
        "a_b",
        "a/b",
        "a\\b",
        "a\nb",
        "a\tb",
        "a\x01"
        "b"};
    for (const std::string& text : texts) {
        names.insert(FromText(text, ".html"));
    }
    EXPECT_EQ(names.size(), texts.size());
    EXPECT_EQ(FromText("a/b", ".html"), FromText("a/b", ".html"));
}

TEST(modFileName, NoNameIsTooLongAndNoCharacterIsCutInTwo) {
    std::string text;
    for (int count = 0; count < 200; ++count) {
        text += "\xE6\x96\x87";  // three bytes
        for (const std::string& longer : {text, "x" + text, "xy" + text}) {
            const std::string name = FromText(longer, "_Detail.html");
            EXPECT_LE(name.size(), modFileName::kMostBytes);
            EXPECT_THAT(name, EndsWith("_Detail.html"));
            EXPECT_EQ(FromText(name, ""), name) << "broken characters would be changed";
        }
    }
    EXPECT_NE(FromText(text, ".html"), FromText(text + "x", ".html"));
}

}  // namespace
}  // namespace dorvik
