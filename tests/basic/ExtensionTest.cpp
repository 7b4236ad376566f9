#include "basic/ScriptRun.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

namespace {

class StubExtension : public IScriptExtension {
public:
    std::span<const ExtensionMember> Members() const override {
        static constexpr ExtensionMember kMembers[] = {
            {"Raise", 0, 0}, {"Get", 2, 2}, {"Put", 2, 0}, {"Two", 2, 3}};
        return kMembers;
    }
    void Call(std::size_t member, std::span<Value> arguments) override {
        ++Calls;
        if (member == 1) {
            arguments[1] = Answer;
        } else if (member == 2) {
            Answer = arguments[1];
        } else if (member == 3) {
            arguments[0] = arguments[1] = Value::Long(3);
        }
    }

    Value Answer = Value::Text("7");
    int Calls = 0;
};

struct ExtensionRow {
    const char* What;
    const char* Text;
    const char* Output;
};

void PrintTo(const ExtensionRow& row, std::ostream* stream) {
    *stream << row.What;
}

class Extension : public testing::TestWithParam<ExtensionRow> {};

}  // namespace

TEST_P(Extension, AnswersScripts) {
    StubExtension extension;
    EXPECT_EQ(RunStatements(GetParam().Text, &extension).Output(), GetParam().Output);
}

constexpr ExtensionRow kExtensionRows[] = {
    {"statement form", "Dorvik.Get \"a\", v: Debug.Print v", "7\n"},
    {"Call form", "Call dorvik.get(\"a\", v): Debug.Print v", "7\n"},
    {"function form", "Debug.Print Dorvik.Get(\"a\")", "7\n"},
    {"into a typed variable", "Dim n As Long: Dorvik.Get 1, n: Debug.Print n", " 7 \n"},
    {"into a typed variable that cannot take it",
     "Dorvik.Put 0, \"x\": Dim n As Long: Dorvik.Get 1, n",
     "Error 13: Type mismatch\n"},
    {"into an element", "Dim a(2): Dorvik.Get 1, a(2): Debug.Print a(2)", "7\n"},
    {"lost in a temporary", "v = 1: Dorvik.Get 1, (v): Debug.Print v", " 1 \n"},
    {"keeps the subtype",
     "Dorvik.Put 0, 2.5: Dorvik.Get 1, v: Debug.Print TypeName(v)",
     "Double\n"},
    {"objects by reference",
     "Set c = New Collection: Dorvik.Put 0, c: c.Add 1: Dorvik.Get 1, v: Debug.Print v.Count",
     " 1 \n"},
    {"arrays as copies",
     "a = Array(1): Dorvik.Put 0, a: a(0) = 2: Dorvik.Get 1, v: Debug.Print v(0)",
     " 1 \n"},
    {"unknown member", "On Error Resume Next: Dorvik.Nope: Debug.Print Err.Number", " 438 \n"},
    {"wrong count", "On Error Resume Next: Dorvik.Raise 1: Debug.Print Err.Number", " 450 \n"},
    {"no function with two out arguments",
     "On Error Resume Next: x = Dorvik.Two(1): Debug.Print Err.Number",
     " 450 \n"},
    {"two out arguments", "Dorvik.Two a, b: Debug.Print a; b", " 3  3 \n"},
    {"a local of that name hides it",
     "Dim Dorvik: Set Dorvik = New Collection: Debug.Print Dorvik.Count",
     " 0 \n"},
    {"the bare prefix is no value",
     "x = Dorvik",
     "Compile error 1002: 'Dorvik' is not a value: a point and the name of a member must follow\n"},
};
INSTANTIATE_TEST_SUITE_P(Rows, Extension, testing::ValuesIn(kExtensionRows));

TEST(ExtensionWarnings, TellOfUnknownMembersAndWrongCounts) {
    StubExtension extension;
    const ScriptRun run = RunStatements("Exit Sub\nDorvik.Nope\nDorvik.Raise 1", &extension);
    EXPECT_TRUE(run.HasFinished);
    EXPECT_EQ(run.Warnings.size(), 2u);
    EXPECT_EQ(extension.Calls, 0);
}

}  // namespace dorvik::basic
