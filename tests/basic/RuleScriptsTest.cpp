#include "basic/FactsExtension.h"
#include "basic/engine/ScriptEngine.h"
#include "support/NamedTests.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace dorvik::basic::test {

namespace {

namespace fs = std::filesystem;
using dorvik::test::RegisterNamedTest;
using dorvik::test::TestName;

/// A rule's script under tests/basic/rules and the files of facts beside it: NAME.dvs with NAME.raise.json,
/// NAME.quiet.json, NAME.quiet2.json and so on.
struct RuleCase {
    fs::path Script;
    std::vector<fs::path> Raise;
    std::vector<fs::path> Quiet;
};

std::vector<RuleCase> RuleCases() {
    const fs::path folder = fs::path(DORVIK_BASIC_CASES) / "rules";
    std::set<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        files.insert(entry.path());
    }
    std::vector<RuleCase> cases;
    for (const fs::path& script : files) {
        if (script.extension() != ".dvs") {
            continue;
        }
        RuleCase rule{script, {}, {}};
        const std::string stem = script.stem().string() + ".";
        for (const fs::path& facts : files) {
            const std::string name = facts.filename().string();
            if (name.starts_with(stem + "raise")) {
                rule.Raise.push_back(facts);
            } else if (name.starts_with(stem + "quiet")) {
                rule.Quiet.push_back(facts);
            }
        }
        cases.push_back(std::move(rule));
    }
    return cases;
}

std::string TextOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void ExpectItDoesWhatTheFactsSay(const fs::path& script, const fs::path& factsFile) {
    FactsExtension facts(factsFile.string());
    ScriptEngine engine(facts);
    engine.AddExtension("Dorvik.", facts);
    engine.SetAcceptsModules(true);
    ASSERT_TRUE(engine.LoadText(script.filename().string(), TextOf(script))) << engine.ErrorText();
    EXPECT_TRUE(engine.Warnings().empty()) << script << ": " << engine.Warnings().front().Text;
    engine.SetReady(true);
    EXPECT_TRUE(engine.RunSub("Main")) << factsFile;
    EXPECT_EQ(facts.Lines(), facts.Expected()) << factsFile;
}

bool Acts(const fs::path& factsFile) {
    const FactsExtension facts(factsFile.string());
    return std::ranges::any_of(facts.Expected(), [](const std::string& line) {
        return line == "[raise]" || line == "[apply]";
    });
}

/// Each file of facts is a test `RuleScripts/<rule>.<NameOfTheFacts>`.
bool RegisterFactsOfRules() {
    for (const RuleCase& rule : RuleCases()) {
        const std::string suite = "RuleScripts/" + rule.Script.stem().string();
        for (const std::vector<fs::path>* files : {&rule.Raise, &rule.Quiet}) {
            for (const fs::path& facts : *files) {
                const std::string name = facts.stem().extension().string();  // ".raise2"
                RegisterNamedTest({suite, TestName(name), facts, 1, [rule, facts] {
                                       ExpectItDoesWhatTheFactsSay(rule.Script, facts);
                                   }});
            }
        }
    }
    return true;
}

const bool kFactsAreRegistered = RegisterFactsOfRules();

}  // namespace

TEST(RuleScripts, EveryRuleHasFactsAtWhichItActsAndFactsAtWhichItDoesNot) {
    const std::vector<RuleCase> rules = RuleCases();
    EXPECT_TRUE(kFactsAreRegistered);
    EXPECT_GE(rules.size(), 30U) << "Where have the rules gone?";
    for (const RuleCase& rule : rules) {
        EXPECT_FALSE(rule.Raise.empty()) << rule.Script;
        EXPECT_FALSE(rule.Quiet.empty()) << rule.Script;
        EXPECT_TRUE(std::ranges::all_of(rule.Raise, Acts)) << rule.Script;
        EXPECT_TRUE(std::ranges::none_of(rule.Quiet, Acts)) << rule.Script;
    }
}

TEST(RuleScripts, NoFactsStandWithoutTheirRule) {
    std::size_t taken = 0;
    for (const RuleCase& rule : RuleCases()) {
        taken += 1 + rule.Raise.size() + rule.Quiet.size();
    }
    const fs::directory_iterator files(fs::path(DORVIK_BASIC_CASES) / "rules");
    EXPECT_EQ(taken, static_cast<std::size_t>(std::distance(fs::begin(files), fs::end(files))));
}

}  // namespace dorvik::basic::test
