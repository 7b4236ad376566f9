// How long a rulebase takes to load, beside a plain parse of the same file by libxml2 into its own tree
// in the same run, for files of growing size, so that both the ratio and the growth can be seen.
//
// usage: RulebaseBenchmark [RULES...]     (1000 2000 4000 8000 without an argument)

#include "ProgramPath.h"
#include "rulebase/file/RulebaseManager.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <libxml/parser.h>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kRepetitions = 7;
constexpr double kAimSeconds = 0.25;
constexpr int kAimRules = 2000;

/// The fastest of some runs, in seconds.
double BestTime(const std::function<void()>& run) {
    double best = 1e9;
    for (int repetition = 0; repetition < kRepetitions; ++repetition) {
        const auto start = std::chrono::steady_clock::now();
        run();
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        best = std::min(best, spent.count());
    }
    return best;
}

const char* const kScript = "Sub Main\r\n\tDim strName As String\r\n\tstrName = "
                            "Dorvik.GetObjectProperty(\"Procedure\", \"Name\")\r\n"
                            "\tIf Len(strName) > 30 Then\r\n\t\tDorvik.RaiseViolation\r\n\tElseIf "
                            "strName Like \"*_Click\" Then\r\n"
                            "\t\tIf Dorvik.GetObjectProperty(\"Procedure\", \"CodeLineCount\") > "
                            "20 Then Dorvik.RaiseViolation\r\n"
                            "\tEnd If\r\nEnd Sub\r\n";

void FillDefinition(dorvik::ViolationDefinition& definition, int number) {
    definition.SetTitle("Rule " + std::to_string(number) + " is broken");
    definition.SetDescription(
        "The procedure '%Procedure.Name%' of %File.Filename% does not keep rule number " +
        std::to_string(number) + " of the standard.");
    definition.SetAdvice("Move what has nothing to do with the event into a procedure of its own.");
    definition.SetSeverity(number % 5 + 1);
    definition.SetImpact(static_cast<std::int16_t>(number % 900));
    definition.SetCategoryID(number % 12 + 1);
}

template <class Rule>
std::shared_ptr<Rule> NewRule(int number) {
    auto rule = std::make_shared<Rule>();
    rule->SetTitle("Rule number " + std::to_string(number));
    rule->SetDescription("Why the team wants this, in a sentence that is long enough to be read.");
    FillDefinition(rule->ViolationDefinition(), number);
    return rule;
}

std::shared_ptr<dorvik::IRule> RuleOfAKind(int number) {
    if (number % 5 == 0) {
        auto rule = NewRule<dorvik::UnauthorisedKeyword>(number);
        rule->SetCondition("\\bGoTo\\s+L" + std::to_string(number) + "\\b");
        rule->AddParserEventID(28);
        rule->AddParserEventID(30);
        return rule;
    }
    if (number % 5 == 1) {
        auto rule = NewRule<dorvik::NamingConvention>(number);
        rule->SetObjectType(number % 28 + 1);
        rule->SetPropertyName("Name");
        rule->Prefix().SetActive(true);
        rule->Prefix().Items().Item(1)->PSType = 4;
        rule->Prefix().Items().Item(2)->PSType = 3;
        rule->SetBodyActive(true);
        rule->SetBodyPattern("[A-Z][A-Za-z0-9]*");
        return rule;
    }
    auto rule = NewRule<dorvik::CodingConvention>(number);
    rule->SetCondition(kScript);
    rule->AddParserEventID(number % 37 + 1);
    return rule;
}

void WriteRulebase(dorvik::RulebaseManager& manager, int rules, const std::string& file) {
    dorvik::Rulebase rulebase;
    for (int number = 1; number <= 12; ++number) {
        const auto category = std::make_shared<dorvik::CategoryItem>();
        category->SetTitle("Category " + std::to_string(number));
        rulebase.CategoryList().Add(category, true);
    }
    for (int number = 0; number < rules; ++number) {
        rulebase.RuleLists().AddConvention(RuleOfAKind(number), true);
    }
    if (!manager.Save(rulebase, file)) {
        std::fputs("the rulebase could not be written\n", stderr);
        std::exit(1);
    }
}

int LoadedRules(dorvik::RulebaseManager& manager, const std::string& file) {
    dorvik::RulebaseLoadCriteria criteria;
    criteria.SetRulebaseFile(file);
    criteria.SetUnauthorisedKeywords(true);
    criteria.SetCodingConventions(true);
    criteria.SetNamingConventions(true);
    for (int level = 1; level <= 5; ++level) {
        criteria.SetSeverityLevel(level, true);
    }
    const auto rulebase = manager.LoadRulebase(criteria);
    return rulebase == nullptr ? 0 : rulebase->RuleCount();
}

void Measure(dorvik::RulebaseManager& manager, int rules, const std::filesystem::path& host) {
    const std::string file = dorvik::ProgramPath(host);
    WriteRulebase(manager, rules, file);
    if (LoadedRules(manager, file) != rules) {
        std::fputs("not all rules were loaded\n", stderr);
        std::exit(1);
    }
    const double load = BestTime([&] { LoadedRules(manager, file); });
    const double plain = BestTime([&] { xmlFreeDoc(xmlReadFile(host.c_str(), nullptr, 0)); });
    std::printf(
        "%6d rules %8.1f KB %9.4f s %8.2f us a rule %9.4f s plain parse %6.2f times",
        rules,
        static_cast<double>(std::filesystem::file_size(host)) / 1024,
        load,
        load / rules * 1e6,
        plain,
        load / plain);
    if (rules == kAimRules) {
        std::printf("   aim %.2f s: %s", kAimSeconds, load < kAimSeconds ? "met" : "MISSED");
    }
    std::printf("\n");
}

}  // namespace

int main(int argumentCount, char** arguments) {
    std::vector<int> sizes;
    for (int argument = 1; argument < argumentCount; ++argument) {
        sizes.push_back(std::atoi(arguments[argument]));
    }
    if (sizes.empty()) {
        sizes = {1000, kAimRules, 4000, 8000};
    }
    const auto folder = std::filesystem::temp_directory_path() /
                        ("RulebaseBenchmark-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    dorvik::RulebaseManager manager("DVKWork", "");
    for (const int rules : sizes) {
        Measure(manager, rules, folder / "team.dvk");
    }
    std::filesystem::remove_all(folder);
    return 0;
}
