#include "parser/VBParserEvents.h"

#include "parser/ParserEventTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace dorvik {
namespace {

class RecordingCombo : public IImageCombo {
public:
    void Clear() override { Items.clear(); }
    void AddItem(const ImageComboItem& item) override { Items.push_back(item); }

    std::vector<std::string> Keys() const {
        std::vector<std::string> keys;
        for (const ImageComboItem& item : Items) {
            keys.push_back(item.Key);
        }
        return keys;
    }

    std::vector<ImageComboItem> Items = {{"left over", "", "", 0}};
};

RecordingCombo AllEvents() {
    RecordingCombo combo;
    VBParserEvents::PopulateCCEventsImageCombo(combo);
    return combo;
}

struct EventRow {
    int Number;
    const char* Text;
    const char* Icon;
    int Level;
};

class VBParserEventsRows : public testing::TestWithParam<EventRow> {};

TEST_P(VBParserEventsRows, EachNumberHasItsTextIconAndTreeLevel) {
    const EventRow& row = GetParam();
    EXPECT_EQ(VBParserEvents::ParserEventText(row.Number), row.Text);
    EXPECT_EQ(VBParserEvents::ParserEventIcon(row.Number), row.Icon);
    const RecordingCombo combo = AllEvents();
    const auto item = std::find_if(combo.Items.begin(), combo.Items.end(), [&](const auto& i) {
        return i.Key == VBParserEvents::ParserEventKey(row.Number);
    });
    ASSERT_NE(item, combo.Items.end());
    EXPECT_EQ(item->Text, row.Text);
    EXPECT_EQ(item->IconKey, row.Icon);
    EXPECT_EQ(item->Indentation, row.Level);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, VBParserEventsRows, testing::Values(
    EventRow{1, "begin Project", "Event", 0},
    EventRow{2, "begin Source Files", "Event", 1},
    EventRow{3, "begin File", "Event", 2},
    EventRow{4, "Source Line", "Event", 3},
    EventRow{5, "Component", "Component", 4},
    EventRow{6, "begin Layout", "Event", 4},
    EventRow{7, "Control", "Control", 5},
    EventRow{8, "end Layout", "Event", 4},
    EventRow{9, "begin Declarations", "Event", 4},
    EventRow{10, "Declaration", "Event", 5},
    EventRow{11, "Const", "Const", 6},
    EventRow{12, "Declare", "Declare", 6},
    EventRow{13, "Argument (Declare)", "Argument", 7},
    EventRow{14, "begin Enum", "Event", 6},
    EventRow{15, "Enum <body>", "Enum", 7},
    EventRow{16, "Enum element", "EnumItem", 8},
    EventRow{17, "end Enum", "Event", 6},
    EventRow{18, "Event", "WithEvents", 6},
    EventRow{19, "Argument (Event)", "Argument", 7},
    EventRow{20, "Implements", "Implements", 6},
    EventRow{21, "begin Type", "Event", 6},
    EventRow{22, "Type <body>", "Type", 7},
    EventRow{23, "Type element", "TypeItem", 8},
    EventRow{24, "end Type", "Event", 6},
    EventRow{25, "Variable", "Variable", 6},
    EventRow{26, "Reference", "Reference", 1},
    EventRow{27, "end Declarations", "Event", 4},
    EventRow{28, "begin Procedure", "Event", 4},
    EventRow{29, "Argument (Procedure)", "Argument", 5},
    EventRow{30, "Procedure <body>", "ProcedureBody", 5},
    EventRow{31, "Const (local)", "LocalConst", 6},
    EventRow{32, "Line Label", "LineLabel", 6},
    EventRow{33, "Variable (local)", "LocalVariable", 6},
    EventRow{34, "end Procedure", "Event", 4},
    EventRow{35, "end File", "Event", 2},
    EventRow{36, "end Source Files", "Event", 1},
    EventRow{37, "end Project", "Event", 0}),
    [](const auto& rowInfo) { return "Event" + std::to_string(rowInfo.param.Number); });
// clang-format on

TEST(VBParserEvents, ReferenceIsBetweenBeginProjectAndBeginSourceFilesInTheList) {
    const auto keys = AllEvents().Keys();
    ASSERT_EQ(keys.size(), 37U);
    EXPECT_EQ(keys[0], "1Key");
    EXPECT_EQ(keys[1], "26Key");
    EXPECT_EQ(keys[2], "2Key");
}

TEST(VBParserEvents, LineLabelFollowsLocalVariableOutOfNumericOrder) {
    const auto keys = AllEvents().Keys();
    const auto variable = std::find(keys.begin(), keys.end(), "33Key");
    ASSERT_NE(variable, keys.end());
    EXPECT_EQ(*(variable - 1), "31Key");
    EXPECT_EQ(*(variable + 1), "32Key");
    EXPECT_EQ(*(variable + 2), "34Key");
}

TEST(VBParserEvents, TheOtherEventsAreInTheOrderOfTheirNumbers) {
    std::vector<int> numbers;
    for (const auto& key : AllEvents().Keys()) {
        if (key != "26Key" && key != "32Key") {
            numbers.push_back(std::stoi(key));
        }
    }
    EXPECT_EQ(numbers.size(), 35U);
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
}

TEST(VBParserEvents, OnlyEightEventsCanEndAScope) {
    RecordingCombo combo;
    VBParserEvents::PopulateCCEndEventsImageCombo(combo);
    const std::vector<std::string> keys = {
        "37Key", "36Key", "35Key", "8Key", "27Key", "17Key", "24Key", "34Key"};
    EXPECT_EQ(combo.Keys(), keys);
    std::vector<int> levels;
    for (const ImageComboItem& item : combo.Items) {
        levels.push_back(item.Indentation);
    }
    EXPECT_EQ(levels, (std::vector<int>{0, 1, 2, 3, 3, 4, 4, 3}));
}

TEST(VBParserEvents, BeginEventsHaveThePlainIconAndTheirBodyEventsTheirOwn) {
    for (const int begin : {14, 21, 28}) {
        EXPECT_EQ(VBParserEvents::ParserEventIcon(begin), "Event") << begin;
    }
    EXPECT_EQ(VBParserEvents::ParserEventIcon(15), "Enum");
    EXPECT_EQ(VBParserEvents::ParserEventIcon(22), "Type");
    EXPECT_EQ(VBParserEvents::ParserEventIcon(30), "ProcedureBody");
}

TEST(VBParserEvents, KeyIsTheNumberAndTheWordKey) {
    EXPECT_EQ(VBParserEvents::ParserEventKey(26), "26Key");
    EXPECT_EQ(VBParserEvents::ParserEventKey(-1), "-1Key");
}

TEST(VBParserEvents, HelpSaysWhenTheEventIsFiredAndWhatIsInScope) {
    EXPECT_EQ(
        VBParserEvents::ParserEventHelp(26),
        "The parser fires this event for each library reference encountered within the project "
        "file.\r\n\r\nIn scope: Reference, Project.");
    EXPECT_EQ(
        VBParserEvents::ParserEventHelp(4),
        "The parser fires this event for each source line within the current source "
        "file.\r\n\r\nIn scope: Source, File, Project. (Note: Other objects will enter/exit scope "
        "at different stages of the parsing process.)");
}

TEST(VBParserEvents, NumbersOutsideTheTableAreUnknown) {
    for (const int number : {-1, 0, 38, 1000}) {
        EXPECT_EQ(VBParserEvents::ParserEventText(number), "Unknown Event") << number;
        EXPECT_EQ(VBParserEvents::ParserEventIcon(number), "Event") << number;
        EXPECT_EQ(VBParserEvents::ParserEventHelp(number), "Unknown Parser Event") << number;
    }
}

/// The numbers of the events of which that is true.
template <typename IsListed>
std::vector<int> EventsWhere(IsListed isListed) {
    std::vector<int> numbers;
    for (const ParserEventRow& row : kParserEvents) {
        if (isListed(row.Rules)) {
            numbers.push_back(static_cast<int>(row.Event));
        }
    }
    return numbers;
}

TEST(ParserEventTable, KeywordsAreTestedOnStatements) {
    EXPECT_THAT(
        EventsWhere([](const EventRules& rules) { return rules.TestsKeywords; }),
        testing::ElementsAre(10, 28, 30));
}

TEST(ParserEventTable, EndsOfObjectsHaveALine) {
    const auto at = [](EndEventLine line) {
        return EventsWhere([=](const EventRules& rules) { return rules.ViolationLine == line; });
    };
    EXPECT_THAT(at(EndEventLine::ObjectStart), testing::ElementsAre(17, 24, 34));
    EXPECT_THAT(at(EndEventLine::FileStart), testing::ElementsAre(27));
}

TEST(ParserEventTable, NamesAreReportedAtTheEndOfTheirObject) {
    EXPECT_THAT(
        EventsWhere([](const EventRules& rules) { return rules.EndsNamedObject; }),
        testing::ElementsAre(17, 24, 34, 35, 37));
}

}  // namespace
}  // namespace dorvik
