#include "basic/engine/ScriptEngine.h"

#include <gtest/gtest.h>

#include <string>

// What a script costs is counted in units of work, of which some thousands lie between two calls of the host.

namespace dorvik::basic {
namespace {

class CountingHost final : public IScriptHost {
public:
    void OnErrorAlert(const ErrorAlert& alert) override { Alert = alert.Description; }
    bool OnDoEvents() override {
        ++Calls;
        return true;
    }

    std::string Alert;
    std::size_t Calls = 0;
};

/// How often the host is called while `statements` run, with a text `s` of `n` lines and the limits of a review.
std::size_t CallsOf(const std::string& line, std::size_t lines, const std::string& statements) {
    CountingHost host;
    ScriptEngine engine(host);
    ScriptLimits limits;
    limits.Milliseconds = 0;
    engine.SetLimits(limits);
    engine.SetAcceptsModules(true);
    const std::string text = "Sub Main()\n    Dim s As String, t As String, i As Long, p As Long\n"
                             "    For i = 1 To " +
                             std::to_string(lines) + ": s = s & \"" + line + "\" & vbLf: Next\n" +
                             statements + "\nEnd Sub\n";
    EXPECT_TRUE(engine.LoadText("Cost.dvs", text)) << engine.ErrorText();
    engine.SetReady(true);
    EXPECT_TRUE(engine.RunSub("Main"));
    EXPECT_EQ(host.Alert, "");
    return host.Calls;
}

constexpr const char* kAscii = "If lngTotal > 0 Then GoTo ErrorHandler ' checked";
constexpr const char* kMixed = "If lngTotal > 0 Then GoTo ErrorHandler ' gepr\xC3\xBC"
                               "ft \xE2\x82\xAC";

void ExpectLinear(const std::string& statements) {
    for (const char* const line : {kAscii, kMixed}) {
        const std::size_t once = CallsOf(line, 1000, statements);
        const std::size_t fourTimes = CallsOf(line, 4000, statements);
        EXPECT_GT(once, 0U);
        EXPECT_LE(fourTimes, 5 * once + 5) << line << "\n" << statements;
    }
}

TEST(ScriptCost, AScanOfALongTextGrowsWithItsLength) {
    ExpectLinear("For i = 1 To Len(s): If Mid$(s, i, 1) = \"e\" Then p = p + 1\nNext");
}

TEST(ScriptCost, AScanFromTheEndGrowsWithItsLength) {
    ExpectLinear("For i = 1 To Len(s): If Mid$(s, Len(s) - i + 1, 1) = \"e\" Then p = p + 1\nNext");
}

TEST(ScriptCost, ALengthAskedInEveryRoundCostsNothing) {
    ExpectLinear("i = 1\nDo While i <= Len(s)\ni = i + 1\nLoop");
}

TEST(ScriptCost, ASearchThatGoesOnBehindEachPlaceGrowsWithTheLength) {
    ExpectLinear("p = InStr(1, s, \"o\")\nDo While p > 0\np = InStr(p + 1, s, \"o\")\nLoop");
}

TEST(ScriptCost, AShortEndOfALongTextCostsItself) {
    ExpectLinear("For i = 1 To Len(s): t = Right$(s, 3): Next");
}

TEST(ScriptCost, OverwritingCharactersOneByOneGrowsWithTheLength) {
    ExpectLinear("For i = 1 To Len(s): If Mid$(s, i, 1) = \"e\" Then Mid(s, i, 1) = \"E\"\nNext");
}

TEST(ScriptCost, AnIndexIsReadToItsEnd) {
    const std::string use =
        "t = String$(CLng(Len(s)), \" \") & \"1\"\nDim a(1) As String, v\nv = a\n"
        "For i = 1 To 1000: a(0) = a(t): v(t) = v(t): Next";
    const std::size_t once = CallsOf(kAscii, 1000, use);
    EXPECT_GT(once, 100U);
    EXPECT_GE(CallsOf(kAscii, 4000, use), 3 * once);
}

}  // namespace
}  // namespace dorvik::basic
