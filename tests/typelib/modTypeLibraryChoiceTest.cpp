#include "typelib/modTypeLibraryChoice.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

constexpr std::string_view kGuid = "{00020430-0000-0000-C000-000000000046}";

struct ChoiceRow {
    std::string_view Name;
    std::vector<AvailableTypeLibrary> Candidates;
    TypeLibraryRequest Request;
    int Chosen;  // -1: none
};

std::ostream& operator<<(std::ostream& stream, const ChoiceRow& row) {
    return stream << row.Name;
}

std::string NameOfChoice(const ::testing::TestParamInfo<ChoiceRow>& info) {
    return std::string(info.param.Name);
}

int PositionOf(const std::optional<std::size_t>& chosen) {
    return chosen ? static_cast<int>(*chosen) : -1;
}

using Candidates = std::vector<AvailableTypeLibrary>;

class RegisteredTypeLibrary : public ::testing::TestWithParam<ChoiceRow> {};
class NearestTypeLibrary : public ::testing::TestWithParam<ChoiceRow> {};

}  // namespace

TEST_P(RegisteredTypeLibrary, IsChosen) {
    EXPECT_EQ(
        PositionOf(modTypeLibraryChoice::Registered(GetParam().Candidates, GetParam().Request)),
        GetParam().Chosen);
}

INSTANTIATE_TEST_SUITE_P(
    modTypeLibraryChoice,
    RegisteredTypeLibrary,
    ::testing::Values(
        ChoiceRow{"NothingOutOfNothing", {}, {kGuid, 2, 0, 0}, -1},
        ChoiceRow{"AnotherGuidIsNone", Candidates{{"{1}", 2, 0, 0}}, {kGuid, 2, 0, 0}, -1},
        ChoiceRow{
            "GuidComparesWithoutRegardToCase",
            Candidates{{"{00020430-0000-0000-c000-000000000046}", 2, 0, 0}},
            {kGuid, 2, 0, 0},
            0},
        ChoiceRow{"AnotherMajorVersionIsNone", Candidates{{kGuid, 3, 0, 0}}, {kGuid, 2, 0, 0}, -1},
        ChoiceRow{"LowerMinorVersionIsNone", Candidates{{kGuid, 2, 1, 0}}, {kGuid, 2, 2, 0}, -1},
        ChoiceRow{
            "EqualMinorVersionWinsOverHigherOnes",
            Candidates{{kGuid, 2, 3, 0}, {kGuid, 2, 1, 0}, {kGuid, 2, 2, 0}},
            {kGuid, 2, 1, 0},
            1},
        ChoiceRow{
            "HighestMinorVersionWinsWhereNoneIsEqual",
            Candidates{{kGuid, 2, 2, 0}, {kGuid, 2, 7, 0}, {kGuid, 2, 3, 0}},
            {kGuid, 2, 1, 0},
            1},
        ChoiceRow{
            "VersionIsDecidedBeforeTheLanguage",
            Candidates{{kGuid, 2, 5, 1031}, {kGuid, 2, 1, 0}},
            {kGuid, 2, 1, 1031},
            1},
        ChoiceRow{
            "ExactLanguageFirst",
            Candidates{{kGuid, 2, 0, 0}, {kGuid, 2, 0, 7}, {kGuid, 2, 0, 1031}},
            {kGuid, 2, 0, 1031},
            2},
        ChoiceRow{
            "ThenThePrimaryLanguage",
            Candidates{{kGuid, 2, 0, 0}, {kGuid, 2, 0, 7}, {kGuid, 2, 0, 2055}},
            {kGuid, 2, 0, 1031},
            1},
        ChoiceRow{
            "ThenNoLanguage",
            Candidates{{kGuid, 2, 0, 1033}, {kGuid, 2, 0, 0}},
            {kGuid, 2, 0, 1031},
            1},
        ChoiceRow{"ThenAnyLanguage", Candidates{{kGuid, 2, 0, 1033}}, {kGuid, 2, 0, 9}, 0},
        ChoiceRow{
            "FirstOfEqualsWins",
            Candidates{{kGuid, 2, 0, 0}, {kGuid, 2, 0, 0}},
            {kGuid, 2, 0, 0},
            0}),
    NameOfChoice);

TEST_P(NearestTypeLibrary, IsChosen) {
    EXPECT_EQ(
        PositionOf(modTypeLibraryChoice::Nearest(GetParam().Candidates, GetParam().Request)),
        GetParam().Chosen);
}

INSTANTIATE_TEST_SUITE_P(
    modTypeLibraryChoice,
    NearestTypeLibrary,
    ::testing::Values(
        ChoiceRow{"AnotherMajorVersionIsNone", Candidates{{kGuid, 3, 0, 0}}, {kGuid, 2, 0, 0}, -1},
        ChoiceRow{
            "EqualMinorVersionFirst",
            Candidates{{kGuid, 2, 2, 0}, {kGuid, 2, 1, 0}},
            {kGuid, 2, 1, 0},
            1},
        ChoiceRow{
            "ThenTheNearestAbove",
            Candidates{{kGuid, 2, 7, 0}, {kGuid, 2, 0, 0}, {kGuid, 2, 4, 0}},
            {kGuid, 2, 1, 0},
            2},
        ChoiceRow{
            "ThenTheNearestBelow",
            Candidates{{kGuid, 2, 0, 0}, {kGuid, 2, 3, 0}, {kGuid, 2, 2, 0}},
            {kGuid, 2, 9, 0},
            1}),
    NameOfChoice);

}  // namespace dorvik
