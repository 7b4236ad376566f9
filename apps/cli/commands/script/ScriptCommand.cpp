#include "cli/commands/script/ScriptCommand.h"

#include "ScriptFacts.h"
#include "base/BasicError.h"
#include "basic/engine/ScriptEngine.h"
#include "cli/output/Console.h"
#include "cli/output/Interrupt.h"
#include "cli/output/modCommandPath.h"
#include "cli/output/modTerminalText.h"
#include "enforcement/DVKSaxInterface.h"
#include "enforcement/DVKSaxOutline.h"
#include "platform/host/modEncoding.h"
#include "platform/host/modFiles.h"

#include <cmath>

namespace dorvik {

namespace {

/// A script's errors are those of a program under test: they have exit codes of their own.
constexpr ExitCode kRuntimeError = ExitCode::Failed;
constexpr ExitCode kCompileError = ExitCode::NothingDone;

constexpr int kUtf8 = 65001;
constexpr std::int32_t kObjectRequired = 424;

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
        const std::string line = alert.Line > 0 ? ", line " + std::to_string(alert.Line) : "";
        modConsole::PrintErrorLine(
            "Run-time error '" + std::to_string(alert.Number) + "': " + alert.Description + " (" +
            alert.File + line + ")");
        m_errorNumber = alert.Number;
    }
    bool OnDoEvents() override { return !m_interrupt.Requested(); }

    std::int32_t ErrorNumber() const { return m_errorNumber; }
    bool IsInterrupted() const { return m_interrupt.Requested(); }

private:
    Interrupt m_interrupt;
    std::int32_t m_errorNumber = 0;
};

bool ReadFile(const std::string& file, std::string_view what, std::string& bytes) {
    const std::string inner = modCommandPath::Inner(file);
    const std::string named = std::string(what) + " '" + file + "' ";
    if (modFiles::FolderExists(inner)) {
        modConsole::PrintError(named + "is a folder");
        return false;
    }
    if (!modFiles::FileExists(inner)) {
        modConsole::PrintError(named + "does not exist");
        return false;
    }
    try {
        bytes = modFiles::ReadBytes(inner);
        return true;
    } catch (const BasicError& error) {
        modConsole::PrintError(named + "cannot be read: " + RuntimeErrorText(error.Number()));
        return false;
    }
}

std::string PlaceText(const std::string& file, const basic::SourcePlace& place) {
    return file + ":" + std::to_string(place.Line) + ":" + std::to_string(place.Column) + ": ";
}

/// Compiles the file. False after errors, which have been reported.
bool Load(basic::ScriptEngine& engine, const std::string& file) {
    std::string text;
    if (!ReadFile(file, "the script", text)) {
        return false;
    }
    modEncoding::DecodeInPlace(text, modEncoding::kDefaultCodePage);
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
    if (!ReadFile(file, "the file of facts", text)) {
        return false;
    }
    if (!facts.Read(modEncoding::Decode(text, kUtf8), error)) {
        modConsole::PrintError("the file of facts '" + file + "' cannot be used: " + error);
        return false;
    }
    return true;
}

/// Compiles the file with the extension object known, though nothing is called.
bool LoadOnly(basic::ScriptEngine& engine, DVKSaxOutline& outline, const std::string& file) {
    engine.AddExtension(DVKSaxInterface::kPrefix, outline);
    return Load(engine, file);
}

/// Up, so that a limit is never rounded to none.
std::int32_t MillisecondsOf(double seconds) {
    return static_cast<std::int32_t>(std::ceil(seconds * 1000));
}

ExitCode
Run(basic::ScriptEngine& engine, const ConsoleHost& host, const ScriptRunOptions& options) {
    if (engine.RunSub(options.SubName)) {
        return ExitCode::Passed;
    }
    if (options.FactsFile.empty() && host.ErrorNumber() == kObjectRequired) {
        modConsole::PrintError("the object 'Dorvik' exists only with --facts");
    }
    return host.IsInterrupted() ? ExitCode::Interrupted : kRuntimeError;
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
    limits.Milliseconds = MillisecondsOf(options.Seconds);
    engine.SetLimits(limits);
    if (!Load(engine, options.File)) {
        return kCompileError;
    }
    engine.SetReady(true);
    return Run(engine, host, options);
}

ExitCode CheckScripts(const std::vector<std::string>& files) {
    auto code = ExitCode::Passed;
    for (const std::string& file : files) {
        basic::IScriptHost host;
        DVKSaxOutline outline;
        basic::ScriptEngine engine(host);
        code = LoadOnly(engine, outline, file) ? code : kCompileError;
        for (const basic::CompileWarning& warning : engine.Warnings()) {
            modConsole::Print(
                modTerminalText::Harmless(
                    PlaceText(file, warning.Place) + "warning: " + warning.Text) +
                "\n");
        }
    }
    return code;
}

ExitCode DisassembleScript(const std::string& file) {
    basic::IScriptHost host;
    DVKSaxOutline outline;
    basic::ScriptEngine engine(host);
    if (!LoadOnly(engine, outline, file)) {
        return kCompileError;
    }
    modConsole::Print(engine.Disassemble());
    return ExitCode::Passed;
}

}  // namespace dorvik
