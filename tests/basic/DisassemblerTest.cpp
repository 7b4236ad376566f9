#include "basic/engine/ScriptEngine.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

TEST(Disassembler, ShowsInstructionsBesideTheirLines) {
    IScriptHost host;
    ScriptEngine engine(host);
    engine.SetAcceptsModules(true);
    ASSERT_TRUE(engine.LoadText(
        "m.dvs",
        "Sub Main(ByVal n As Long)\n  Dim s As String\n  s = \"hello\"\n  n = n + 1\nEnd Sub\n"));
    const std::string text = engine.Disassemble();
    EXPECT_EQ(text.substr(0, 24), "Sub Main: 1 parameters, ");
    EXPECT_NE(text.find("    3    s = \"hello\"\n"), std::string::npos) << text;
    EXPECT_NE(text.find("LoadConstant           r1 0  ; \"hello\"\n"), std::string::npos) << text;
    EXPECT_NE(text.find("AddLongImmediate       r0 r0 1\n"), std::string::npos) << text;
}

TEST(Disassembler, ShowsTheTargetsOfASelect) {
    IScriptHost host;
    ScriptEngine engine(host);
    engine.SetAcceptsModules(true);
    ASSERT_TRUE(engine.LoadText(
        "m.dvs",
        "Sub Main(ByVal n As Long)\nSelect Case n\nCase 1\nCase 2\nCase 3\nCase 4\nEnd Select\nEnd "
        "Sub\n"));
    const std::string text = engine.Disassemble();
    EXPECT_NE(text.find("SwitchDense            r0 0\n            case 1 -> "), std::string::npos)
        << text;
}

}  // namespace dorvik::basic
