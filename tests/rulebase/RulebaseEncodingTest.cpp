#include "rulebase/RulebaseManagerFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

namespace dorvik {
namespace {

using test::Changed;
using test::FullRulebaseText;
using RulebaseEncodingTest = test::RulebaseManagerFixture;

/// A full file under this title, after a declaration of the encoding (none for an empty name).
std::string TextIn(const std::string& encoding, const std::string& title) {
    const std::string declaration =
        encoding.empty() ? "" : "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>\n";
    return declaration + Changed(FullRulebaseText().Text(), "Team rules", title);
}

/// UTF-8 of two-byte characters at most as UTF-16.
std::string Utf16(std::string_view text, bool bigEndian, bool withMark) {
    std::u16string units = withMark ? u"\uFEFF" : u"";
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte < 0x80) {
            units += static_cast<char16_t>(byte);
        } else {
            const auto next = static_cast<unsigned char>(text[++at]);
            units += static_cast<char16_t>(((byte & 0x1F) << 6) | (next & 0x3F));
        }
    }
    std::string bytes;
    for (const char16_t unit : units) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

TEST_F(RulebaseEncodingTest, Utf16LoadsInBothOrdersWithAndWithoutMarkAndDeclaration) {
    for (const bool bigEndian : {false, true}) {
        for (const bool withMark : {false, true}) {
            for (const char* const encoding : {"", "UTF-16"}) {
                m_log.Clear();
                const auto rulebase =
                    LoadForEdit(Utf16(TextIn(encoding, "Größe Ж"), bigEndian, withMark));
                ASSERT_NE(rulebase, nullptr) << bigEndian << withMark << encoding;
                EXPECT_EQ(rulebase->Title(), "Größe Ж");
                EXPECT_EQ(rulebase->RuleLists().AllConventions().Count(), 3);
                EXPECT_TRUE(m_log.Entries().empty());
            }
        }
    }
}

TEST_F(RulebaseEncodingTest, ADeclaredCodePageLoads) {
    const struct {
        const char* Encoding;
        const char* Bytes;
        const char* Title;
    } rows[] = {
        {"windows-1252",
         "Gr\xF6\xDF"
         "e \x80 \x93q\x94",
         "Größe € “q”"},
        {"Windows-1252",
         "Gr\xF6\xDF"
         "e",
         "Größe"},
        {"windows-1251", "\xCF\xF0\xE0\xE2\xE8\xEB\xE0", "Правила"},
        {"shift_jis", "\x83\x8B\x81[\x83\x8B \x95\\", "ルール 表"},
        {"Shift_JIS", "\xB1\xB2", "ｱｲ"},
        {"iso-8859-1", "\xE9t\xE9", "été"},
        {"iso-8859-15", "\xA4", "€"},
        {"gb2312", "\xB9\xE6\xD4\xF2", "规则"},
        {"big5", "\xB3W\xABh", "規則"},
        {"utf-8",
         "Gr\xC3\xB6\xC3\x9F"
         "e",
         "Größe"},
        {"",
         "Gr\xC3\xB6\xC3\x9F"
         "e",
         "Größe"},
    };
    for (const auto& row : rows) {
        m_log.Clear();
        const auto rulebase = LoadForEdit(TextIn(row.Encoding, row.Bytes));
        ASSERT_NE(rulebase, nullptr) << row.Encoding;
        EXPECT_EQ(rulebase->Title(), row.Title) << row.Encoding;
        EXPECT_TRUE(m_log.Entries().empty()) << row.Encoding;
    }
}

TEST_F(RulebaseEncodingTest, AByteOrderMarkBeforeUtf8IsNoPartOfTheText) {
    const auto rulebase = LoadForEdit("\xEF\xBB\xBF" + TextIn("", "Größe"));
    ASSERT_NE(rulebase, nullptr);
    EXPECT_EQ(rulebase->Title(), "Größe");
}

TEST_F(RulebaseEncodingTest, AWrongByteWithoutADeclarationIsRefusedWithTheLine) {
    ExpectRefused(
        TextIn(
            "",
            "Gr\xF6\xDF"
            "e"),
        "Input is not proper UTF-8, indicate encoding !");
    EXPECT_TRUE(m_log.Contains("(line 2 of "));
    ExpectRefused(
        TextIn(
            "utf-8",
            "Gr\xF6\xDF"
            "e"),
        "Input is not proper UTF-8");
}

TEST_F(RulebaseEncodingTest, AnUnknownEncodingIsRefusedByName) {
    ExpectRefused(TextIn("klingon", "x"), "Unsupported encoding klingon");
}

TEST_F(RulebaseEncodingTest, ATextThatIsNotInItsDeclaredEncodingIsRefused) {
    ExpectRefused(TextIn("UTF-16", "x"), "UTF-16");
    ExpectRefused(TextIn("shift_jis", "\x83"), "");
    ExpectRefused(Utf16(TextIn("", "x"), false, true).substr(0, 301), "");
}

TEST_F(RulebaseEncodingTest, AFileInACodePageIsSavedInUtf8WithoutADeclaration) {
    const auto rulebase = LoadForEdit(TextIn(
        "windows-1252",
        "Gr\xF6\xDF"
        "e"));
    ASSERT_NE(rulebase, nullptr);
    ASSERT_TRUE(m_manager.Save(*rulebase, ""));
    const std::string saved = m_folder.Read("team.dvk");
    EXPECT_TRUE(saved.starts_with("<Dorvik_Rulebase ")) << saved.substr(0, 60);
    EXPECT_NE(saved.find("Name=\"Größe\""), std::string::npos);
    EXPECT_EQ(LoadForEditFile("team.dvk")->Title(), "Größe");
}

}  // namespace
}  // namespace dorvik
