#include "cli/CommandLineFixture.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <rapidjson/document.h>

namespace dorvik::test {

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ScriptFacts : public CommandLineFixture {
protected:
    /// Runs statements as a script among these facts.
    ProgramResult Try(const std::string& statements, const std::string& facts) const {
        WriteBytes("a.dvs", "Sub Main\n" + statements + "\nEnd Sub\n");
        WriteBytes("facts.json", facts);
        return Run({"script", "run", "a.dvs", "--facts", "facts.json"});
    }

    static constexpr const char* kFacts = R"({
        "event": "begin Procedure",
        "objects": {
            "Procedure": {
                "properties": { "Name": "Save", "ArgumentCount": 7, "IsStatic": false },
                "workfields": { "Seen": 1, "Note": "here" }
            },
            "Source": { "properties": { "Line": "x = 1" } }
        },
        "classes": ["clsOrder"],
        "forms": ["frmMain"]
    })";
};

}  // namespace

TEST_F(ScriptFacts, EachCallbackThatActsWritesALine) {
    const ProgramResult result =
        Try("Dorvik.RaiseViolation\n"
            "Dorvik.CancelPendingViolation\n"
            "Call Dorvik.ApplyConvention\n"
            "Dorvik.DebugPrint \"text\"\n"
            "Dorvik.DebugPrint 1 + 1\n"
            "Dorvik.DumpObject \"Procedure\"",
            kFacts);
    EXPECT_EQ(result.ExitCode, 0) << result.Error;
    EXPECT_EQ(
        result.Output, "[raise]\n[cancel]\n[apply]\n[debug] text\n[debug] 2\n[dump] Procedure\n");
    EXPECT_THAT(result.Error, IsEmpty());
}

TEST_F(ScriptFacts, PropertiesKeepTheirKindAndAnyCaseFindsThem) {
    const ProgramResult result = Try(
        "Dim v\n"
        "Dorvik.GetObjectProperty \"procedure\", \"NAME\", v: Debug.Print TypeName(v) & \" \" & v\n"
        "Dorvik.GetObjectProperty \"Procedure\", \"ArgumentCount\", v: Debug.Print TypeName(v) & "
        "\" \" & v\n"
        "Dorvik.GetObjectProperty \"Procedure\", \"IsStatic\", v: Debug.Print TypeName(v) & \" \" "
        "& v\n"
        "Dorvik.GetObjectProperty \"Procedure\", \"WF.Seen\", v: Debug.Print TypeName(v) & \" \" & "
        "v\n"
        "Debug.Print Dorvik.GetParserEvent",
        kFacts);
    EXPECT_EQ(result.Output, "String Save\nLong 7\nBoolean False\nLong 1\nbegin Procedure\n");
}

TEST_F(ScriptFacts, AFailedLookUpIsLoggedAndGivesTheEmptyText) {
    const struct {
        const char* Arguments;
        std::string Text;
        std::string Type = "String";
    } kCases[] = {
        {"\"Control\", \"Name\"", "Unknown virtual object 'Control' or object not in scope."},
        {"\"Procedure\", \"Nmae\"", "Virtual object property 'Procedure.Nmae' not found."},
        {"\"Procedure\", \"WF.x\"", "Virtual object workfield 'Procedure.WF.x' not found."},
        {"\"Source\", \"x\"", "Invalid Source property 'x' specified.", "Empty"},
        {"\"Source\", \"WF.x\"", "Invalid Source property 'WF.x' specified.", "Empty"},
        {"\"namingconvention\", \"x\"", "Invalid NamingConvention property 'x' specified."},
    };
    for (const auto& row : kCases) {
        const ProgramResult result =
            Try("v = 5: Dorvik.GetObjectProperty " + std::string(row.Arguments) +
                    ", v\nDebug.Print TypeName(v); Len(v)",
                kFacts);
        EXPECT_EQ(result.ExitCode, 0);
        EXPECT_EQ(result.Output, "[log] " + row.Text + "\n" + row.Type + " 0 \n");
    }
}

TEST_F(ScriptFacts, WorkFieldsCanBeReadWrittenAndAskedFor) {
    const ProgramResult result = Try(
        "Dim v, b\n"
        "Dorvik.GetObjectWorkField \"Procedure\", \"note\", v: Debug.Print v\n"
        "Dorvik.GetObjectWorkField \"Procedure\", \"None\", v: Debug.Print TypeName(v); Len(v)\n"
        "Dorvik.SetObjectWorkField \"Procedure\", \"None\", 2.5\n"
        "Dorvik.GetObjectWorkField \"Procedure\", \"NONE\", v: Debug.Print TypeName(v); v\n"
        "Dorvik.ObjectHasWorkfield \"Procedure\", \"None\", b: Debug.Print b\n"
        "Dorvik.ObjectHasWorkfield \"Procedure\", \"Name\", b: Debug.Print b\n"
        "Dorvik.ObjectHasProperty \"Procedure\", \"Name\", b: Debug.Print b\n"
        "Dorvik.ObjectHasProperty \"Control\", \"Name\", b: Debug.Print b",
        kFacts);
    EXPECT_EQ(result.Output, "here\nString 0 \nDouble 2.5 \nTrue\nFalse\nTrue\nFalse\n");
}

TEST_F(ScriptFacts, AnObjectThatIsNotThereHasNoWorkFieldsAndLeavesTheVariableAlone) {
    const ProgramResult result =
        Try("v = \"old\"\n"
            "Dorvik.SetObjectWorkField \"Control\", \"x\", 1\n"
            "Dorvik.GetObjectWorkField \"Control\", \"x\", v: Debug.Print v\n"
            "Dorvik.SetObjectWorkField \"Source\", \"x\", 1\n"
            "Dorvik.GetObjectWorkField \"Source\", \"x\", v: Debug.Print v",
            kFacts);
    EXPECT_EQ(result.Output, "old\nold\n");
}

TEST_F(ScriptFacts, ClassAndFormNamesAreFoundInAnyCase) {
    const ProgramResult result =
        Try("Debug.Print Dorvik.IsClassName(\"CLSORDER\"); Dorvik.IsClassName(\"frmMain\")\n"
            "Debug.Print Dorvik.IsFormName(\"frmmain\"); Dorvik.IsFormName(\"\")",
            kFacts);
    EXPECT_THAT(result.Error, IsEmpty());
    EXPECT_EQ(result.Output, "TrueFalse\nTrueFalse\n");
}

TEST_F(ScriptFacts, EmptyFactsAreAReviewWithoutObjects) {
    EXPECT_EQ(
        Try("Dorvik.RaiseViolation\nDebug.Print Len(Dorvik.GetParserEvent)", "{}").Output,
        "[raise]\n 0 \n");
}

TEST_F(ScriptFacts, WrongFactsAreToldInOneSentenceThatNamesFileAndPlace) {
    const struct {
        const char* Facts;
        const char* Sentence;
    } kCases[] = {
        {"", "invalid JSON at line 1, column 1: The document is empty"},
        {"{\n  \"event\": ,\n}", "invalid JSON at line 2, column 12: Invalid value"},
        {"{\"event\": \"\xC3\xA4\" x",
         "invalid JSON at line 1, column 15: Missing a comma or '}' after an object member"},
        {"[]", "expected a JSON object"},
        {"{\"objcts\": {}}", "unknown member 'objcts' in the file"},
        {"{\"event\": 1}", "'event' must be a string"},
        {"{\"objects\": []}", "'objects' must be a JSON object"},
        {"{\"objects\": {\"File\": 1}}", "'File' in 'objects' must be a JSON object"},
        {"{\"objects\": {\"File\": {}, \"FILE\": {}}}", "duplicate 'FILE' in 'objects'"},
        {"{\"objects\": {\"File\": {\"Name\": \"x\"}}}", "unknown member 'Name' in 'File'"},
        {"{\"objects\": {\"File\": {\"properties\": []}}}",
         "'properties' of 'File' must be a JSON object"},
        {"{\"objects\": {\"File\": {\"properties\": {\"Name\": 1.5}}}}",
         "'File.Name' must be a string, a 32-bit integer or a boolean"},
        {"{\"objects\": {\"File\": {\"workfields\": {\"n\": 3000000000}}}}",
         "'File.n' must be a string, a 32-bit integer or a boolean"},
        {"{\"objects\": {\"File\": {\"workfields\": {\"n\": 1, \"N\": 2}}}}",
         "duplicate 'File.N' in 'workfields'"},
        {"{\"classes\": \"a\"}", "'classes' must be an array of strings"},
        {"{\"forms\": [1]}", "'forms' must be an array of strings"},
    };
    for (const auto& [facts, sentence] : kCases) {
        const ProgramResult result = Try("Debug.Print 1", facts);
        EXPECT_EQ(result.ExitCode, 2) << facts;
        EXPECT_THAT(result.Output, IsEmpty());
        EXPECT_EQ(
            result.Error,
            "dorvik: the file of facts 'facts.json' cannot be used: " + std::string(sentence) +
                "\n");
    }
}

TEST_F(ScriptFacts, DeeplyNestedFactsAreASentenceToo) {
    const ProgramResult result = Try("Debug.Print 1", std::string(1'000'000, '['));
    EXPECT_EQ(result.ExitCode, 2);
    ExpectClearSentences(result);
}

TEST_F(ScriptFacts, EveryRuleOfTheEnginesTestsDoesTheSameOnTheCommandLine) {
    const fs::path rules =
        fs::path(DORVIK_SAMPLES_FOLDER).parent_path() / "tests" / "basic" / "rules";
    int count = 0;
    for (const auto& entry : fs::directory_iterator(rules)) {
        if (entry.path().extension() != ".json") {
            continue;
        }
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        rapidjson::Document facts;
        facts.Parse(text.c_str());
        ASSERT_TRUE(facts.IsObject() && facts.HasMember("expect")) << entry.path();
        std::string expected;
        for (const auto& line : facts["expect"].GetArray()) {
            expected += std::string(line.GetString()) + "\n";
        }
        const std::string script = entry.path().stem().stem().string() + ".dvs";
        const ProgramResult result = Run(
            {"script",
             "run",
             (entry.path().parent_path() / script).string(),
             "--facts",
             entry.path().string()});
        EXPECT_EQ(result.Output, expected) << entry.path();
        EXPECT_EQ(result.ExitCode, 0) << result.Error;
        ++count;
    }
    EXPECT_GE(count, 60);
}

}  // namespace dorvik::test
