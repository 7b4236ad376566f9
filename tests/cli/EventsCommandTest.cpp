#include "cli/CommandLineFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <rapidjson/document.h>
#include <set>

namespace dorvik::test {

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Json = rapidjson::Document;

const std::vector<std::string> kFields{
    "event",
    "name",
    "location",
    "file",
    "line",
    "physicalLines",
    "lineType",
    "statement",
    "scope",
    "objects"};

const std::map<int, std::vector<std::string>> kAnnounced{
    {1, {"Project", "VBP"}},
    {3, {"File"}},
    {4, {"Source"}},
    {5, {"Component"}},
    {6, {"LayoutProperties", "Layout"}},
    {7, {"Control", "ControlProperties"}},
    {8, {"LayoutProperties", "Layout"}},
    {11, {"Const"}},
    {12, {"Declare"}},
    {13, {"Argument"}},
    {14, {"Enum"}},
    {16, {"EnumElement"}},
    {17, {"Enum"}},
    {18, {"Event"}},
    {19, {"Argument"}},
    {20, {"Implements"}},
    {21, {"Type"}},
    {23, {"TypeElement"}},
    {24, {"Type"}},
    {25, {"Variable"}},
    {26, {"Reference"}},
    {28, {"Procedure"}},
    {29, {"Argument"}},
    {31, {"Const"}},
    {32, {"LineLabel"}},
    {33, {"Variable"}},
    {34, {"Procedure"}},
    {35, {"File"}},
    {37, {"Project", "VBP"}}};

/// The ends that carry line statistics.
const std::set<int> kWithLineStats{17, 24, 34, 35, 37};

std::vector<std::string> Names(const rapidjson::Value& object) {
    std::vector<std::string> names;
    for (const auto& member : object.GetObject()) {
        names.emplace_back(member.name.GetString());
    }
    return names;
}

std::vector<std::string> Texts(const rapidjson::Value& array) {
    std::vector<std::string> texts;
    for (const auto& item : array.GetArray()) {
        texts.emplace_back(item.GetString());
    }
    return texts;
}

std::vector<std::unique_ptr<Json>> Parse(const std::string& output) {
    std::vector<std::unique_ptr<Json>> lines;
    for (const std::string& line : LinesOf(output)) {
        lines.push_back(std::make_unique<Json>());
        lines.back()->Parse(line.c_str(), line.size());
        EXPECT_FALSE(lines.back()->HasParseError()) << line;
        EXPECT_TRUE(lines.back()->IsObject()) << line;
    }
    return lines;
}

class EventsCommand : public CommandLineFixture {
protected:
    std::vector<std::unique_ptr<Json>> Events(const std::vector<std::string>& arguments) const {
        const ProgramResult result = Run(arguments);
        EXPECT_EQ(result.ExitCode, 0) << result.Error;
        EXPECT_THAT(result.Error, IsEmpty());
        return Parse(result.Output);
    }
};

TEST_F(EventsCommand, EachLineIsOneObjectWithTheSameFieldsInTheSameOrder) {
    CopySample("Billing");
    for (const auto& event : Events({"events", "Billing/Billing.vbp"})) {
        std::vector<std::string> fields = kFields;
        if (kWithLineStats.contains((*event)["event"].GetInt())) {
            fields.emplace_back("lineStats");
        }
        EXPECT_THAT(Names(*event), ElementsAreArray(fields));
    }
}

TEST_F(EventsCommand, EveryEventShowsTheObjectsThatItAnnouncesAndNoOthers) {
    std::set<int> seen;
    for (const char* name : {"Billing", "Clinic", "Warehouse"}) {
        CopySample(name);
        for (const auto& event : Events({"events", std::string(name) + "/" + name + ".vbp"})) {
            const int number = (*event)["event"].GetInt();
            seen.insert(number);
            const auto row = kAnnounced.find(number);
            const auto expected =
                row == kAnnounced.end() ? std::vector<std::string>() : row->second;
            EXPECT_THAT(Names((*event)["objects"]), ElementsAreArray(expected)) << number;
        }
    }
    EXPECT_EQ(seen.size(), 37U) << "the samples together fire every event";
    EXPECT_EQ(*seen.begin(), 1);
    EXPECT_EQ(*seen.rbegin(), 37);
}

TEST_F(EventsCommand, AllPropertyValuesAreTexts) {
    CopySample("Billing");
    for (const auto& event : Events({"events", "Billing/Billing.vbp"})) {
        for (const auto& object : (*event)["objects"].GetObject()) {
            for (const auto& property : object.value.GetObject()) {
                EXPECT_TRUE(property.value.IsString()) << property.name.GetString();
            }
        }
    }
}

TEST_F(EventsCommand, ScopeNamesTheObjectsInOrderOfAttachment) {
    CopySample("Warehouse");
    bool found = false;
    for (const auto& event : Events({"events", "Warehouse/Warehouse.vbp"})) {
        if ((*event)["event"].GetInt() == 29) {
            EXPECT_THAT(
                Texts((*event)["scope"]),
                ElementsAre("Project", "VBP", "File", "Declarations", "Procedure", "Argument"));
            found = true;
        }
    }
    EXPECT_TRUE(found);
}

TEST_F(EventsCommand, FileIsThePathOnThisMachineAndNullOutsideFiles) {
    CopySample("Billing");
    const auto events = Events({"events", "Billing/Billing.vbp"});
    EXPECT_TRUE((*events.front())["file"].IsNull());
    EXPECT_TRUE((*events.back())["file"].IsNull());
    std::set<std::string> files;
    for (const auto& event : events) {
        if (!(*event)["file"].IsNull()) {
            files.insert((*event)["file"].GetString());
        }
    }
    EXPECT_EQ(files.size(), 8U);
    // The project file writes FRMLOGIN.FRM.
    EXPECT_TRUE(files.contains(Work("Billing/Forms/frmLogin.frm").string()));
}

TEST_F(EventsCommand, LineStatisticsCountTheFile) {
    WriteModuleProject("Small", "    x = 1 ' note\r\n\r\n    ' comment");
    const auto events = Events({"events", "Small.vbp"});
    for (const auto& event : events) {
        if ((*event)["event"].GetInt() != 35) {
            continue;
        }
        const rapidjson::Value& stats = (*event)["lineStats"];
        EXPECT_EQ(stats["TotalLineCount"].GetInt(), 6);
        EXPECT_EQ(stats["CodeLineCount"].GetInt(), 4);
        EXPECT_EQ(stats["BlankLineCount"].GetInt(), 1);
        EXPECT_EQ(stats["CommentLineCount"].GetInt(), 1);
        EXPECT_EQ(stats["InLineCommentCount"].GetInt(), 1);
    }
}

TEST_F(EventsCommand, CodePageDecidesHowTheSourceIsRead) {
    WriteModuleProject("Greek", "    s = \"\xE1\xE2\"");
    const ProgramResult greek = Run({"events", "Greek.vbp", "--code-page", "1253"});
    EXPECT_THAT(greek.Output, HasSubstr("\xCE\xB1\xCE\xB2"));
    EXPECT_THAT(Run({"events", "Greek.vbp"}).Output, HasSubstr("\xC3\xA1\xC3\xA2"));
}

TEST_F(EventsCommand, EventsLeaveNothingOnDisk) {
    CopySample("Warehouse");
    Run({"events", "Warehouse/Warehouse.vbp"});
    EXPECT_FALSE(Exists("Warehouse/Dorvik"));
}

TEST_F(EventsCommand, AFailureOnTheWayWritesNoErrorLog) {
    WriteLines("Twice.vbp", {"Name=\"Twice\"", "Title=\"a\"", "Title=\"b\""});
    const std::vector<std::string> arguments{"events", "Twice.vbp"};
    Run(arguments);
    EXPECT_FALSE(std::filesystem::exists(Settings(arguments).StateFolder / "dorvik/Error.log"));
}

TEST_F(EventsCommand, AMissingSourceFileIsNamedAndTheStreamGoesOn) {
    WriteModuleProject("Half", "    x = 1");
    WriteLines(
        "Half.vbp",
        {"Type=Exe", "Module=Lost; Lost.bas", "Module=Half; Half.bas", "Name=\"Half\""});
    const ProgramResult result = Run({"events", "Half.vbp"});
    EXPECT_EQ(result.ExitCode, 3);
    EXPECT_THAT(result.Errors(), ElementsAre(HasSubstr("Lost.bas")));
    EXPECT_EQ((*Parse(result.Output).back())["event"].GetInt(), 37);
}

TEST_F(EventsCommand, AProjectThatCannotBeReadHasNoEvents) {
    WriteLines("Twice.vbp", {"Name=\"Twice\"", "Title=\"a\"", "Title=\"b\""});
    const ProgramResult result = Run({"events", "Twice.vbp"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Errors(), ElementsAre(HasSubstr("Twice.vbp")));
    EXPECT_THAT(result.Output, IsEmpty());
}

}  // namespace

}  // namespace dorvik::test
