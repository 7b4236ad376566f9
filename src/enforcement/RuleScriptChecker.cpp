#include "enforcement/RuleScriptChecker.h"

#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "basic/engine/ScriptEngine.h"
#include "basic/syntax/Parser.h"
#include "enforcement/DVKSaxOutline.h"
#include "rulebase/script/ScriptFile.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <variant>

namespace dorvik {

namespace {

constexpr std::string_view kMain = "Main";
constexpr std::string_view kSubMain = "Sub Main";

/// In the module a script follows another procedure, so statements that must come before all procedures are errors.
constexpr std::string_view kBefore = "Sub RunScript()\nEnd Sub\n";
constexpr std::int32_t kLinesBefore = 2;

/// The number of the compile error for a name that no script of the module defines.
constexpr std::int32_t kNotDefined = 35;

struct ScriptLocation {
    std::int32_t Line = 1;
    std::int32_t Column = 1;
};

/// The line and column of a position in a text. Lines end with CR LF, LF or CR.
ScriptLocation LocationOf(std::string_view text, std::size_t position) {
    ScriptLocation location;
    std::size_t lineStart = 0;
    for (std::size_t at = 0; at < position; ++at) {
        const bool firstOfPair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
        if ((text[at] == '\n' || text[at] == '\r') && !firstOfPair) {
            ++location.Line;
            lineStart = at + 1;
        }
    }
    const std::size_t characters = modUtf8::Length(text.substr(lineStart, position - lineStart));
    location.Column = static_cast<std::int32_t>(characters) + 1;
    return location;
}

/// The end of the name of a script's main procedure, which is renamed to a longer name in the module.
ScriptLocation EndOfMain(std::string_view script) {
    return LocationOf(script, modTextCase::Find(script, kSubMain) + kSubMain.size());
}

/// A location in the module as one in the script that it came from.
ScriptLocation WithinScript(
    const basic::SourcePlace& inModule,
    const basic::ScriptOrigin& origin,
    const RuleScript& script) {
    ScriptLocation within{inModule.Line - origin.FirstLine + 1, inModule.Column};
    const ScriptLocation main = EndOfMain(script.Text);
    const std::string nameInModule = ScriptFile::MethodName(script.RuleID);
    const auto longer = static_cast<std::int32_t>(nameInModule.size() - kMain.size());
    if (within.Line == main.Line && within.Column >= main.Column + longer) {
        within.Column -= longer;
    }
    return within;
}

std::vector<basic::CompileError> SyntaxErrors(std::string_view script) {
    std::vector<basic::CompileError> errors = basic::ParseModule(script).Errors;
    if (errors.empty()) {
        errors = basic::ParseModule(std::string(kBefore).append(script)).Errors;
        for (basic::CompileError& error : errors) {
            error.Place.Line -= kLinesBefore;
        }
    }
    return errors;
}

/// The procedure of that name in a module; null if there is none.
const basic::ProcedureNode*
FindProcedure(const basic::ModuleNode& module, const std::string& name) {
    for (const basic::ModuleItem& item : module.Items) {
        const auto* procedure = std::get_if<basic::ProcedureNode>(&item);
        if (procedure != nullptr && modTextCase::Equal(procedure->Name, name)) {
            return procedure;
        }
    }
    return nullptr;
}

/// Why a review cannot call the main procedure of a script; empty if it can. A review replaces the first "Sub Main"
/// of the text, whatever it is.
std::string FaultOfMain(const RuleScript& script) {
    const std::string name = ScriptFile::MethodName(script.RuleID);
    const basic::ParsedModule parsed =
        basic::ParseModule(ScriptFile::ScriptOfRule(script.RuleID, script.Text));
    const basic::ProcedureNode* const main = FindProcedure(parsed.Module, name);
    if (main == nullptr) {
        return "the first 'Sub Main' of the script, which a review takes for its main procedure, "
               "is not a procedure: it is in a comment or a text, or begins a longer name";
    }
    const bool needsArguments =
        std::any_of(main->Parameters.begin(), main->Parameters.end(), [](const auto& parameter) {
            return !parameter.IsOptional && !parameter.IsParamArray;
        });
    return needsArguments ? "a review calls 'Sub Main' without arguments, and this one needs some"
                          : std::string();
}

/// A stand-in for a script: an empty procedure for each that it defines, so that the scripts that call them can be
/// compiled without it. Nothing if it defines something for which there is no stand-in.
std::optional<std::string> StandIn(std::string_view script) {
    std::string text = "Sub Main()\nEnd Sub\n";
    for (const basic::ModuleItem& item : basic::ParseModule(script).Module.Items) {
        if (const auto* procedure = std::get_if<basic::ProcedureNode>(&item)) {
            if (!modTextCase::Equal(procedure->Name, kMain)) {
                text += "Function " + procedure->Name + "(ParamArray Any())\nEnd Function\n";
            }
        } else if (!std::holds_alternative<basic::ModuleVariablesNode>(item)) {
            return std::nullopt;
        }
    }
    return text;
}

}  // namespace

std::vector<std::vector<ScriptFault>>
RuleScriptChecker::Check(std::span<const RuleScript> scripts) {
    m_faults.assign(scripts.size(), {});
    Parse(scripts);
    Compile(scripts);
    return std::move(m_faults);
}

void RuleScriptChecker::Parse(std::span<const RuleScript> scripts) {
    for (std::size_t position = 0; position < scripts.size(); ++position) {
        const RuleScript& script = scripts[position];
        for (const basic::CompileError& error : SyntaxErrors(script.Text)) {
            m_faults[position].push_back({error.Place.Line, error.Text, error.Place.Column});
        }
        if (!m_faults[position].empty()) {
            continue;
        }
        if (std::string fault = FaultOfMain(script); !fault.empty()) {
            const ScriptLocation location =
                LocationOf(script.Text, modTextCase::Find(script.Text, kSubMain));
            m_faults[position].push_back({location.Line, std::move(fault), location.Column});
        }
    }
}

void RuleScriptChecker::Compile(std::span<const RuleScript> scripts) {
    ScriptFile file;
    bool isComplete = true;
    for (std::size_t position = 0; position < scripts.size(); ++position) {
        const RuleScript& script = scripts[position];
        if (m_faults[position].empty()) {
            file.AddScript(script.RuleID, script.Text);
            continue;
        }
        const std::optional<std::string> standIn = StandIn(script.Text);
        isComplete = isComplete && standIn.has_value();
        file.AddScript(script.RuleID, standIn.value_or("Sub Main()\nEnd Sub\n"));
    }
    std::vector<basic::ScriptOrigin> origins;
    for (const ScriptFile::ScriptLines& lines : file.Lines()) {
        const std::size_t position = origins.size();
        origins.push_back(
            {lines.First,
             lines.Last,
             scripts[position].RuleName,
             static_cast<std::int32_t>(position)});
    }
    basic::IScriptHost host;
    DVKSaxOutline outline;
    basic::ScriptEngine engine(host);
    engine.AddExtension(DVKSaxInterface::kPrefix, outline);
    engine.SetOrigins(std::move(origins));
    engine.SetAcceptsModules(true);
    engine.LoadText(file.FullFilename(), file.ModuleText());
    ScriptFile::RemoveScriptFile(file.FullFilename());  // and its folder; nothing was written
    AssignErrors(engine, scripts, isComplete);
}

void RuleScriptChecker::AssignErrors(
    const basic::ScriptEngine& engine, std::span<const RuleScript> scripts, bool isComplete) {
    // A script with errors of its own is not in the module; its stand-in is.
    std::vector<bool> hasStandIn;
    for (const std::vector<ScriptFault>& faults : m_faults) {
        hasStandIn.push_back(!faults.empty());
    }
    const auto add =
        [&](const basic::SourcePlace& inModule, const std::string& text, bool isError) {
            if (const basic::ScriptOrigin* origin = engine.OriginOfLine(inModule.Line)) {
                const auto position = static_cast<std::size_t>(origin->Rule);
                if (hasStandIn[position]) {
                    return;
                }
                const ScriptLocation within = WithinScript(inModule, *origin, scripts[position]);
                m_faults[position].push_back({within.Line, text, within.Column, isError});
            }
        };
    for (const basic::CompileError& error : engine.LoadErrors()) {
        // What is missing may be defined by a script without a stand-in.
        if (isComplete || error.Number != kNotDefined) {
            add(error.Place, error.Text, /*isError=*/true);
        }
    }
    for (const basic::CompileWarning& warning : engine.Warnings()) {
        add(warning.Place, warning.Text, /*isError=*/false);
    }
}

}  // namespace dorvik
