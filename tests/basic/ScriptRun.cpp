#include "basic/ScriptRun.h"

namespace dorvik::basic {

namespace {

class RunHost : public IScriptHost {
public:
    explicit RunHost(ScriptRun& run) : m_run(run) {}
    void OnErrorAlert(const ErrorAlert& alert) override { m_run.Alerts.push_back(alert); }
    void OnDebugPrint(std::string_view line) override { m_run.Printed.emplace_back(line); }
    void OnRefusedText(std::string_view text) override { m_run.Refused.emplace_back(text); }

private:
    ScriptRun& m_run;
};

}  // namespace

std::string ScriptRun::Output() const {
    std::string text;
    for (const std::string& line : Printed) {
        text += line + "\n";
    }
    for (const ErrorAlert& alert : Alerts) {
        text += "Error " + std::to_string(alert.Number) + ": " + alert.Description + "\n";
    }
    if (!Errors.empty()) {
        text += "Compile error " + std::to_string(Errors.front().Number) + ": " +
                Errors.front().Text + "\n";
    }
    return text;
}

ScriptRun RunModule(
    std::string_view text,
    std::string_view name,
    IScriptExtension* extension,
    const ScriptLimits& limits) {
    ScriptRun run;
    RunHost host(run);
    ScriptEngine engine(host);
    if (extension != nullptr) {
        engine.AddExtension("Dorvik.", *extension);
    }
    engine.SetLimits(limits);
    engine.SetAcceptsModules(true);
    if (engine.LoadText("Test.dvs", text)) {
        engine.SetReady(true);
        run.HasFinished = engine.RunSub(name);
    }
    run.Errors = engine.LoadErrors();
    run.Warnings = engine.Warnings();
    return run;
}

ScriptRun RunStatements(std::string_view statements, IScriptExtension* extension) {
    return RunModule("Sub Main\n" + std::string(statements) + "\nEnd Sub\n", "Main", extension);
}

std::string Evaluated(std::string_view expression) {
    const ScriptRun run = RunStatements("Debug.Print " + std::string(expression));
    if (!run.Alerts.empty()) {
        return "Error " + std::to_string(run.Alerts.front().Number);
    }
    if (!run.Errors.empty() || run.Printed.empty()) {
        return run.Output();
    }
    std::string text = run.Printed.front();
    while (!text.empty() && text.back() == ' ') {
        text.pop_back();
    }
    return text.starts_with(' ') ? text.substr(1) : text;
}

}  // namespace dorvik::basic
