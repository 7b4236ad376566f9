#include "cli/CommandLineFixture.h"
#include "support/LineText.h"

#include <gmock/gmock.h>

#include <rapidjson/document.h>

namespace dorvik::test {

namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class CatalogueCommand : public CommandLineFixture {
protected:
    rapidjson::Document Json(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "catalogue");
        arguments.emplace_back("--json");
        rapidjson::Document json;
        json.Parse(Run(arguments).Output.c_str());
        EXPECT_FALSE(json.HasParseError());
        return json;
    }
};

}  // namespace

TEST_F(CatalogueCommand, JsonHasAllObjectsPropertiesEventsAndScopes) {
    const rapidjson::Document json = Json({});
    EXPECT_EQ(json["objects"].Size(), 49U);
    EXPECT_EQ(json["events"].Size(), 37U);
    EXPECT_EQ(json["scope"].Size(), 37U);
    EXPECT_GT(json["properties"].Size(), 200U);
    EXPECT_STREQ(json["objects"][35]["name"].GetString(), "File (Form)");
    EXPECT_STREQ(json["objects"][35]["object"].GetString(), "File");
    EXPECT_STREQ(json["events"][33]["name"].GetString(), "end Procedure");
    EXPECT_TRUE(json["events"][33]["endsScope"].GetBool());
    EXPECT_STREQ(json["scope"][25]["objects"][0].GetString(), "Reference");
    for (const auto& property : json["properties"].GetArray()) {
        EXPECT_GT(property["description"].GetStringLength(), 10U) << property["name"].GetString();
    }
}

TEST_F(CatalogueCommand, APartIsPrintedAlone) {
    const rapidjson::Document json = Json({"events"});
    EXPECT_TRUE(json.HasMember("events"));
    EXPECT_EQ(json.MemberCount(), 1U);
    EXPECT_THAT(
        LinesOf(Run({"catalogue", "scope"}).Output), Contains(" 1  begin Project         Project"));
}

TEST_F(CatalogueCommand, TheTextFitsEightyColumnsAndHasNoColoursInAPipe) {
    const ProgramResult result = Run({"catalogue"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_THAT(result.Error, IsEmpty());
    for (const char* text : {"Objects\n", "\nProperties\n", "\nEvents\n", "CyclomaticComplexity"}) {
        EXPECT_THAT(result.Output, HasSubstr(text));
    }
    for (const std::string& line : LinesOf(result.Output)) {
        EXPECT_LE(line.size(), 80U) << line;
        EXPECT_EQ(line.find('\x1b'), std::string::npos) << line;
    }
}

TEST_F(CatalogueCommand, AnUnknownPartIsWrongUse) {
    const ProgramResult result = Run({"catalogue", "colours"});
    EXPECT_EQ(result.ExitCode, 2);
    EXPECT_THAT(result.Error, HasSubstr("colours not in {objects,properties,events,scope}"));
}

}  // namespace dorvik::test
