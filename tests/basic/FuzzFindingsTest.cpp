#include "SampleValues.h"
#include "base/BasicError.h"
#include "basic/ScriptRun.h"
#include "basic/values/MemoryMeter.h"
#include "basic/values/ScriptObject.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

namespace {

/// Keeps what a script puts there, also when its engine is gone.
class KeepingExtension : public IScriptExtension {
public:
    std::span<const ExtensionMember> Members() const override {
        static constexpr ExtensionMember kMembers[] = {{"Put", 1, 0}, {"Get", 1, 1}};
        return kMembers;
    }
    void Call(std::size_t member, std::span<Value> arguments) override {
        if (member == 0) {
            Kept = arguments[0];
        } else {
            arguments[0] = Kept;
        }
    }

    Value Kept;
};

std::size_t UsedMemory() {
    return MemoryMeter::Current().Used();
}

std::string OutputOf(std::string_view statements, IScriptExtension* extension = nullptr) {
    return RunStatements(statements, extension).Output();
}

struct CycleRow {
    const char* What;
    const char* Statements;
};

void PrintTo(const CycleRow& row, std::ostream* stream) {
    *stream << row.What;
}

class CyclesOfContainers : public testing::TestWithParam<CycleRow> {};

}  // namespace

TEST_P(CyclesOfContainers, AreGoneWithTheirModule) {
    OutputOf(GetParam().Statements);  // strings that are made once for good are made now
    const std::size_t before = UsedMemory();
    EXPECT_EQ(OutputOf(GetParam().Statements), "done\n");
    EXPECT_EQ(UsedMemory(), before);
}

constexpr CycleRow kCycles[] = {
    {"a collection in itself", "Dim c As New Collection: c.Add c: Debug.Print \"done\""},
    {"a dictionary in itself",
     "Set d = CreateObject(\"Scripting.Dictionary\"): d.Add \"me\", d: Debug.Print \"done\""},
    {"a dictionary in itself by numbers in a row",
     "Set d = CreateObject(\"Scripting.Dictionary\"): d.Add 1, d: d.Add 2, d: Debug.Print "
     "\"done\""},
    {"a dictionary as its own key",
     "Set d = CreateObject(\"Scripting.Dictionary\"): d.Add d, 1: Debug.Print \"done\""},
    {"two in each other",
     "Dim c As New Collection, d As New Collection: c.Add d: d.Add c: Debug.Print \"done\""},
    {"through arrays in arrays",
     "Dim c As New Collection: c.Add Array(1, Array(c, c)): c.Add \"text\" & 1: Debug.Print "
     "\"done\""},
    {"one that holds others that hold nothing",
     "Dim c As New Collection: c.Add c: c.Add New Collection: Debug.Print \"done\""},
};
INSTANTIATE_TEST_SUITE_P(Rows, CyclesOfContainers, testing::ValuesIn(kCycles));

TEST(LostContainers, OfOneCallDoNotTakeTheMemoryOfTheNext) {
    class CountingHost : public IScriptHost {
    public:
        void OnErrorAlert(const ErrorAlert&) override { ++Alerts; }
        int Alerts = 0;
    };
    CountingHost host;
    ScriptEngine engine(host);
    ScriptLimits limits;
    limits.MemoryBytes = 4u << 20;
    engine.SetLimits(limits);
    engine.SetAcceptsModules(true);
    ASSERT_TRUE(engine.LoadText(
        "Test.dvs",
        "Sub Main\nFor i = 1 To 1000\nSet c = New Collection\nc.Add c\nNext\nEnd Sub\n"));
    engine.SetReady(true);
    for (int call = 0; call < 50; ++call) {
        engine.RunSub("Main");
    }
    EXPECT_EQ(host.Alerts, 0);
}

TEST(LostContainers, LeaveAloneWhatTheHostKeeps) {
    KeepingExtension extension;
    EXPECT_EQ(
        OutputOf(
            "Dim c As New Collection, d As New Collection: d.Add 7: c.Add c: c.Add Array(d): "
            "Dorvik.Put c",
            &extension),
        "");
    EXPECT_EQ(
        OutputOf("Dorvik.Get c: Debug.Print c(1)(1).Count; c(2)(0)(1)", &extension), " 2  7 \n");
    extension.Kept = Value();
}

TEST(LostContainers, LeaveAloneWhatModuleVariablesHold) {
    const ScriptRun run = RunModule(
        "Dim k As Collection\nSub Main\nSet k = New Collection\nk.Add k\nFor i = 1 To 200000\n"
        "Set c = New Collection\nc.Add c\nIf i Mod 50000 = 0 Then Debug.Print k(1).Count\n"
        "Next\nEnd Sub\n",
        "Main",
        nullptr,
        {.MemoryBytes = 512u << 20});
    EXPECT_EQ(run.Output(), " 1 \n 1 \n 1 \n 1 \n");
}

TEST(ObjectsKeptBeyondTheirEngine, ARegularExpressionServesTheNextEngine) {
    KeepingExtension extension;
    OutputOf(
        "Set r = CreateObject(\"VBScript.RegExp\"): r.Pattern = \"a\": r.Global = True: "
        "Dorvik.Put r",
        &extension);
    EXPECT_EQ(
        OutputOf(
            "Dorvik.Get r: Debug.Print Len(r.Replace(String(100000, \"a\"), \"bb\"))", &extension),
        " 200000 \n");
    extension.Kept = Value();
}

TEST(ObjectsKeptBeyondTheirEngine, TheErrorObjectTellsOfTheMachineThatRuns) {
    KeepingExtension extension;
    OutputOf("Set e = Err: Dorvik.Put e", &extension);
    EXPECT_EQ(
        OutputOf("On Error Resume Next: Dorvik.Get e: Error 13: Debug.Print e.Number", &extension),
        " 13 \n");
    ASSERT_EQ(extension.Kept.Type(), ValueType::Object);
    EXPECT_EQ(
        sample::ErrorOf([&] { extension.Kept.AsObject()->Invoke(0, InvokeKind::Get, {}); }), 91);
    extension.Kept = Value();
}

TEST(MemoryLimit, CountsObjectsThatHoldNothing) {
    for (const char* made :
         {"New Collection",
          "CreateObject(\"Scripting.Dictionary\")",
          "CreateObject(\"VBScript.RegExp\")"}) {
        const ScriptRun run = RunModule(
            std::string("Sub Main\nDim c As New Collection\nOn Error GoTo full\n"
                        "Do\nc.Add ") +
                made + "\nLoop\nfull: Debug.Print Err.Number; c.Count < 40000\nEnd Sub\n",
            "Main",
            nullptr,
            {.MemoryBytes = 4u << 20});
        EXPECT_EQ(run.Output(), " 7 True\n") << made;
    }
}

TEST(MemoryLimit, CountsPatternsOfRegularExpressions) {
    const ScriptRun run = RunModule(
        "Sub Main\nDim c As New Collection\nOn Error GoTo full\nDo\n"
        "Set r = CreateObject(\"VBScript.RegExp\")\nr.Pattern = String(60000, \"a\")\nc.Add r\n"
        "Loop\nfull: Debug.Print Err.Number; c.Count\nEnd Sub\n",
        "Main",
        nullptr,
        {.MemoryBytes = 16u << 20});
    EXPECT_EQ(run.Output(), " 7  8 \n");
}

TEST(RegExpPattern, MayBeAsLongAsItsLimitAndNoLonger) {
    EXPECT_EQ(
        OutputOf("Set r = CreateObject(\"VBScript.RegExp\"): r.Pattern = String(65536, \"a\"): "
                 "Debug.Print r.Test(\"a\"): r.Pattern = String(65537, \"a\")"),
        "False\nError 16: Expression too complex (the limit of 65536 bytes for a pattern was "
        "reached)\n");
}

TEST(FormatFunction, RefusesAFormatThatWouldTakeLong) {
    EXPECT_EQ(
        OutputOf("Debug.Print Len(Format(1, String(65536, \" \"))): x = Format(1, Space(65537))"),
        " 65536 \nError 5: Invalid procedure call or argument (the limit of 65536 bytes for a "
        "format "
        "was reached)\n");
}

TEST(MidStatement, RefusesTheSmallestStartThereIs) {
    EXPECT_EQ(
        OutputOf("s = \"abc\": n = CLng(-2147483648#): Mid(s, n) = \"x\""),
        "Error 5: Invalid procedure call or argument\n");
}

}  // namespace dorvik::basic
