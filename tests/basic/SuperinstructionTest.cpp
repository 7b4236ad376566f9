#include "base/BasicError.h"
#include "basic/ScriptRun.h"
#include "basic/engine/ScriptEngine.h"
#include "basic/program/PropertyCache.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik::basic {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Gives one value whatever it is asked for, or fails when that is an Error.
class OneProperty final : public IScriptExtension {
public:
    explicit OneProperty(Value value) : m_value(std::move(value)) {}

    std::span<const ExtensionMember> Members() const override {
        static constexpr std::array kMembers{ExtensionMember{"GetProperty", 3, 4}};
        return kMembers;
    }
    void Call(std::size_t, std::span<Value> arguments) override {
        Asked.push_back(
            std::string(arguments[0].AsText()) + "." + std::string(arguments[1].AsText()) + "=" +
            std::string(arguments[2].AsText()));
        if (m_value.Type() == ValueType::Error) {
            throw BasicError(m_value.AsLong(), "no such property");
        }
        arguments[2] = m_value;
    }

    std::vector<std::string> Asked;

private:
    Value m_value;
};

/// Keeps its first answers, except for "Line" of "Other".
class KeepingProperty final : public IScriptExtension {
public:
    explicit KeepingProperty(Value value) : m_value(std::move(value)) {}

    std::span<const ExtensionMember> Members() const override {
        static constexpr std::array kMembers{ExtensionMember{"GetProperty", 3, 4}};
        return kMembers;
    }
    void Call(std::size_t member, std::span<Value> arguments) override {
        ++Calls;
        arguments[2] = m_value;
        if (arguments[0].AsText() != "Other") {
            Answers.Keep(member, arguments[0], arguments[1], m_value);
        }
    }

    PropertyCache Answers;
    int Calls = 0;

private:
    Value m_value;
};

class PrintingHost final : public IScriptHost {
public:
    void OnDebugPrint(std::string_view line) override { Printed.emplace_back(line); }
    void OnErrorAlert(const ErrorAlert& alert) override {
        Printed.push_back("Error " + std::to_string(alert.Number));
    }
    std::vector<std::string> Printed;
};

/// What a Main of these statements prints when the machine gets the extension's answers.
std::vector<std::string> PrintedWith(KeepingProperty& extension, const std::string& statements) {
    PrintingHost host;
    ScriptEngine engine(host);
    EXPECT_TRUE(engine.AddExtension("Dorvik.", extension, &extension.Answers));
    engine.SetAcceptsModules(true);
    EXPECT_TRUE(engine.LoadText("m.dvs", "Sub Main()\n" + statements + "\nEnd Sub\n"))
        << engine.ErrorText();
    engine.SetReady(true);
    engine.RunSub("Main");
    return host.Printed;
}

const char* const kProperty = "Sub Main()\n"
                              "    Dim s As String\n"
                              "    s = \"before\"\n"
                              "    Dorvik.GetProperty \"Source\", \"Line\", s\n"
                              "    Debug.Print s\n"
                              "End Sub\n";

// Each line holds the sequence that its superinstruction does.
TEST(Superinstructions, ReplaceTheFirstInstructionOfTheirSequence) {
    constexpr std::pair<const char*, const char*> kRows[] = {
        {"SelectLeft", "Select Case Left$(s, 3)\n    Case \"abc\", \"de\": t = s\n    End Select"},
        {"JumpByLeft", "If Left$(s, 3) = \"abc\" Then t = s"},
        {"InStrOfConstant", "If InStr(s, \"abc\") > 0 Then t = s"},
        {"GetTextProperty", "Dorvik.GetProperty \"Source\", \"Line\", s"},
        {"ItemOfNew", "t = list(1)"},
        {"InvokeWithOne", "list.Add s"},
        {"InvokeWithOne", "list.Remove 1"},
        {"InvokeWithOne", "list.Add v"},
    };
    for (const auto& [name, line] : kRows) {
        KeepingProperty extension(Value::Text("x"));
        IScriptHost host;
        ScriptEngine engine(host);
        engine.AddExtension("Dorvik.", extension, &extension.Answers);
        engine.SetAcceptsModules(true);
        ASSERT_TRUE(engine.LoadText(
            "m.dvs",
            std::string("Sub Main()\n"
                        "Dim s As String, t As String, n As Long, v, list As New Collection\n") +
                line + "\nEnd Sub\n"));
        EXPECT_THAT(engine.Disassemble(), HasSubstr("  " + std::string(name) + " ")) << line;
    }
}

TEST(Superinstructions, APropertyThatIsATextGoesIntoTheVariable) {
    OneProperty extension(Value::Text("after"));
    EXPECT_EQ(RunModule(kProperty, "Main", &extension).Output(), "after\n");
    EXPECT_THAT(extension.Asked, ElementsAre("Source.Line=before"));
}

TEST(Superinstructions, APropertyThatIsNoTextIsCoerced) {
    OneProperty number(Value::Long(12));
    EXPECT_EQ(RunModule(kProperty, "Main", &number).Output(), "12\n");
    OneProperty null(Value::Null());
    EXPECT_THAT(RunModule(kProperty, "Main", &null).Output(), HasSubstr("Error 94"));
}

TEST(Superinstructions, APropertyThatFailsIsAnErrorOfItsLine) {
    OneProperty broken(Value::Error(438));
    const ScriptRun run = RunModule(kProperty, "Main", &broken);
    ASSERT_EQ(run.Alerts.size(), 1U);
    EXPECT_EQ(run.Alerts[0].Line, 4);
    EXPECT_EQ(run.Alerts[0].Number, 438);
}

TEST(Superinstructions, AKeptAnswerSavesTheCall) {
    const std::string statements = "Dim s As String, v\n"
                                   "Dorvik.GetProperty \"Source\", \"Line\", s\n"
                                   "Debug.Print s;\n"
                                   "s = \"\"\n"
                                   "Dorvik.GetProperty \"Source\", \"Line\", s\n"
                                   "Dorvik.GetProperty \"Source\", \"Line\", v\n"
                                   "Debug.Print s; v; Dorvik.GetProperty(\"Source\", \"Line\")";
    KeepingProperty extension(Value::Text("after"));
    EXPECT_THAT(PrintedWith(extension, statements), ElementsAre("afterafterafterafter"));
    EXPECT_EQ(extension.Calls, 1);
}

TEST(Superinstructions, WhatIsNotKeptIsCalledEachTime) {
    const std::string statements = "Dim s As String, i As Long\n"
                                   "For i = 1 To 3\n"
                                   "Dorvik.GetProperty \"Other\", \"Line\", s\n"
                                   "Debug.Print s; Dorvik.GetProperty(\"Other\", \"Line\");\n"
                                   "Next\n"
                                   "Debug.Print";
    KeepingProperty extension(Value::Text("x"));
    EXPECT_THAT(PrintedWith(extension, statements), ElementsAre("xxxxxx"));
    EXPECT_EQ(extension.Calls, 6);
}

TEST(Superinstructions, AKeptAnswerThatIsNoTextIsCoerced) {
    const std::string statements = "Dim s As String, i As Long\n"
                                   "For i = 1 To 2\n"
                                   "Dorvik.GetProperty \"Source\", \"Line\", s\n"
                                   "Debug.Print s;\n"
                                   "Next\n"
                                   "Debug.Print";
    KeepingProperty number(Value::Long(12));
    EXPECT_THAT(PrintedWith(number, statements), ElementsAre("1212"));
    EXPECT_EQ(number.Calls, 1);
    KeepingProperty null(Value::Null());  // is not kept
    EXPECT_THAT(PrintedWith(null, statements), ElementsAre("Error 94"));
}

TEST(Superinstructions, APatternThatIsNoneStaysAnErrorOfItsLine) {
    EXPECT_EQ(
        RunStatements("Dim s As String: If s Like \"[a\" Then Debug.Print s").Output(),
        "Error 93: Invalid pattern string\n");
}

}  // namespace
}  // namespace dorvik::basic
