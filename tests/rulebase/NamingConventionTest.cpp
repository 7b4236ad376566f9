#include "rulebase/model/NamingConvention.h"

#include <gtest/gtest.h>

#include <memory>

namespace dorvik {
namespace {

TEST(NamingConvention, ANewOneHasFourUnusedItemsOnEachSideAndIsCaseSensitive) {
    const NamingConvention rule;
    ASSERT_EQ(rule.Prefix().Items().Count(), 4);
    ASSERT_EQ(rule.Suffix().Items().Count(), 4);
    for (std::int32_t slot = 1; slot <= 4; ++slot) {
        EXPECT_EQ(rule.Prefix().Items().Item(slot)->PSType, 0);
        EXPECT_EQ(rule.Suffix().Items().Item(slot)->PSType, 0);
    }
    EXPECT_TRUE(rule.CaseSensitive());
    EXPECT_FALSE(rule.Prefix().Active());
    EXPECT_FALSE(rule.BodyActive());
    EXPECT_FALSE(rule.Suffix().Active());
    EXPECT_FALSE(rule.Dirty());
    EXPECT_EQ(rule.RuleType(), ruleTypeNaming);
}

TEST(NamingConvention, TriggeredAndCancelledReadFalseWhateverIsWritten) {
    NamingConvention rule;
    IRule& asRule = rule;
    asRule.SetTriggered(true);
    asRule.SetCancelled(true);
    EXPECT_FALSE(asRule.Triggered());
    EXPECT_FALSE(asRule.Cancelled());
    EXPECT_FALSE(asRule.PendingViolation());
}

TEST(NamingConvention, ACloneStartsCaseSensitiveAndWithoutExclusions) {
    NamingConvention rule;
    rule.SetCaseSensitive(false);
    rule.SetExclusionList("Main");
    const auto clone = std::dynamic_pointer_cast<NamingConvention>(rule.Clone());
    ASSERT_NE(clone, nullptr);
    EXPECT_TRUE(clone->CaseSensitive());
    EXPECT_EQ(clone->ExclusionList(), "");
}

TEST(NamingConvention, ACloneHasItemsOfItsOwnWithTheSameContent) {
    NamingConvention rule;
    rule.SetTitle("Text boxes");
    rule.SetObjectType(6);
    rule.SetPropertyName("Name");
    rule.SetMaxBodyLength(30);
    rule.SetMinBodyLength(2);
    rule.Prefix().SetActive(true);
    rule.Prefix().Items().Item(1)->PSType = 1;
    rule.Prefix().Items().Item(1)->Value = "txt";
    rule.Suffix().Items().Item(4)->PSType = 6;
    const auto clone = std::dynamic_pointer_cast<NamingConvention>(rule.Clone());
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->Title(), "Clone of Text boxes");
    EXPECT_EQ(clone->ObjectType(), 6);
    EXPECT_EQ(clone->PropertyName(), "Name");
    EXPECT_EQ(clone->MaxBodyLength(), 30);
    EXPECT_EQ(clone->MinBodyLength(), 2);
    EXPECT_TRUE(clone->Prefix().Active());
    EXPECT_EQ(clone->Prefix().Items().Item(1)->PSType, 1);
    EXPECT_EQ(clone->Prefix().Items().Item(1)->Value, "txt");
    EXPECT_EQ(clone->Suffix().Items().Item(4)->PSType, 6);
    clone->Prefix().Items().Item(1)->Value = "lbl";
    EXPECT_EQ(rule.Prefix().Items().Item(1)->Value, "txt");
}

TEST(NamingConvention, AChangedItemDoesNotByItselfMarkTheRule) {
    NamingConvention rule;
    rule.Prefix().Items().Item(1)->Value = "txt";
    EXPECT_FALSE(rule.Dirty());
}

TEST(NamingConvention, DirtyIsReadFromAndWrittenToTheItemListsToo) {
    NamingConvention rule;
    rule.Suffix().Items().SetDirty(true);
    EXPECT_TRUE(rule.Dirty());
    rule.SetDirty(false);
    EXPECT_FALSE(rule.Suffix().Items().Dirty());
    rule.SetDirty(true);
    EXPECT_TRUE(rule.Prefix().Items().Dirty());
    EXPECT_TRUE(rule.ViolationDefinition().Dirty());
}

TEST(NamingConvention, EachWriteMarksTheRuleDirty) {
    const auto writes = {
        +[](NamingConvention& r) { r.SetCaseSensitive(true); },
        +[](NamingConvention& r) { r.SetObjectType(1); },
        +[](NamingConvention& r) { r.SetPropertyType(1); },
        +[](NamingConvention& r) { r.SetPropertyName("n"); },
        +[](NamingConvention& r) { r.SetExclusionList("e"); },
        +[](NamingConvention& r) { r.Prefix().SetActive(true); },
        +[](NamingConvention& r) { r.Prefix().SetAdvice("a"); },
        +[](NamingConvention& r) { r.SetBodyActive(true); },
        +[](NamingConvention& r) { r.SetBodyPattern("p"); },
        +[](NamingConvention& r) { r.SetMaxBodyLength(1); },
        +[](NamingConvention& r) { r.SetMinBodyLength(1); },
        +[](NamingConvention& r) { r.SetBodyAdvice("a"); },
        +[](NamingConvention& r) { r.Suffix().SetActive(true); },
        +[](NamingConvention& r) { r.Suffix().SetAdvice("a"); },
    };
    for (const auto write : writes) {
        NamingConvention rule;
        write(rule);
        EXPECT_TRUE(rule.Dirty());
    }
}

}  // namespace
}  // namespace dorvik
