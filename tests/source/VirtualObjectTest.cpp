#include "source/VirtualObject.h"

#include "base/BasicError.h"

#include <gtest/gtest.h>

namespace dorvik {
namespace {

std::int32_t CountOf(const VirtualObject& object, std::string_view name) {
    return object.Properties().Item(name).AsLong();
}

TEST(VirtualObject, AMemberCountGoesUpByOneAndAValueIsSetWithoutAdding) {
    VirtualObject object;
    object.IncrementMemberCount("X");
    EXPECT_EQ(CountOf(object, "X"), 1);
    object.IncrementMemberCount("X");
    EXPECT_EQ(CountOf(object, "X"), 2);
    object.IncrementMemberCount("X", 7);
    EXPECT_EQ(CountOf(object, "X"), 7);
    object.IncrementMemberCount("x");
    EXPECT_EQ(CountOf(object, "X"), 8);
    EXPECT_EQ(object.Properties().Count(), 1);
}

TEST(VirtualObject, AFigureOfZeroIsStoredAsOne) {
    VirtualObject object;
    object.IncrementMemberCount("AverageCyclomatic", 0);
    EXPECT_EQ(CountOf(object, "AverageCyclomatic"), 1);
    object.IncrementMemberCount("MaximumCyclomatic", 12);
    EXPECT_EQ(CountOf(object, "MaximumCyclomatic"), 12);
}

TEST(VirtualObject, AMemberCountOverATextThatIsNoNumberRaisesTypeMismatch) {
    VirtualObject object;
    object.Properties().Add("X", Variant("many"), false);
    try {
        object.IncrementMemberCount("X");
        FAIL() << "no error";
    } catch (const BasicError& error) {
        EXPECT_EQ(error.Number(), runtimeerror::kTypeMismatch);
    }
}

TEST(VirtualObject, LineStatsThatNeverCountedAnythingAreZerosAndNoAbsence) {
    const VirtualObject object;
    EXPECT_EQ(object.LineStats().TotalLines(), 0);
    EXPECT_EQ(object.LineStats().CodeLines(), 0);
    EXPECT_EQ(object.ViolationStats().TotalViolations(), 0);
    EXPECT_EQ(object.Properties().Count(), 0);
}

TEST(VirtualObject, AnObjectWithoutLineStatisticsCanStillBeAskedForThem) {
    VirtualObject object;
    EXPECT_FALSE(object.HasLSTATS());
    EXPECT_EQ(object.LineStats().TotalLines(), 0);
    EXPECT_FALSE(object.HasLSTATS());
}

TEST(VirtualObject, MembersStayTheSameOnceCreated) {
    VirtualObject object;
    object.LineStats().IncrementCount(LineType::Code);
    EXPECT_EQ(object.LineStats().CodeLines(), 1);
    object.ViolationStats().IncrementCount(1, 900);
    EXPECT_EQ(object.ViolationStats().Impact(Severity::Critical), 900);
    object.Workfields().Add("Seen", Variant(true), false);
    EXPECT_TRUE(object.Workfields().Item("seen").AsBoolean());
    EXPECT_EQ(object.Properties().Count(), 0);
}

TEST(VirtualObject, StartsWithNothingSetAndKeepsWhatIsSet) {
    VirtualObject object;
    EXPECT_FALSE(object.HasVLIST());
    EXPECT_EQ(object.ParentViolations(), "");
    EXPECT_EQ(object.ObjectID(), 0);
    EXPECT_EQ(object.ObjectType(), ItemType::None);
    object.SetHasVLIST(true);
    object.SetHasLSTATS(true);
    object.SetParentViolations("Layout");
    object.SetObjectID(12);
    object.SetObjectType(ItemType::Procedure);
    EXPECT_TRUE(object.HasVLIST());
    EXPECT_TRUE(object.HasLSTATS());
    EXPECT_EQ(object.ParentViolations(), "Layout");
    EXPECT_EQ(object.ObjectID(), 12);
    EXPECT_EQ(object.ObjectType(), ItemType::Procedure);
}

}  // namespace
}  // namespace dorvik
