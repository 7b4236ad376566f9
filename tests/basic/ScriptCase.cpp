#include "basic/ScriptCase.h"

#include "basic/ScriptRun.h"

#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace dorvik::basic::test {

namespace {

constexpr std::string_view kCaseMark = "### ";
constexpr std::string_view kOutcomeMark = "--- ";

std::string WithoutBlanksBehind(std::string text) {
    text.erase(text.find_last_not_of(" \t\r") + 1);
    return text;
}

/// An expected line: a "|" at its end shows where it ends.
std::string ExpectedLine(std::string text) {
    text = WithoutBlanksBehind(std::move(text));
    if (text.ends_with('|')) {
        text.pop_back();
    }
    return WithoutBlanksBehind(std::move(text));
}

bool HasMain(const std::string& source) {
    static const std::regex kMain(
        R"((^|\n)\s*(Public\s+|Private\s+)?Sub\s+Main\b)", std::regex::icase);
    return std::regex_search(source, kMain);
}

class CaseReader {
public:
    explicit CaseReader(const std::filesystem::path& file) : m_file(file), m_stream(file) {}

    std::vector<ScriptCase> Read() {
        std::string line;
        while (std::getline(m_stream, line)) {
            ++m_line;
            if (line.ends_with('\r')) {
                line.pop_back();
            }
            Take(line);
        }
        FinishCase();
        return std::move(m_cases);
    }

private:
    void Take(const std::string& line) {
        if (line.starts_with(kCaseMark)) {
            FinishCase();
            ScriptCase& begun = m_cases.emplace_back();
            begun.File = m_file;
            begun.Line = m_line;
            begun.Name = line.substr(kCaseMark.size());
            m_inSource = true;
        } else if (m_cases.empty()) {
            if (!line.empty() && line.front() != '\'') {
                Fail("text in front of the first case");
            }
        } else if (line.starts_with(kOutcomeMark)) {
            m_inSource = false;
            TakeOutcome(line.substr(kOutcomeMark.size()));
        } else if (m_inSource) {
            m_cases.back().Source += line + "\n";
        } else if (m_cases.back().Prints) {
            m_cases.back().Prints->push_back(ExpectedLine(line));
        } else if (!line.empty()) {
            Fail("text behind an outcome");
        }
    }

    void TakeOutcome(const std::string& outcome) {
        static const std::regex kFailure(
            R"((raises|fails to compile) (-?\d+)( on line (\d+))?\s*)");
        std::smatch match;
        if (WithoutBlanksBehind(outcome) == "prints") {
            m_cases.back().Prints.emplace();
        } else if (std::regex_match(outcome, match, kFailure)) {
            ScriptCase::Failure failure{std::stoi(match[2]), std::nullopt};
            if (match[4].matched) {
                failure.Line = std::stoi(match[4]);
            }
            (match[1] == "raises" ? m_cases.back().Raises : m_cases.back().FailsToCompile) =
                failure;
        } else {
            Fail("an outcome that is none");
        }
    }

    void FinishCase() {
        if (m_cases.empty()) {
            return;
        }
        ScriptCase& done = m_cases.back();
        if (!done.Prints && !done.Raises && !done.FailsToCompile) {
            Fail("the case in front of this line says nothing of what it must do");
        }
        if (done.Prints) {
            while (!done.Prints->empty() && done.Prints->back().empty()) {
                done.Prints->pop_back();
            }
        }
        done.IsBody = !HasMain(done.Source);
    }

    [[noreturn]] void Fail(const std::string& what) const {
        throw std::runtime_error(m_file.string() + ":" + std::to_string(m_line) + ": " + what);
    }

    std::filesystem::path m_file;
    std::ifstream m_stream;
    std::int32_t m_line = 0;
    bool m_inSource = false;
    std::vector<ScriptCase> m_cases;
};

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += "    " + line + "\n";
    }
    return text;
}

std::string CompareFailure(
    const ScriptCase::Failure& expected,
    std::int32_t number,
    std::int32_t line,
    const std::string& text) {
    if (expected.Number == number && (!expected.Line || *expected.Line == line)) {
        return {};
    }
    return "failed with " + std::to_string(number) + " on line " + std::to_string(line) + " (" +
           text + ")\n";
}

}  // namespace

std::string ScriptCase::Place() const {
    return File.string() + ":" + std::to_string(Line) + ": " + Name;
}

std::vector<ScriptCase> ReadScriptCases(const std::filesystem::path& file) {
    return CaseReader(file).Read();
}

std::string Disagreement(const ScriptCase& scriptCase) {
    const std::int32_t linesInFront = scriptCase.IsBody ? 1 : 0;
    const ScriptRun run = RunModule(
        scriptCase.IsBody ? "Sub Main()\n" + scriptCase.Source + "End Sub\n" : scriptCase.Source);
    if (!run.Errors.empty()) {
        const CompileError& first = run.Errors.front();
        const std::int32_t line = first.Place.Line - linesInFront;
        return CompareFailure(
            scriptCase.FailsToCompile.value_or(ScriptCase::Failure{}),
            first.Number,
            line,
            first.Text);
    }
    if (scriptCase.FailsToCompile) {
        return "compiles\n";
    }
    std::vector<std::string> printed;
    for (const std::string& line : run.Printed) {
        printed.push_back(WithoutBlanksBehind(line));
    }
    std::string disagreement;
    if (scriptCase.Prints && *scriptCase.Prints != printed) {
        disagreement = "prints\n" + Joined(printed) + "  instead of\n" + Joined(*scriptCase.Prints);
    }
    if (!run.Alerts.empty()) {
        const ErrorAlert& alert = run.Alerts.front();
        disagreement += CompareFailure(
            scriptCase.Raises.value_or(ScriptCase::Failure{}),
            alert.Number,
            alert.Line - linesInFront,
            alert.Description);
    } else if (scriptCase.Raises) {
        disagreement += "raises nothing\n";
    }
    return disagreement;
}

}  // namespace dorvik::basic::test
