#include "basic/ScriptRun.h"
#include "basic/values/MemoryMeter.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

namespace {

struct CallRow {
    const char* What;
    const char* Text;
    const char* Output;
};

void PrintTo(const CallRow& row, std::ostream* stream) {
    *stream << row.What;
}

class CallErrors : public testing::TestWithParam<CallRow> {};

}  // namespace

TEST_P(CallErrors, LeaveWhatTheProcedureHadDone) {
    EXPECT_EQ(RunModule(GetParam().Text).Output(), GetParam().Output);
}

constexpr CallRow kCallRows[] = {
    {"ParamArray elements go back though the procedure fails",
     "Sub Fill(ParamArray all())\nall(0) = 7\nall(1) = \"x\"\nErr.Raise 5\nEnd Sub\nSub Main\n"
     "On Error Resume Next\nFill a, b\nDebug.Print a; b; Err.Number\nEnd Sub",
     " 7 x 5 \n"},
    {"into elements of an array",
     "Sub Fill(ParamArray all())\nall(0) = 7\nErr.Raise 5\nEnd Sub\nSub Main\nDim a(3)\n"
     "On Error Resume Next\nFill a(2)\nDebug.Print a(2)\nEnd Sub",
     " 7 \n"},
    {"an argument of another type goes back",
     "Sub Change(n As Long)\nn = 7\nErr.Raise 5\nEnd Sub\nSub Main\nDim v\nv = \"3\"\n"
     "On Error Resume Next\nChange v\nDebug.Print v; Err.Number\nEnd Sub",
     " 7  5 \n"},
    {"through a procedure without a handler",
     "Sub Deep(ParamArray all())\nall(0) = all(0) + 1\nErr.Raise 5\nEnd Sub\n"
     "Sub Middle(v)\nDeep v\nEnd Sub\nSub Main\nOn Error GoTo Failed\nn = 1\nMiddle n\nExit Sub\n"
     "Failed:\nDebug.Print n; Err.Number\nEnd Sub",
     " 2  5 \n"},
    {"a value that does not fit leaves the first error",
     "Sub Change(s As String)\ns = \"x\"\nErr.Raise 5\nEnd Sub\nSub Main\nDim n As Long\nn = 3\n"
     "On Error Resume Next\nChange n\nDebug.Print n; Err.Number\nEnd Sub",
     " 3  5 \n"},
    {"HelpFile and HelpContext belong to one error",
     "Sub Main\nOn Error Resume Next\nErr.Raise 5, , , \"a.hlp\", 9\n"
     "Debug.Print Err.HelpFile; Err.HelpContext\nx = 1 \\ 0\nDebug.Print Err.HelpFile; "
     "Err.HelpContext\nEnd Sub",
     "a.hlp 9 \n 0 \n"},
    {"properties that a script set go with the next error",
     "Sub Main\nOn Error Resume Next\nErr.HelpFile = \"b.hlp\"\nx = 1 \\ 0\n"
     "Debug.Print Err.HelpFile & \".\"\nEnd Sub",
     ".\n"},
};
INSTANTIATE_TEST_SUITE_P(Rows, CallErrors, testing::ValuesIn(kCallRows));

TEST(MachineLimits, HoldOnlyWhileTheScriptRuns) {
    const std::size_t memory = MemoryMeter::Current().Limit();
    const std::size_t text = MemoryMeter::Current().StringLimit();
    ScriptLimits limits;
    limits.MemoryBytes = 1'000'000;
    limits.StringBytes = 1'000;
    const ScriptRun run =
        RunModule("Sub Main\ns = String(2000, \"x\")\nEnd Sub", "Main", nullptr, limits);
    ASSERT_EQ(run.Alerts.size(), 1u);
    EXPECT_EQ(run.Alerts.front().Number, 14);
    EXPECT_EQ(MemoryMeter::Current().Limit(), memory);
    EXPECT_EQ(MemoryMeter::Current().StringLimit(), text);
}

}  // namespace dorvik::basic
