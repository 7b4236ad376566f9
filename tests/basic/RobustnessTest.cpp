#include "basic/ScriptRun.h"

#include <gtest/gtest.h>

#include <chrono>

namespace dorvik::basic {

namespace {

struct HardScriptRow {
    const char* What;
    const char* Module;
    const char* Output;
};

void PrintTo(const HardScriptRow& row, std::ostream* stream) {
    *stream << row.What;
}

class HardScripts : public testing::TestWithParam<HardScriptRow> {};

/// How long a script runs that repeats a statement for ever, with 50 ms to do so.
double SecondsUntilStopped(const std::string& declarations, const std::string& statement) {
    const auto start = std::chrono::steady_clock::now();
    const ScriptRun run = RunModule(
        "Sub Main\n" + declarations + "\nDo\n" + statement + "\nLoop\nEnd Sub\n",
        "Main",
        nullptr,
        {.Instructions = 0, .Milliseconds = 50});
    EXPECT_TRUE(run.Alerts.size() == 1 && run.Alerts.front().IsLimit) << statement << run.Output();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

TEST_P(HardScripts, SucceedOrFailWithAClearError) {
    EXPECT_EQ(RunModule(GetParam().Module).Output(), GetParam().Output);
}

constexpr HardScriptRow kHardScriptRows[] = {
    {"10,000 arrays in each other",
     "Sub Main\nv = 1\nFor i = 1 To 10000\nv = Array(v)\nNext\nEnd Sub\n",
     "Error 28: Out of stack space (the limit of 500 nested arrays was reached)\n"},
    {"10,000 collections in each other",
     "Sub Main\nDim c As New Collection\nFor i = 1 To 10000\nSet d = New Collection\nd.Add c\n"
     "Set c = d\nNext\nDebug.Print c.Count\nEnd Sub\n",
     " 1 \n"},
    {"recursion to the limit",
     "Sub Main\nF\nEnd Sub\nSub F\nF\nEnd Sub\n",
     "Error 28: Out of stack space (the limit of 2000 procedure calls was reached)\n"},
    {"recursion through error handlers",
     "Sub Main\nF\nEnd Sub\nSub F\nOn Error GoTo e\nError 5\ne: F\nEnd Sub\n",
     "Error 28: Out of stack space (the limit of 2000 procedure calls was reached)\n"},
    {"For Each over a collection in itself that grows",
     "Sub Main\nDim c As New Collection\nc.Add c\nFor Each v In c\nn = n + 1\n"
     "If n < 1000 Then v.Add c\nNext\nDebug.Print n\nEnd Sub\n",
     " 1000 \n"},
    {"a dictionary in itself",
     "Sub Main\nSet d = CreateObject(\"Scripting.Dictionary\")\nd.Add \"me\", d\nd.Add d, d.Items\n"
     "Debug.Print d(\"me\")(\"me\").Count; d(d)(0).Count\nEnd Sub\n",
     " 2  2 \n"},
    {"records in arrays in records",
     "Type A\nx(3) As Long\ns As String\nEnd Type\nType B\na() As A\nEnd Type\nSub Main\n"
     "Dim p(5) As B, q As B\nReDim p(1).a(3)\np(1).a(3).s = \"x\"\nq = p(1)\nq.a(3).s = \"y\"\n"
     "Debug.Print p(1).a(3).s; q.a(3).s\nEnd Sub\n",
     "xy\n"},
    {"an array beyond all memory",
     "Sub Main\nReDim a(2147483647, 2147483647, 2147483647)\nEnd Sub\n",
     "Error 7: Out of memory (the limit of 268435456 bytes was reached)\n"},
};
INSTANTIATE_TEST_SUITE_P(Rows, HardScripts, testing::ValuesIn(kHardScriptRows));

TEST(HardScript, ASelectWith100000CasesRuns) {
    std::string text = "Sub Main\nDim n As Long\nn = 77777\nSelect Case n\n";
    for (int i = 0; i < 100'000; ++i) {
        text += "Case " + std::to_string(i) + "\nx = " + std::to_string(i % 1000) + "\n";
    }
    EXPECT_EQ(RunModule(text + "End Select\nDebug.Print x\nEnd Sub\n").Output(), " 777 \n");
}

TEST(TimeLimit, ReachesLoopsOfSlowStatements) {
    const std::string kText = "Dim s As String\ns = Space(4000000)\nz = Space(4000000)\n";
    const std::string kList =
        "Dim c As New Collection\nFor i = 1 To 20000\nc.Add i, \"k\" & i\nNext\n";
    const std::string kBytes = "Dim b() As Byte, s As String\nReDim b(4000000)\ns = b\n";
    const struct {
        std::string Declarations;
        const char* Statement;
    } rows[] = {
        {kBytes, "x = LenB(b)"},
        {kBytes, "x = AscB(b)"},
        {kBytes, "x = InStrB(b, \"a\")"},
        {kBytes, "x = StrConv(b, 64)"},
        {kBytes, "x = MidB(s, 3, 1)"},
        {kBytes, "s = b"},
        {kBytes, "b = s"},
        {kText, "LSet s = \"a\""},
        {kText, "Mid(s, 4000000) = \"a\""},
        {kText, "x = (s = z)"},
        {kText, "x = z < s"},
        {kText, "x = UCase(s)"},
        {kText, "x = Len(s)"},
        {kText, "Err.Description = s"},
        {kText + "t = LCase(Replace(s, \" \", \"a\"))\n", "x = InStr(1, t, \"aaaaab\", 1)"},
        {kText, "x = s Like \"*a\""},
        {kText + "z = \"*\" & Space(1000) & \"a\"", "x = s Like z"},
        {kText, "x = String(4000000, \"a\")"},
        {kList, "c.Remove \"k10000\": c.Add 1, \"k10000\", 10000"},
        {"Set d = CreateObject(\"Scripting.Dictionary\")\nFor i = 1 To 20000\nd.Add i, i\nNext",
         "x = d.Keys"},
    };
    for (const auto& row : rows) {
        EXPECT_LT(SecondsUntilStopped(row.Declarations, row.Statement), 5.0) << row.Statement;
    }
}

}  // namespace dorvik::basic
