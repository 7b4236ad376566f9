#include "cli/ScriptCommand.h"

#include "base/BasicError.h"
#include "basic/ScriptEngine.h"
#include "cli/Console.h"
#include "cli/Interrupt.h"
#include "cli/ScriptFacts.h"
#include "enforcement/DVKSaxInterface.h"
#include "platform/modFiles.h"

#include <filesystem>

namespace dorvik {

namespace {

/// A script's errors are those of a program under test: they have exit codes of their own.
constexpr ExitCode kRuntimeError = ExitCode::Failed;
constexpr ExitCode kCompileError = ExitCode::NothingDone;

/// Prints what a script prints, and keeps its error.
class ConsoleHost final : public basic::IScriptHost {
public:
    void OnDebugPrint(std::string_view line) override {
        modConsole::Print(std::string(line).append("\n"));
    }
    void OnRefusedText(std::string_view text) override {
        modConsole::PrintError("the script would have shown: " + std::string(text));
    }
    void OnErrorAlert(const basic::ErrorAlert& alert) override {
        modConsole::PrintErrorLine(
            "Run-time error '" + std::to_string(alert.Number) + "': " + alert.Description + " (" +
            alert.File + ", line " + std::to_string(alert.Line) + ")");
    }
    bool OnDoEvents() override { return !m_interrupt.Requested(); }

private:
    Interrupt m_interrupt;
};

/// Stands for the review while a script is only compiled; nothing is ever called.
ScriptFacts& NoFacts() {
    static ScriptFacts facts;
    return facts;
}

bool ReadFile(const std::string& file, std::string& text) {
    try {
        text = modFiles::ReadBytes(modFiles::FromHostPath(std::filesystem::absolute(file)));
        return true;
    } catch (const BasicError& error) {
        modConsole::PrintError("'" + file + "' cannot be read: " + error.what());
        return false;
    }
}

std::string PlaceText(const std::string& file, const basic::SourcePlace& place) {
    return file + ":" + std::to_string(place.Line) + ":" + std::to_string(place.Column) + ": ";
}

/// Compiles the file. False: what is wrong has been told.
bool Load(basic::ScriptEngine& engine, const std::string& file) {
    std::string text;
    if (!ReadFile(file, text)) {
        return false;
    }
    engine.SetAcceptsModules(true);
    if (engine.LoadText(file, text)) {
        return true;
    }
    for (const basic::CompileError& error : engine.LoadErrors()) {
        modConsole::PrintErrorLine(PlaceText(file, error.Place) + error.Text);
    }
    return false;
}

bool LoadFacts(const std::string& file, ScriptFacts& facts) {
    std::string text;
    std::string error;
    if (!ReadFile(file, text)) {
        return false;
    }
    if (!facts.Read(text, error)) {
        modConsole::PrintError("'" + file + "' holds no facts: " + error);
        return false;
    }
    return true;
}

}  // namespace

ExitCode RunScript(const ScriptRunOptions& options) {
    ConsoleHost host;
    ScriptFacts facts;
    DVKSaxInterface extension(facts);
    basic::ScriptEngine engine(host);
    if (!options.FactsFile.empty()) {
        if (!LoadFacts(options.FactsFile, facts)) {
            return kCompileError;
        }
        engine.AddExtension(DVKSaxInterface::kPrefix, extension);
    }
    basic::ScriptLimits limits;
    limits.Instructions = 0;
    limits.Milliseconds = static_cast<std::int32_t>(options.Seconds * 1000);
    engine.SetLimits(limits);
    if (!Load(engine, options.File)) {
        return kCompileError;
    }
    engine.SetReady(true);
    return engine.RunSub(options.SubName) ? ExitCode::Passed : kRuntimeError;
}

ExitCode CheckScripts(const std::vector<std::string>& files) {
    auto code = ExitCode::Passed;
    for (const std::string& file : files) {
        basic::IScriptHost host;
        DVKSaxInterface extension(NoFacts());
        basic::ScriptEngine engine(host);
        engine.AddExtension(DVKSaxInterface::kPrefix, extension);
        if (!Load(engine, file)) {
            code = kCompileError;
            continue;
        }
        for (const basic::CompileWarning& warning : engine.Warnings()) {
            modConsole::Print(PlaceText(file, warning.Place) + "warning: " + warning.Text + "\n");
        }
    }
    return code;
}

ExitCode DisassembleScript(const std::string& file) {
    basic::IScriptHost host;
    DVKSaxInterface extension(NoFacts());
    basic::ScriptEngine engine(host);
    engine.AddExtension(DVKSaxInterface::kPrefix, extension);
    if (!Load(engine, file)) {
        return kCompileError;
    }
    modConsole::Print(engine.Disassemble());
    return ExitCode::Passed;
}

}  // namespace dorvik
