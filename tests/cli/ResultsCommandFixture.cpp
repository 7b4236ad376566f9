#include "cli/ResultsCommandFixture.h"

#include "platform/database/Database.h"
#include "rulebase/RulebaseText.h"
#include "support/FilesystemPaths.h"

#include <algorithm>
#include <iterator>

namespace dorvik::test {

namespace {

struct Keyword {
    const char* ID;
    const char* Title;
    const char* Pattern;
    const char* Figures;  // severity, impact, category
};

constexpr Keyword kKeywords[] = {
    {"5000", "No Stop", R"(\bStop\b)", R"(SeverityLevel="1" Impact="900" CategoryID="2")"},
    {"5001", "No Print", R"(Debug\.Print)", R"(SeverityLevel="3" Impact="500" CategoryID="1")"},
    {"5002", "No Beep, please", R"(\bBeep\b)", R"(SeverityLevel="5" Impact="10" CategoryID="-1")"},
    {"5003", "Longer If", R"(^If\b)", R"(SeverityLevel="4" Impact="600" CategoryID="1")"},
};

constexpr const char* kSeverities[] = {"Fatal", "High", "Medium", "Low", "Info"};

RulebaseText Rulebase() {
    RulebaseText text;
    text.LastRuleID = "5003";
    text.Properties.replace(
        text.Properties.find("\"-1|-1"), sizeof "\"-1|-1" - 1, "\"0|-1");  // CVC=0
    text.Categories =
        R"(<CategoryList LastID="2"><CategoryItem ID="1" Title="Layout" Description="" Hidden="False"/><CategoryItem ID="2" Title="Flow, and jumps" Description="" Hidden="False"/></CategoryList>)";
    text.Severities = "<SeverityList>";
    for (std::size_t level = 1; level <= std::size(kSeverities); ++level) {
        text.Severities += R"(<SeverityItem Colour="1" Description="" Impact="1" SeverityLevel=")" +
                           std::to_string(level) + R"(" SeverityLevelText="" Title=")" +
                           kSeverities[level - 1] + R"("/>)";
    }
    text.Severities += "</SeverityList>";
    text.Keywords = "<UnauthorisedKeywords>";
    for (const Keyword& keyword : kKeywords) {
        text.Keywords += std::string(R"(<UnauthorisedKeyword RuleID=")") + keyword.ID +
                         R"(" RuleActive="True" Title=")" + keyword.Title +
                         R"(" Description="" Condition=")" + keyword.Pattern +
                         R"(" ParserEventID="30"><ViolationDefinition Name=")" + keyword.Title +
                         R"(" Description="It says &quot;)" + keyword.Title +
                         R"(&quot;, it does." Advice="Change it." )" + keyword.Figures +
                         "/></UnauthorisedKeyword>";
    }
    text.Keywords += "</UnauthorisedKeywords>";
    return text;
}

}  // namespace

ResultsCommandFixture::ResultsCommandFixture() {
    WriteBytes("team.dvk", Rulebase().Text());
    WriteLines(
        "Shop.vbp",
        {"Type=Exe",
         "Module=modOne; modOne.bas",
         "Class=Stock; Stock.cls",
         "Module=modTwo; modTwo.bas",
         "Name=\"Shop\""});
    WriteLines(
        "modOne.bas",
        {"Attribute VB_Name = \"modOne\"",
         "Option Explicit",
         "Global Count As Long",
         "Sub Main()",
         "    Stop",
         "    Debug.Print \"a,b\"",
         "End Sub",
         "' Remarks help.",
         "Sub Work()",
         "    If Count > 1 Then Stop",
         "    Beep",
         "End Sub"});
    WriteLines(
        "Stock.cls",
        {"VERSION 1.0 CLASS",
         "Attribute VB_Name = \"Stock\"",
         "Option Explicit",
         "Property Get Rate() As Long",
         "    Beep",
         "End Property",
         "Property Let Rate(Value As Long)",
         "    Debug.Print Value",
         "    Debug.Print Value",
         "End Property"});
    WriteLines(
        "modTwo.bas",
        {"Attribute VB_Name = \"modTwo\"", "Option Explicit", "Sub Main()", "    Beep", "End Sub"});
    const ProgramResult review =
        Run({"review", "Shop.vbp", "--rulebase", "team.dvk", "--conventions", "uk", "--quiet"});
    EXPECT_EQ(review.ExitCode, 1) << review.Error;
}

ProgramResult ResultsCommandFixture::Show(const std::vector<std::string>& words) const {
    std::vector<std::string> arguments{"results", kDatabase};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return Run(arguments);
}

rapidjson::Document ResultsCommandFixture::Json(std::vector<std::string> words) const {
    words.emplace_back("--json");
    const ProgramResult result = Show(words);
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(result.Error, "");
    rapidjson::Document json;
    json.Parse(result.Output.c_str());
    EXPECT_FALSE(json.HasParseError()) << result.Output;
    return json;
}

ResultsCommandFixture::Lines ResultsCommandFixture::Csv(std::vector<std::string> words) const {
    words.emplace_back("--csv");
    const ProgramResult result = Show(words);
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    return ReadCsv(result.Output);
}

std::string ResultsCommandFixture::Values(
    const std::vector<std::string>& words, const char* key, const char* member) const {
    const rapidjson::Document json = Json(words);
    std::string values;
    for (const auto& record : json[key].GetArray()) {
        const auto& value = record[member];
        values += value.IsString() ? value.GetString() : std::to_string(value.GetInt());
        values += ' ';
    }
    return values;
}

void ResultsCommandFixture::Change(std::string_view sql) const {
    Database database;
    database.Open(test::ProgramPath(Work(kDatabase)));
    database.Execute(sql);
}

std::vector<std::string> ResultsCommandFixture::FilesBeside() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Work(kDatabase).parent_path())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::vector<std::string>> ReadCsv(std::string_view text) {
    std::vector<std::vector<std::string>> lines;
    std::vector<std::string> line(1);
    bool quoted = false;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const char character = text[place];
        const char next = place + 1 < text.size() ? text[place + 1] : '\0';
        if (quoted && character == '"' && next == '"') {
            line.back() += '"';
            ++place;
        } else if (character == '"') {
            quoted = !quoted;
        } else if (!quoted && character == ',') {
            line.emplace_back();
        } else if (!quoted && character == '\r' && next == '\n') {
            lines.push_back(std::move(line));
            line.assign(1, "");
            ++place;
        } else {
            EXPECT_TRUE(quoted || (character != '\r' && character != '\n')) << "at " << place;
            line.back() += character;
        }
    }
    EXPECT_FALSE(quoted) << "a quote has no end";
    EXPECT_EQ(line, std::vector<std::string>(1)) << "the last line has no end";
    return lines;
}

}  // namespace dorvik::test
