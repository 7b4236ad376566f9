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

/// A script stands behind a procedure in the module, and may not do what is allowed only before one.
constexpr std::string_view kBefore = "Sub RunScript()\nEnd Sub\n";
constexpr std::int32_t kLinesBefore = 2;

/// The number of a compile error that another script of the module may mend.
constexpr std::int32_t kNotDefined = 35;

struct ScriptPlace {
    std::int32_t Line = 1;
    std::int32_t Column = 1;
};

/// Where a position in a text stands. Lines end by CR LF, LF or CR.
ScriptPlace PlaceOf(std::string_view text, std::size_t position) {
    ScriptPlace place;
    std::size_t lineStart = 0;
    for (std::size_t at = 0; at < position; ++at) {
        const bool firstOfPair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
        if ((text[at] == '\n' || text[at] == '\r') && !firstOfPair) {
            ++place.Line;
            lineStart = at + 1;
        }
    }
    const std::size_t characters = modUtf8::Length(text.substr(lineStart, position - lineStart));
    place.Column = static_cast<std::int32_t>(characters) + 1;
    return place;
}

/// Behind the name of a script's main procedure, which is a longer one in the module.
ScriptPlace EndOfMain(std::string_view script) {
    return PlaceOf(script, modTextCase::Find(script, kSubMain) + kSubMain.size());
}

/// A place of the module within the script that it came from.
ScriptPlace WithinScript(
    const basic::SourcePlace& place, const basic::ScriptOrigin& origin, const RuleScript& script) {
    ScriptPlace within{place.Line - origin.FirstLine + 1, place.Column};
    const ScriptPlace main = EndOfMain(script.Text);
    const std::string nameInModule = ScriptFile::MethodName(script.RuleID);
    const auto longer = static_cast<std::int32_t>(nameInModule.size() - kMain.size());
    if (within.Line == main.Line && within.Column >= main.Column + longer) {
        within.Column -= longer;
    }
    return within;
}

std::vector<basic::CompileError> ReadingErrors(std::string_view script) {
    std::vector<basic::CompileError> errors = basic::ParseModule(script).Errors;
    if (errors.empty()) {
        errors = basic::ParseModule(std::string(kBefore).append(script)).Errors;
        for (basic::CompileError& error : errors) {
            error.Place.Line -= kLinesBefore;
        }
    }
    return errors;
}

/// The main procedure of a script as it stands in the module; null where there is none.
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

/// Why a review, which replaces the first "Sub Main" of the text whatever it is, finds no procedure there that it
/// can call; empty if it does.
std::string ObjectionToMain(const RuleScript& script) {
    const std::string name = ScriptFile::MethodName(script.RuleID);
    const basic::ParsedModule parsed =
        basic::ParseModule(ScriptFile::ScriptOfRule(script.RuleID, script.Text));
    const basic::ProcedureNode* const main = FindProcedure(parsed.Module, name);
    if (main == nullptr) {
        return "the first 'Sub Main' of the script, which a review takes for its main procedure, "
               "is none: it "
               "stands in a comment or a text, or begins a longer name";
    }
    const bool needsArguments =
        std::any_of(main->Parameters.begin(), main->Parameters.end(), [](const auto& parameter) {
            return !parameter.IsOptional && !parameter.IsParamArray;
        });
    return needsArguments ? "a review calls 'Sub Main' without arguments, and this one needs some"
                          : std::string();
}

/// Something for each name that a script defines, so that the scripts that use them can be compiled without it.
/// Nothing where it defines what nothing else can stand for.
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
    Read(scripts);
    Compile(scripts);
    return std::move(m_faults);
}

void RuleScriptChecker::Read(std::span<const RuleScript> scripts) {
    for (std::size_t position = 0; position < scripts.size(); ++position) {
        const RuleScript& script = scripts[position];
        for (const basic::CompileError& error : ReadingErrors(script.Text)) {
            m_faults[position].push_back({error.Place.Line, error.Text, error.Place.Column});
        }
        if (!m_faults[position].empty()) {
            continue;
        }
        if (std::string objection = ObjectionToMain(script); !objection.empty()) {
            const ScriptPlace place =
                PlaceOf(script.Text, modTextCase::Find(script.Text, kSubMain));
            m_faults[position].push_back({place.Line, std::move(objection), place.Column});
        }
    }
}

void RuleScriptChecker::Compile(std::span<const RuleScript> scripts) {
    ScriptFile file;
    bool isWhole = true;
    for (std::size_t position = 0; position < scripts.size(); ++position) {
        const RuleScript& script = scripts[position];
        if (m_faults[position].empty()) {
            file.AddScript(script.RuleID, script.Text);
            continue;
        }
        const std::optional<std::string> standIn = StandIn(script.Text);
        isWhole = isWhole && standIn.has_value();
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
    Tell(engine, scripts, isWhole);
}

void RuleScriptChecker::Tell(
    const basic::ScriptEngine& engine, std::span<const RuleScript> scripts, bool isWhole) {
    // What was told in the reading of a script stands for it; in its place is something else.
    std::vector<bool> isToldAlready;
    for (const std::vector<ScriptFault>& faults : m_faults) {
        isToldAlready.push_back(!faults.empty());
    }
    const auto tell = [&](const basic::SourcePlace& place, const std::string& text, bool isError) {
        if (const basic::ScriptOrigin* origin = engine.OriginOfLine(place.Line)) {
            const auto position = static_cast<std::size_t>(origin->Rule);
            if (isToldAlready[position]) {
                return;
            }
            const ScriptPlace within = WithinScript(place, *origin, scripts[position]);
            m_faults[position].push_back({within.Line, text, within.Column, isError});
        }
    };
    for (const basic::CompileError& error : engine.LoadErrors()) {
        // What is missing may stand in a script that could not be read and has no stand-in.
        if (isWhole || error.Number != kNotDefined) {
            tell(error.Place, error.Text, /*isError=*/true);
        }
    }
    for (const basic::CompileWarning& warning : engine.Warnings()) {
        tell(warning.Place, warning.Text, /*isError=*/false);
    }
}

}  // namespace dorvik
