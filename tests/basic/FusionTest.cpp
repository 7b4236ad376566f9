#include "base/BasicError.h"
#include "basic/ScriptRun.h"
#include "basic/engine/ScriptEngine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

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

/// Has the answer at hand, except when it is asked for "Line" of "Other".
class PropertyAtHand final : public IScriptExtension {
public:
    explicit PropertyAtHand(Value value) : m_value(std::move(value)) {}

    std::span<const ExtensionMember> Members() const override {
        static constexpr std::array kMembers{ExtensionMember{"GetProperty", 3, 4}};
        return kMembers;
    }
    void Call(std::size_t, std::span<Value> arguments) override {
        ++Calls;
        arguments[2] = m_value;
    }
    const Value*
    Recall(std::size_t member, const Value& first, const Value& second) const override {
        const bool isKnown = member == 0 && first.AsText() == "Source" && second.AsText() == "Line";
        return isKnown ? &m_value : nullptr;
    }

    int Calls = 0;

private:
    Value m_value;
};

const char* const kProperty = "Sub Main()\n"
                              "    Dim s As String\n"
                              "    s = \"before\"\n"
                              "    Dorvik.GetProperty \"Source\", \"Line\", s\n"
                              "    Debug.Print s\n"
                              "End Sub\n";

// What the cases of rows.cases are about: each line holds the row that its name says.
TEST(Fusion, PutsOneInstructionInThePlaceOfARow) {
    constexpr std::pair<const char*, const char*> kRows[] = {
        {"LeftRow", "t = Left$(s, 3)"},
        {"LeftCasesRow",
         "Select Case Left$(s, 3)\n    Case \"abc\", \"de\": t = s\n    End Select"},
        {"JumpLeftRow", "If Left$(s, 3) = \"abc\" Then t = s"},
        {"InStrRow", "If InStr(s, \"abc\") > 0 Then t = s"},
        {"LenRow", "n = Len(s)"},
        {"LikeRow", "If s Like \"a*\" Then t = s"},
        {"JumpTextRow", "If s = \"abc\" Then t = s"},
        {"PropertyRow", "Dorvik.GetProperty \"Source\", \"Line\", s"},
    };
    for (const auto& [row, line] : kRows) {
        OneProperty extension(Value::Text("x"));
        IScriptHost host;
        ScriptEngine engine(host);
        engine.AddExtension("Dorvik.", extension);
        engine.SetAcceptsModules(true);
        ASSERT_TRUE(engine.LoadText(
            "m.dvs",
            std::string("Sub Main()\nDim s As String, t As String, n As Long\n") + line +
                "\nEnd Sub\n"));
        EXPECT_THAT(engine.Disassemble(), HasSubstr("  " + std::string(row) + " ")) << line;
    }
}

TEST(Fusion, APropertyThatIsATextGoesIntoTheVariable) {
    OneProperty extension(Value::Text("after"));
    EXPECT_EQ(RunModule(kProperty, "Main", &extension).Output(), "after\n");
    EXPECT_THAT(extension.Asked, ElementsAre("Source.Line=before"));
}

TEST(Fusion, APropertyThatIsNoTextIsCoerced) {
    OneProperty number(Value::Long(12));
    EXPECT_EQ(RunModule(kProperty, "Main", &number).Output(), "12\n");
    OneProperty null(Value::Null());
    EXPECT_THAT(RunModule(kProperty, "Main", &null).Output(), HasSubstr("Error 94"));
}

TEST(Fusion, APropertyThatFailsIsAnErrorOfItsLine) {
    OneProperty broken(Value::Error(438));
    const ScriptRun run = RunModule(kProperty, "Main", &broken);
    ASSERT_EQ(run.Alerts.size(), 1U);
    EXPECT_EQ(run.Alerts[0].Line, 4);
    EXPECT_EQ(run.Alerts[0].Number, 438);
}

TEST(Fusion, APropertyAtHandSavesTheCall) {
    PropertyAtHand extension(Value::Text("after"));
    EXPECT_EQ(RunModule(kProperty, "Main", &extension).Output(), "after\n");
    EXPECT_EQ(extension.Calls, 0);
    EXPECT_EQ(
        RunStatements(
            "Debug.Print Dorvik.GetProperty(\"Source\", \"Line\"); "
            "Dorvik.GetProperty(\"Other\", \"Line\")",
            &extension)
            .Output(),
        "afterafter\n");
    EXPECT_EQ(extension.Calls, 1);
}

TEST(Fusion, APropertyAtHandThatIsNoTextIsCoercedByTheCall) {
    PropertyAtHand extension(Value::Long(12));
    EXPECT_EQ(RunModule(kProperty, "Main", &extension).Output(), "12\n");
    EXPECT_EQ(extension.Calls, 1);
}

TEST(Fusion, APatternThatIsNoneStaysAnErrorOfItsLine) {
    EXPECT_EQ(
        RunStatements("Dim s As String: If s Like \"[a\" Then Debug.Print s").Output(),
        "Error 93: Invalid pattern string\n");
}

}  // namespace
}  // namespace dorvik::basic
