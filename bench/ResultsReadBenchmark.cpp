// How fast a finished results database is read: the operations of ResultsDB on a review of 200,000
// violations, each beside the nearest bare query on the same file in the same run.
//
// usage: ResultsReadBenchmark [VIOLATIONS]

#include "GeneratedReview.h"
#include "ProgramPath.h"
#include "results/ResultsDB.h"
#include "results/modViolationListSql.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string>

namespace {

using dorvik::BasicObject;
using dorvik::ItemType;
using dorvik::ResultsDB;

constexpr int kRuns = 7;

/// The least wall time of some runs, in milliseconds. Each run returns how many things it read.
double Milliseconds(const std::function<long()>& run, long& count, int runs = kRuns) {
    double best = 1e9;
    for (int number = 0; number < runs; ++number) {
        const auto start = std::chrono::steady_clock::now();
        count = run();
        const std::chrono::duration<double, std::milli> spent =
            std::chrono::steady_clock::now() - start;
        best = std::min(best, spent.count());
    }
    return best;
}

void Compare(
    const char* name, const std::function<long()>& run, const std::function<long()>& bareQuery) {
    long count = 0;
    long bareCount = 0;
    const double bare = Milliseconds(bareQuery, bareCount);
    const double ours = Milliseconds(run, count);
    std::printf("%-46s %8ld %9.2f ms %8ld %9.2f ms\n", name, count, ours, bareCount, bare);
}

// ---- reading ----

/// Opens the file with the engine alone, steps through a query and closes it.
long RunBareQuery(const std::string& file, const char* sql) {
    sqlite3* engine = nullptr;
    sqlite3_stmt* query = nullptr;
    sqlite3_open(file.c_str(), &engine);
    if (sqlite3_prepare_v2(engine, sql, -1, &query, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "%s\n", sqlite3_errmsg(engine));
        std::exit(1);
    }
    long rows = 0;
    long bytes = 0;
    while (sqlite3_step(query) == SQLITE_ROW) {
        for (int column = 0; column < sqlite3_column_count(query); ++column) {
            bytes += reinterpret_cast<const char*>(sqlite3_column_text(query, column)) != nullptr
                         ? sqlite3_column_bytes(query, column)
                         : 0;
        }
        ++rows;
    }
    sqlite3_finalize(query);
    sqlite3_close(engine);
    return bytes >= 0 ? rows : 0;
}

/// Opens the review, and with `isFiltered` a filter that excludes a kind of rule, a severity and a
/// category.
long WithReview(
    const std::string& file, bool isFiltered, const std::function<long(ResultsDB&)>& work) {
    ResultsDB results;
    if (!results.OpenReview(file)) {
        std::fputs("the review did not open\n", stderr);
        std::exit(1);
    }
    if (isFiltered) {
        auto& filter = results.Filter();
        filter.SetAuthorisedComponents(true);
        filter.SetAuthorisedReferences(true);
        filter.SetCodingConventions(true);
        filter.SetDocumentationConventions(true);
        filter.SetNamingConventions(true);
        for (int level = 1; level <= 4; ++level) {
            filter.SetSeverityLevel(level, true);
        }
        filter.AddExcludedCategoryID(7);
    }
    return work(results);
}

long WalkRows(ResultsDB& results, std::int32_t id, dorvik::modViolationListSql::Scope scope) {
    const std::string sql = dorvik::modViolationListSql::ViolationListSql(
        scope, id, results.FilterString(), /*withoutCompleted=*/true);
    long rows = 0;
    auto list = results.OpenRecordSource(sql);
    for (; list && !list->EOF_(); list->MoveNext()) {
        for (const char* const column :
             {"Completed", "Severity", "Title", "Impact", "ItemIDType"}) {
            rows += list->Value(column).IsHeld() ? 1 : 0;
        }
        ++rows;
    }
    return rows;
}

void ReadViolations(const std::string& path, const std::string& file) {
    using dorvik::modViolationListSql::Scope;
    std::printf("%-46s %8s %12s %8s %12s\n", "opened, read and closed", "rows", "", "rows", "bare");
    Compare(
        "violations of one file",
        [&] {
            return WithReview(path, false, [](ResultsDB& results) {
                return results.Violations().GetSourceFileViolationsList(250).Count();
            });
        },
        [&] {
            return RunBareQuery(
                file,
                "SELECT Violations.* FROM Procedures JOIN Violations ON ItemID = ProcID AND "
                "ItemType = 3 WHERE SourceID = 250");
        });
    Compare(
        "violations of one file, as the view lists them",
        [&] {
            return WithReview(path, true, [](ResultsDB& results) {
                return WalkRows(results, 250, Scope::SourceFile);
            });
        },
        [&] {
            return RunBareQuery(
                file,
                "SELECT Violations.* FROM Procedures JOIN Violations ON ItemID = ProcID AND "
                "ItemType = 3 WHERE SourceID = 250 AND RuleType <> 3 AND Severity <> 5 AND "
                "CategoryID <> 7");
        });
    Compare(
        "all violations, filtered, as the view lists them",
        [&] {
            return WithReview(
                path, true, [](ResultsDB& results) { return WalkRows(results, 0, Scope::All); });
        },
        [&] {
            return RunBareQuery(
                file,
                "SELECT * FROM Violations WHERE RuleType <> 3 AND Severity <> 5 AND CategoryID <> "
                "7 AND Completed = 0");
        });
}

void ReadItems(const std::string& path, const std::string& file) {
    Compare(
        "all files, filtered",
        [&] {
            return WithReview(path, true, [](ResultsDB& results) {
                return std::ssize(results.Items().GetProjectSourceFileList(true, false));
            });
        },
        [&] {
            return RunBareQuery(
                file,
                "SELECT SourceID, count(*), sum(Impact) FROM Procedures JOIN Violations ON ItemID "
                "= ProcID AND ItemType = 3 WHERE RuleType <> 3 AND Severity <> 5 AND CategoryID "
                "<> 7 GROUP BY SourceID");
        });
    Compare(
        "the project by category",
        [&] {
            return WithReview(path, false, [](ResultsDB& results) {
                return std::ssize(results.Figures().GetViolationStatsByCategory(-1, false));
            });
        },
        [&] {
            return RunBareQuery(
                file,
                "SELECT CategoryID, Severity, count(*) FROM Violations GROUP BY CategoryID, "
                "Severity");
        });
    Compare(
        "one file by category",
        [&] {
            return WithReview(path, false, [](ResultsDB& results) {
                return std::ssize(results.Figures().GetViolationStatsByCategory(250, false));
            });
        },
        [&] {
            return RunBareQuery(
                file,
                "SELECT CategoryID, Severity, count(*) FROM Procedures JOIN Violations ON ItemID = "
                "ProcID AND ItemType = 3 WHERE SourceID = 250 GROUP BY CategoryID, Severity");
        });
    Compare(
        "procedures of one file, filtered",
        [&] {
            return WithReview(path, true, [](ResultsDB& results) {
                return std::ssize(results.Items().GetSourceFileProcList(250, true, true));
            });
        },
        [&] {
            return RunBareQuery(
                file,
                "SELECT ItemID, count(*), sum(Impact) FROM Procedures JOIN Violations ON ItemID = "
                "ProcID AND ItemType = 3 WHERE SourceID = 250 AND RuleType <> 3 AND Severity <> 5 "
                "AND CategoryID <> 7 GROUP BY ItemID");
        });
}

}  // namespace

int main(int argumentCount, char** arguments) {
    constexpr int kViolations = 200000;
    const int violations = argumentCount > 1 ? std::atoi(arguments[1]) : kViolations;
    const auto program = std::filesystem::canonical("/proc/self/exe").parent_path();
    const auto folder = std::filesystem::temp_directory_path() / "ResultsReadBenchmark";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const auto file = folder / "Test.mdb";
    std::filesystem::copy_file(program / "Data" / "DVKProject.mdb", file);
    const std::string path = dorvik::ProgramPath(file);
    dorvik::WriteGeneratedReview(path, violations);
    ReadViolations(path, file.string());
    ReadItems(path, file.string());
    std::filesystem::remove_all(folder);
    return 0;
}
