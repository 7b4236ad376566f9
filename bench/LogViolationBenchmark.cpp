// How much the results store costs above the engine: violations a second through ReviewWriter::LogViolation
// beside a bare loop of one prepared INSERT with the same settings, on copies of the same template.
//
// usage: LogViolationBenchmark [ROWS]

#include "ProgramPath.h"
#include "criteria/ReviewCriteria.h"
#include "results/ResultsDB.h"
#include "rulebase/model/Rulebase.h"
#include "settings/DVKWorkData.h"

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/resource.h>

namespace {

using dorvik::ItemType;
using dorvik::ResultsDB;
using dorvik::Violation;

double CpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void Measure(const char* name, int rows, const std::function<void(int)>& run) {
    const double cpu = CpuSeconds();
    const auto wall = std::chrono::steady_clock::now();
    run(rows);
    const double cpuSpent = CpuSeconds() - cpu;
    const double wallSpent =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - wall).count();
    std::printf(
        "%-28s %8.0f rows per CPU second, %6.2f us CPU and %6.2f us wall a row\n",
        name,
        rows / cpuSpent,
        cpuSpent / rows * 1e6,
        wallSpent / rows * 1e6);
}

Violation Sample(int number) {
    Violation violation;
    violation.Severity = 2;
    violation.Impact = 750;
    violation.CategoryID = 7;
    violation.RuleID = 5012;
    violation.RuleType = 3;
    violation.Location = 4;
    violation.SourceLineNumber = number;
    violation.Title = "Unauthorised keyword";
    violation.Description = "The keyword GoTo has been found in Calculate_Total of frmBilling.frm.";
    violation.Advice =
        "Rewrite the procedure with structured statements, so that it needs no jump.";
    violation.LocationMember = "Calculate_Total";
    violation.SourceLine = "        If lngTotal > 0 Then GoTo ErrorHandler";
    return violation;
}

void LogThroughResultsDB(const std::string& file, int rows) {
    const dorvik::Rulebase rulebase;
    const dorvik::ReviewCriteria criteria{dorvik::DVKWorkData()};
    ResultsDB results;
    if (!results.Writer().StartReview(file, rulebase, criteria)) {
        std::fputs("the review did not start\n", stderr);
        std::exit(1);
    }
    for (int row = 0; row < rows; ++row) {
        results.Writer().LogViolation(row / 10 + 1, ItemType::Procedure, Sample(row));
    }
}

void LogThroughTheEngine(const std::string& file, int rows) {
    sqlite3* engine = nullptr;
    sqlite3_stmt* insert = nullptr;
    sqlite3_open(file.c_str(), &engine);
    sqlite3_exec(
        engine,
        "PRAGMA synchronous = NORMAL; PRAGMA journal_mode = WAL",
        nullptr,
        nullptr,
        nullptr);
    sqlite3_prepare_v2(
        engine,
        "INSERT INTO Violations (ItemID, ItemType, RuleID, RuleType, Severity, Impact, CategoryID, "
        "LineNum, "
        "Loc, BottomOffset, Title, Description, Advice, LocMember, SourceLine) VALUES "
        "(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
        -1,
        &insert,
        nullptr);
    for (int row = 0; row < rows; ++row) {
        const Violation violation = Sample(row);
        int parameter = 0;
        for (const int number :
             {row / 10 + 1,
              3,
              violation.RuleID,
              violation.RuleType,
              violation.Severity,
              static_cast<int>(violation.Impact),
              violation.CategoryID,
              violation.SourceLineNumber,
              violation.Location,
              violation.LineBottomOffset}) {
            sqlite3_bind_int(insert, ++parameter, number);
        }
        for (const std::string* text :
             {&violation.Title,
              &violation.Description,
              &violation.Advice,
              &violation.LocationMember,
              &violation.SourceLine}) {
            sqlite3_bind_text(
                insert, ++parameter, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
        }
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(engine, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
    sqlite3_close(engine);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const int rows = argumentCount > 1 ? std::atoi(arguments[1]) : 50000;
    const auto program = std::filesystem::canonical("/proc/self/exe").parent_path();
    const auto original = program / "Data" / "DVKProject.mdb";
    const auto folder = std::filesystem::temp_directory_path() / "LogViolationBenchmark";
    std::filesystem::create_directories(folder);
    const auto file = folder / "Test.mdb";
    const auto fresh = [&] {
        std::filesystem::copy_file(
            original, file, std::filesystem::copy_options::overwrite_existing);
    };
    fresh();
    Measure("bare loop on the engine", rows, [&](int count) { LogThroughTheEngine(file, count); });
    fresh();
    Measure("ReviewWriter::LogViolation", rows, [&](int count) {
        LogThroughResultsDB(dorvik::ProgramPath(file), count);
    });
    std::filesystem::remove_all(folder);
    return 0;
}
