// Where the time of a review goes: a generated project is reviewed with 150 rules of all kinds, with
// none, and with the rules of one place at a time. What a place costs is the difference to the review
// without rules, in the same run; the median of several reviews counts.
#include "BenchmarkRules.h"
#include "MeasuredProcess.h"
#include "MeasuredReview.h"
#include "ProgramPath.h"
#include "ProjectGenerator.h"
#include "platform/host/modFiles.h"
#include "rulebase/file/RulebaseManager.h"
#include "rulebase/model/Rulebase.h"
#include "settings/modGlobal.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace dorvik {

namespace {

constexpr int kLines = 200000;
constexpr std::uint32_t kSeed = 6;
constexpr int kRounds = 3;

using Wanted = std::function<bool(const BenchmarkRule&)>;

/// Reviews the same project with parts of the same rules.
class Measuring {
public:
    Measuring(std::filesystem::path folder, int lines)
        : m_folder(std::move(folder)), m_rules(BenchmarkRules()) {
        dorvik::Rulebase rulebase;
        const std::string empty = ProgramPath(m_folder / "Empty.dvk");
        std::filesystem::create_directories(m_folder);
        RulebaseManager().Save(rulebase, empty);
        m_emptyRulebase = modFiles::ReadBytes(empty);
        ProjectGenerator generator(kSeed);
        m_project = ProgramPath(generator.Write(m_folder, lines));
        for (const std::filesystem::path& file : generator.SourceFiles()) {
            const std::string bytes = modFiles::ReadBytes(ProgramPath(file));
            m_lines += std::count(bytes.begin(), bytes.end(), '\n');
        }
    }

    long Lines() const { return m_lines; }
    const std::vector<BenchmarkRule>& Rules() const { return m_rules; }

    /// CPU seconds of a review with the rules wanted; negative if it failed.
    double Review(const Wanted& isWanted) const {
        const std::filesystem::path rulebase = m_folder / "Benchmark.dvk";
        std::ofstream(rulebase) << BenchmarkRulebase(m_emptyRulebase, m_rules, isWanted);
        const std::string file = ProgramPath(rulebase);
        std::vector<double> seconds;
        for (int round = 0; round < kRounds; ++round) {
            const Measurement measured =
                MeasureWork([&] { return ReviewProject(m_project, file); });
            if (!measured.Succeeded) {
                return -1;
            }
            seconds.push_back(measured.CpuSeconds);
        }
        std::sort(seconds.begin(), seconds.end());
        return seconds.at(seconds.size() / 2);
    }

private:
    std::filesystem::path m_folder;
    std::vector<BenchmarkRule> m_rules;
    std::string m_emptyRulebase;
    std::string m_project;
    long m_lines = 0;
};

const char* KindName(BenchmarkRule::Kind kind) {
    switch (kind) {
        case BenchmarkRule::Kind::Coding: return "coding convention";
        case BenchmarkRule::Kind::Naming: return "naming convention";
        case BenchmarkRule::Kind::Keyword: return "unauthorised keyword";
    }
    return "";
}

void PrintRow(
    const char* kind, const std::string& place, long rules, double seconds, double whole) {
    std::printf(
        "%-21s %-26s %6ld %8.3f %6.1f\n",
        kind,
        place.c_str(),
        rules,
        seconds,
        100 * seconds / whole);
}

void PrintPlaces(const Measuring& measuring, double bare, double whole) {
    std::vector<std::pair<BenchmarkRule::Kind, std::string>> places;
    for (const BenchmarkRule& rule : measuring.Rules()) {
        const std::pair place(rule.RuleKind, rule.Place);
        if (std::find(places.begin(), places.end(), place) == places.end()) {
            places.push_back(place);
        }
    }
    for (const auto& [kind, place] : places) {
        const Wanted isHere = [&](const BenchmarkRule& rule) {
            return rule.RuleKind == kind && rule.Place == place;
        };
        const long rules =
            std::count_if(measuring.Rules().begin(), measuring.Rules().end(), isHere);
        PrintRow(KindName(kind), place, rules, measuring.Review(isHere) - bare, whole);
    }
}

int Run(int lineCount) {
    modGlobal::CreateGlobalObjects();
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / "dorvik-rules-bench";
    std::filesystem::remove_all(folder);
    const Measuring measuring(folder, lineCount);
    const double bare = measuring.Review([](const BenchmarkRule&) { return false; });
    const double whole = measuring.Review([](const BenchmarkRule&) { return true; });
    if (bare < 0 || whole < 0) {
        std::printf("The review failed.\n");
        return 1;
    }
    const auto lines = static_cast<double>(measuring.Lines());
    std::printf("%ld lines\n", measuring.Lines());
    std::printf("no rules, results stored: %8.0f lines/CPU s\n", lines / bare);
    std::printf(
        "%zu rules:                %8.0f lines/CPU s, %.2f times the review without rules\n\n",
        measuring.Rules().size(),
        lines / whole,
        whole / bare);
    std::printf("%-21s %-26s %6s %8s %6s\n", "", "where", "rules", "CPU s", "%");
    PrintRow("reading and results", "everywhere", 0, bare, whole);
    PrintPlaces(measuring, bare, whole);
    std::filesystem::remove_all(folder);
    return 0;
}

}  // namespace

}  // namespace dorvik

int main(int argc, char** argv) {
    return dorvik::Run(argc > 1 ? std::atoi(argv[1]) : dorvik::kLines);
}
