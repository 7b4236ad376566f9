#include "enforcement/RuleScriptChecker.h"

#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "basic/Parser.h"
#include "basic/ScriptEngine.h"
#include "enforcement/DVKSaxOutline.h"
#include "rulebase/ScriptFile.h"

#include <algorithm>
#include <utility>

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
    const std::string nameInModule = "Method_" + std::to_string(script.RuleID);
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
        for (const basic::CompileError& error : ReadingErrors(scripts[position].Text)) {
            m_faults[position].push_back({error.Place.Line, error.Text, error.Place.Column});
        }
    }
}

void RuleScriptChecker::Compile(std::span<const RuleScript> scripts) {
    ScriptFile file;
    std::vector<std::size_t> readable;
    for (std::size_t position = 0; position < scripts.size(); ++position) {
        if (m_faults[position].empty()) {
            readable.push_back(position);
            file.AddScript(scripts[position].RuleID, scripts[position].Text);
        }
    }
    std::vector<basic::ScriptOrigin> origins;
    for (const ScriptFile::ScriptLines& lines : file.Lines()) {
        const std::size_t position = readable[origins.size()];
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
    Tell(engine, scripts, readable.size() == scripts.size());
}

void RuleScriptChecker::Tell(
    const basic::ScriptEngine& engine, std::span<const RuleScript> scripts, bool isWhole) {
    const auto tell = [&](const basic::SourcePlace& place, const std::string& text) {
        if (const basic::ScriptOrigin* origin = engine.OriginOfLine(place.Line)) {
            const auto position = static_cast<std::size_t>(origin->Rule);
            const ScriptPlace within = WithinScript(place, *origin, scripts[position]);
            m_faults[position].push_back({within.Line, text, within.Column});
        }
    };
    for (const basic::CompileError& error : engine.LoadErrors()) {
        // What is missing may stand in a script that could not be read.
        if (isWhole || error.Number != kNotDefined) {
            tell(error.Place, error.Text);
        }
    }
    for (const basic::CompileWarning& warning : engine.Warnings()) {
        tell(warning.Place, warning.Text);
    }
}

}  // namespace dorvik
