#include "modRuleTimes.h"

#include "cli/output/TablePrinter.h"
#include "enforcement/RuleEngine.h"

#include <cstdio>
#include <numeric>

namespace dorvik::modRuleTimes {

namespace {

constexpr std::size_t kMostRows = 10;
constexpr double kMicrosecondsInASecond = 1e6;

std::string Fixed(double number, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, number);
    return text;
}

}  // namespace

void Print(const RuleEngine& ruleEngine) {
    const std::vector<RuleClock::RuleTime> times = ruleEngine.RuleTimes();
    const double all = std::accumulate(
        times.begin(), times.end(), 0.0, [](double sum, const RuleClock::RuleTime& time) {
            return sum + time.Seconds;
        });
    TablePrinter table(
        {{"Script of", false, true},
         {"Calls", true},
         {"Seconds", true},
         {"us a call", true},
         {"%", true}});
    for (std::size_t row = 0; row < times.size() && row < kMostRows; ++row) {
        const RuleClock::RuleTime& time = times[row];
        const auto calls = static_cast<double>(time.Calls);
        table.AddRow(
            {ruleEngine.NameOf(time.RuleID),
             std::to_string(time.Calls),
             Fixed(time.Seconds, 3),
             Fixed(time.Seconds / calls * kMicrosecondsInASecond, 2),
             Fixed(all > 0 ? 100 * time.Seconds / all : 0, 1)});
    }
    table.AddRow({"All " + std::to_string(times.size()) + " scripts", "", Fixed(all, 3), "", ""});
    table.Print();
}

}  // namespace dorvik::modRuleTimes
