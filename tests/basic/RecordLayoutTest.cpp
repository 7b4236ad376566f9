#include "basic/program/RecordLayout.h"

#include "basic/ScriptRun.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

namespace {

VariableShape ShapeOf(DeclaredKind kind, std::int32_t record = 0) {
    VariableShape shape;
    shape.Type.Kind = kind;
    shape.Type.Record = record;
    return shape;
}

VariableShape FixedArray(DeclaredKind kind, std::vector<Bounds> dimensions) {
    VariableShape shape = ShapeOf(kind);
    shape.Type.IsArray = true;
    shape.IsFixedArray = true;
    shape.Dimensions = std::move(dimensions);
    return shape;
}

}  // namespace

TEST(RecordLayout, ATypeIsWorkedOutOnceHoweverOftenItStandsInOthers) {
    constexpr std::int32_t kLevels =
        35;  // two to that power if each were asked for its parts again
    Program program;
    program.Records.push_back({"First", {{"n", ShapeOf(DeclaredKind::Byte)}}});
    for (std::int32_t level = 1; level <= kLevels; ++level) {
        const VariableShape inner = ShapeOf(DeclaredKind::Record, level - 1);
        program.Records.push_back({"Next", {{"a", inner}, {"b", inner}}});
    }
    EXPECT_EQ(
        modRecordLayout::SizeOf(program, kLevels, modRecordLayout::Form::File),
        std::int64_t{1} << kLevels);
    EXPECT_TRUE(modRecordLayout::HasOnlyBytes(program, kLevels));
}

TEST(RecordLayout, TheWidestBoundsOverflowNothing) {
    const Bounds widest{INT32_MIN, INT32_MAX};
    Program program;
    program.Records.push_back(
        {"Wide",
         {{"a", FixedArray(DeclaredKind::Double, {60, widest})},
          {"b", FixedArray(DeclaredKind::Double, {60, widest})}}});
    EXPECT_EQ(
        modRecordLayout::SizeOf(program, 0, modRecordLayout::Form::Memory), std::int64_t{1} << 40);
}

TEST(RecordLayout, LenOfATypeThatContainsItselfIsNotWorkedOut) {
    const ScriptRun run = RunModule(
        "Type T\nA As T\nEnd Type\nSub S(r As T)\nDebug.Print Len(r)\nEnd Sub\nSub Main\nEnd Sub");
    ASSERT_FALSE(run.Errors.empty());
    EXPECT_EQ(run.Errors.front().Place.Line, 1);
}

TEST(RecordLayout, LenOfATypeThatNobodyCanHoldCompiles) {
    const ScriptRun run =
        RunModule("Type T\na(2147483647, 2147483647) As Double\nEnd Type\n"
                  "Sub S(Optional n)\nEnd Sub\nSub Show(r As T)\nS Len(r)\nEnd Sub\n"
                  "Sub Main\nDebug.Print 1\nEnd Sub");
    EXPECT_EQ(run.Output(), " 1 \n");
}

TEST(RecordLayout, MembersStandAtMultiplesOfWhatTheyTakeUpToFour) {
    Program program;
    program.Records.push_back(
        {"Mixed",
         {{"b", ShapeOf(DeclaredKind::Byte)},
          {"d", ShapeOf(DeclaredKind::Double)},
          {"i", ShapeOf(DeclaredKind::Integer)}}});
    EXPECT_EQ(modRecordLayout::SizeOf(program, 0, modRecordLayout::Form::File), 11);
    EXPECT_EQ(modRecordLayout::SizeOf(program, 0, modRecordLayout::Form::Memory), 16);
}

}  // namespace dorvik::basic
