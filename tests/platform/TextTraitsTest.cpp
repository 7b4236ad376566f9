#include "platform/regex/TextTraits.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvik {
namespace {

TEST(PairSet, HoldsTheNeighboursOfAText) {
    const PairSet set("On Error GoTo Fail");
    EXPECT_TRUE(set.ContainsAll(PairSet("GoTo")));
    EXPECT_TRUE(set.ContainsAll(PairSet("r G")));
    EXPECT_TRUE(set.ContainsAll(PairSet("x")));  // has no pair
    EXPECT_TRUE(set.ContainsAll(PairSet("")));
    EXPECT_FALSE(PairSet("").ContainsAll(PairSet("Go")));
    EXPECT_FALSE(PairSet("oG").ContainsAll(PairSet("Go")));
}

TEST(PairSet, ThePairsOfAWholeContainThoseOfEachPart) {
    std::string text;
    for (int byte = 0; byte < 256; ++byte) {
        text += static_cast<char>((byte * 37) % 256);
    }
    const PairSet whole(text);
    for (std::size_t at = 0; at + 2 <= text.size(); ++at) {
        EXPECT_TRUE(whole.ContainsAll(PairSet(text.substr(at, 2)))) << at;
    }
}

/// Few statements share a bit by chance with a word that they lack, or else the set would tell nothing.
TEST(PairSet, TellsMostStatementsWithoutAWordApart) {
    const char* const statements[] = {
        "Dim i As Long",
        "Exit Function",
        "m_count = m_count + 1",
        "If Len(text) > 0 Then",
        "Set m_items = New Collection",
        "For i = 1 To UBound(values)"};
    int toldApart = 0;
    for (const char* statement : statements) {
        for (const char* word : {"DoEvents", "SendKeys", "GoSub", "Resume", "Kill ", "CVDate"}) {
            toldApart += PairSet(statement).ContainsAll(PairSet(word)) ? 0 : 1;
        }
    }
    EXPECT_GE(toldApart, 34);
}

TEST(TextTraits, AreThoseOfTheText) {
    const TextTraits traits("Go To");
    EXPECT_EQ(traits.Bytes, ByteSet("GoT "));
    EXPECT_EQ(traits.Pairs, PairSet("Go To"));
}

}  // namespace
}  // namespace dorvik
