#include "basic/engine/ScriptEngine.h"

#include "basic/ScriptRun.h"
#include "platform/host/ScopedInstall.h"

#include <gtest/gtest.h>

#include <chrono>
#include <new>

namespace dorvik::basic {

namespace {

class RecordingHost : public IScriptHost {
public:
    void OnErrorAlert(const ErrorAlert& alert) override { Alerts.push_back(alert); }
    void OnDebugPrint(std::string_view line) override { Printed.emplace_back(line); }
    bool OnDoEvents() override {
        ++Asked;
        return GoesOn;
    }

    std::vector<ErrorAlert> Alerts;
    std::vector<std::string> Printed;
    int Asked = 0;
    bool GoesOn = true;
};

class StandingClock final : public IClock {
public:
    DateTime Now() override { return {2026, 11, 21, 14, 5, 9}; }
};

constexpr const char* kPrototype = "Public Sub RunScript(ByVal v_lRuleID As Long)";

class ScriptEngineTest : public testing::Test {
protected:
    bool Load(const char* text) {
        m_engine.SetAcceptsModules(true);
        const bool isLoaded = m_engine.LoadText("\\tmp\\Rules.dvs", text);
        m_engine.SetReady(isLoaded);
        return isLoaded;
    }
    bool Call(ScriptHandler& handler, std::int32_t rule) {
        const Value argument = Value::Long(rule);
        return handler.Call({&argument, 1});
    }

    RecordingHost m_host;
    ScriptEngine m_engine{m_host};
};

}  // namespace

TEST_F(ScriptEngineTest, AHandlerMadeBeforeTheLoadIsReadyAfterIt) {
    ScriptHandler handler = m_engine.CreateHandler(kPrototype);
    EXPECT_FALSE(handler.IsReady());
    ASSERT_TRUE(Load("Sub runscript(ByVal other As Long)\nDebug.Print other\nEnd Sub"));
    ASSERT_TRUE(handler.IsReady());
    EXPECT_TRUE(Call(handler, 4));
    EXPECT_EQ(m_host.Printed, std::vector<std::string>{" 4 "});
    m_engine.SetReady(false);
    EXPECT_FALSE(handler.IsReady());
    EXPECT_FALSE(Call(handler, 4));
}

TEST_F(ScriptEngineTest, AnotherSignatureLeavesTheHandlerNotReady) {
    ScriptHandler handler = m_engine.CreateHandler(kPrototype);
    for (const char* text :
         {"Sub RunScript(v As Long)\nEnd Sub",
          "Sub RunScript(ByVal v As Integer)\nEnd Sub",
          "Sub RunScript()\nEnd Sub",
          "Function RunScript(ByVal v As Long)\nEnd Function"}) {
        ASSERT_TRUE(Load(text)) << text;
        EXPECT_FALSE(handler.IsReady()) << text;
    }
}

TEST_F(ScriptEngineTest, AModuleIsTakenOnlyInTheModeThatAcceptsOne) {
    EXPECT_FALSE(m_engine.LoadText("a.dvs", "Sub Main\nEnd Sub"));
    EXPECT_EQ(m_engine.ErrorText(), "a.dvs: The engine does not accept modules");
}

TEST_F(ScriptEngineTest, AFileThatIsNotThereIsALoadError) {
    m_engine.SetAcceptsModules(true);
    EXPECT_FALSE(m_engine.LoadModule("\\no\\such\\file.dvs"));
    EXPECT_NE(m_engine.ErrorText().find("file.dvs"), std::string::npos);
}

TEST_F(ScriptEngineTest, AnAlertTellsFileSourceLineAndNumber) {
    ASSERT_TRUE(Load("Attribute VB_Name = \"Rules\"\nSub Main\nx = 1\nx = x / 0\nEnd Sub"));
    EXPECT_FALSE(m_engine.RunSub("Main"));
    ASSERT_EQ(m_host.Alerts.size(), 1u);
    EXPECT_EQ(m_host.Alerts[0].File, "\\tmp\\Rules.dvs");
    EXPECT_EQ(m_host.Alerts[0].Source, "Rules");
    EXPECT_EQ(m_host.Alerts[0].Line, 4);
    EXPECT_EQ(m_host.Alerts[0].Number, 11);
    EXPECT_EQ(m_host.Alerts[0].Description, "Division by zero");
}

TEST_F(ScriptEngineTest, AMissingSubIsError35) {
    ASSERT_TRUE(Load("Sub Main\nEnd Sub"));
    EXPECT_FALSE(m_engine.RunSub("Other"));
    ASSERT_EQ(m_host.Alerts.size(), 1u);
    EXPECT_EQ(m_host.Alerts[0].Number, 35);
}

TEST_F(ScriptEngineTest, ModuleVariablesLiveAsLongAsTheModule) {
    ASSERT_TRUE(Load("Dim n\nSub Main\nn = n + 1\nDebug.Print n\nEnd Sub"));
    m_engine.RunSub("Main");
    m_engine.RunSub("Main");
    EXPECT_EQ(m_host.Printed, (std::vector<std::string>{" 1 ", " 2 "}));
}

TEST_F(ScriptEngineTest, TheTimeIsThatOfTheProgramsClock) {
    StandingClock clock;
    const ScopedInstall<IClock> installed(clock);
    EXPECT_EQ(Evaluated("Now = DateSerial(2026, 11, 21) + TimeSerial(14, 5, 9)"), "True");
    EXPECT_EQ(Evaluated("Date = DateSerial(2026, 11, 21)"), "True");
    EXPECT_EQ(Evaluated("Timer"), "50709");
}

TEST_F(ScriptEngineTest, AHostCancelsARunawayScriptWithin50Milliseconds) {
    ASSERT_TRUE(Load("Sub Main\nOn Error Resume Next\nDo\nLoop\nEnd Sub"));
    m_host.GoesOn = false;
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(m_engine.RunSub("Main"));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(50));
    EXPECT_EQ(m_host.Asked, 1);
    ASSERT_EQ(m_host.Alerts.size(), 1u);
    EXPECT_EQ(m_host.Alerts[0].Number, 18);
}

TEST_F(ScriptEngineTest, TheInstructionLimitCannotBeTrapped) {
    ScriptLimits limits;
    limits.Instructions = 100'000;
    m_engine.SetLimits(limits);
    for (const char* body :
         {"Do\nLoop",
          "a: GoTo a",
          "a: Error 5: GoTo a",
          "For i = 1 To 1E+300\nNext",
          "Dim l As Long\nFor l = 1 To 2 Step 0\nNext",
          "Dim n As Integer\nFor n = 1 To 2 Step 0\nNext",
          "Dim x As Double\nFor x = 1 To 2 Step 0\nNext",
          "For v = 1 To 2 Step 0\nNext",
          "For v = 1 To 2\nv = 0\nNext",
          "Dim t As String\nt = \"ab\"\nDo\nMid(t, 1) = \"b\"\nLoop",
          "Dim d As Object\nSet d = CreateObject(\"Scripting.Dictionary\")\nDo\nd(1) = d(1)\nLoop",
          "Dim c As New Collection\nDo\nc.Add 1\nc.Remove 1\nLoop",
          "Dim a(1) As String\nDo\na(0) = a(1) & a(True)\nLoop",
          "S",
          "a: GoSub b\nb: Return: GoTo a"}) {
        const std::string text =
            std::string("Sub S\nOn Error Resume Next\nDo\nS\nLoop\nEnd Sub\n") +
            "Sub Main\nOn Error Resume Next\n" + body + "\nEnd Sub";
        m_host.Alerts.clear();
        ASSERT_TRUE(Load(text.c_str())) << m_engine.ErrorText();
        EXPECT_FALSE(m_engine.RunSub("Main")) << body;
        ASSERT_EQ(m_host.Alerts.size(), 1u) << body;
        EXPECT_TRUE(m_host.Alerts[0].IsLimit) << body;
        EXPECT_NE(m_host.Alerts[0].Description.find("100000 instructions"), std::string::npos);
    }
}

TEST_F(ScriptEngineTest, TheCallDepthIsATrappableErrorThatNamesTheLimit) {
    ScriptLimits limits;
    limits.CallDepth = 100;
    m_engine.SetLimits(limits);
    ASSERT_TRUE(Load("Dim n\nSub S\nn = n + 1\nS\nEnd Sub\n"
                     "Sub Main\nOn Error Resume Next\nS\nDebug.Print Err.Number; n\nOn Error GoTo "
                     "0\nS\nEnd Sub"));
    EXPECT_FALSE(m_engine.RunSub("Main"));
    EXPECT_EQ(m_host.Printed, std::vector<std::string>{" 28  99 "});
    ASSERT_EQ(m_host.Alerts.size(), 1u);
    EXPECT_NE(m_host.Alerts[0].Description.find("limit of 100"), std::string::npos);
    EXPECT_TRUE(m_host.Alerts[0].IsLimit);
}

TEST_F(ScriptEngineTest, StringAndMemoryLimitsAreErrors14And7) {
    ScriptLimits limits;
    limits.StringBytes = 1000;
    limits.MemoryBytes = 1u << 20;
    m_engine.SetLimits(limits);
    ASSERT_TRUE(
        Load("Sub Main\nOn Error Resume Next\ns = String(1001, \"x\")\nDebug.Print Err.Number;\n"
             "ReDim a(1000000)\nDebug.Print Err.Number\nEnd Sub"));
    EXPECT_TRUE(m_engine.RunSub("Main"));
    EXPECT_EQ(m_host.Printed, std::vector<std::string>{" 14  7 "});
}

TEST_F(ScriptEngineTest, LongConstantTextsAreJoinedWithinTheLimit) {
    ScriptLimits limits;
    limits.StringBytes = 300;
    m_engine.SetLimits(limits);
    const std::string literal = '"' + std::string(200, 'x') + '"';
    const std::string text = "Sub Main\nOn Error Resume Next\nDim s As String\ns = " + literal +
                             " & \"y\"\nDebug.Print Err.Number; Len(s);\ns = " + literal + " & " +
                             literal + "\nDebug.Print Err.Number; Len(s)\nEnd Sub";
    ASSERT_TRUE(Load(text.c_str())) << m_engine.ErrorText();
    EXPECT_TRUE(m_engine.RunSub("Main"));
    EXPECT_EQ(m_host.Printed, std::vector<std::string>{" 0  201  14  201 "});
}

TEST_F(ScriptEngineTest, AnErrorThatAScriptRaisesItselfIsNoLimitWhateverItsText) {
    for (const char* body :
         {"Err.Raise 7, , \"no limit set\"",
          "Err.Raise 14, , \"the limit of 5 names was reached\"",
          "Err.Raise 28, \"limit\", \"limit\"",
          "Error 7",
          "On Error GoTo Failed\nS\nExit Sub\nFailed:\nErr.Raise Err.Number, , Err.Description"}) {
        m_host.Alerts.clear();
        const std::string text = std::string("Sub S\nS\nEnd Sub\nSub Main\n") + body + "\nEnd Sub";
        ASSERT_TRUE(Load(text.c_str())) << m_engine.ErrorText();
        EXPECT_FALSE(m_engine.RunSub("Main")) << body;
        ASSERT_EQ(m_host.Alerts.size(), 1u) << body;
        EXPECT_FALSE(m_host.Alerts[0].IsLimit) << body;
    }
}

TEST_F(ScriptEngineTest, EveryLimitOfTheHostIsTold) {
    ScriptLimits limits;
    limits.StringBytes = 1000;
    limits.MemoryBytes = 1u << 20;
    m_engine.SetLimits(limits);
    for (const char* body :
         {"s = String(1001, \"x\")",
          "ReDim a(1000000)",
          "a: GoSub a",
          "v = 1\nDo\nv = Array(v)\nLoop",
          "Main"}) {
        m_host.Alerts.clear();
        ASSERT_TRUE(Load((std::string("Sub Main\n") + body + "\nEnd Sub").c_str()));
        EXPECT_FALSE(m_engine.RunSub("Main")) << body;
        ASSERT_EQ(m_host.Alerts.size(), 1u) << body;
        EXPECT_TRUE(m_host.Alerts[0].IsLimit) << body;
    }
}

TEST_F(ScriptEngineTest, ATooLongFormatIsAnErrorOfTheScript) {
    ASSERT_TRUE(Load("Sub Main\ns = Format(1, String(100000, \"0\"))\nEnd Sub"));
    EXPECT_FALSE(m_engine.RunSub("Main"));
    ASSERT_EQ(m_host.Alerts.size(), 1u);
    EXPECT_EQ(m_host.Alerts[0].Number, 5);
    EXPECT_FALSE(m_host.Alerts[0].IsLimit);
}

TEST_F(ScriptEngineTest, AShortageOfMemoryIsALimit) {
    class Hungry : public IScriptExtension {
    public:
        std::span<const ExtensionMember> Members() const override { return m_members; }
        void Call(std::size_t, std::span<Value>) override { throw std::bad_alloc(); }

    private:
        std::vector<ExtensionMember> m_members{{"Eat", 0, 0}};
    } extension;
    ASSERT_TRUE(m_engine.AddExtension("Dorvik.", extension));
    ASSERT_TRUE(Load("Sub Main\nDorvik.Eat\nEnd Sub"));
    EXPECT_FALSE(m_engine.RunSub("Main"));
    ASSERT_EQ(m_host.Alerts.size(), 1u);
    EXPECT_EQ(m_host.Alerts[0].Number, 7);
    EXPECT_EQ(m_host.Alerts[0].Description, "Out of memory");
    EXPECT_TRUE(m_host.Alerts[0].IsLimit);
}

TEST_F(ScriptEngineTest, ExtensionsNeedAPrefixWithAPointAndComeBeforeTheModule) {
    class Empty : public IScriptExtension {
    public:
        std::span<const ExtensionMember> Members() const override { return {}; }
        void Call(std::size_t, std::span<Value>) override {}
    } extension;
    EXPECT_FALSE(m_engine.AddExtension("Dorvik", extension));
    EXPECT_FALSE(m_engine.AddExtension(".", extension));
    EXPECT_TRUE(m_engine.AddExtension("Dorvik.", extension));
    EXPECT_FALSE(m_engine.AddExtension("dorvik.", extension));
    ASSERT_TRUE(Load("Sub Main\nEnd Sub"));
    EXPECT_FALSE(m_engine.AddExtension("Other.", extension));
}

}  // namespace dorvik::basic
