#include "platform/regex/TextSignature.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {
namespace {

TEST(BigramSet, HasTheBigramsOfAText) {
    const BigramSet set("On Error GoTo Fail");
    EXPECT_TRUE(set.ContainsAll(BigramSet("GoTo")));
    EXPECT_TRUE(set.ContainsAll(BigramSet("r G")));
    EXPECT_TRUE(set.ContainsAll(BigramSet("x")));  // has no bigram
    EXPECT_TRUE(set.ContainsAll(BigramSet("")));
    EXPECT_FALSE(BigramSet("").ContainsAll(BigramSet("Go")));
    EXPECT_FALSE(BigramSet("oG").ContainsAll(BigramSet("Go")));
}

TEST(BigramSet, TheBigramsOfAWholeContainThoseOfEachPart) {
    std::string text;
    for (int byte = 0; byte < 256; ++byte) {
        text += static_cast<char>((byte * 37) % 256);
    }
    const BigramSet whole(text);
    for (std::size_t at = 0; at + 2 <= text.size(); ++at) {
        EXPECT_TRUE(whole.ContainsAll(BigramSet(text.substr(at, 2)))) << at;
    }
}

/// Few statements share a bit by chance with a word that they lack, or else the set would reject nothing.
TEST(BigramSet, RejectsMostStatementsWithoutAWord) {
    const char* const statements[] = {
        "Dim i As Long",
        "Exit Function",
        "m_count = m_count + 1",
        "If Len(text) > 0 Then",
        "Set m_items = New Collection",
        "For i = 1 To UBound(values)"};
    int rejected = 0;
    for (const char* statement : statements) {
        for (const char* word : {"DoEvents", "SendKeys", "GoSub", "Resume", "Kill ", "CVDate"}) {
            rejected += BigramSet(statement).ContainsAll(BigramSet(word)) ? 0 : 1;
        }
    }
    EXPECT_GE(rejected, 34);
}

TEST(TextSignature, AreThoseOfTheText) {
    const TextSignature signature("Go To");
    EXPECT_EQ(signature.Bytes, ByteSet("GoT "));
    EXPECT_EQ(signature.Bigrams, BigramSet("Go To"));
}

}  // namespace
}  // namespace dorvik
