// How long the detailed reports of a finished review take, and whether that grows with their size alone:
// a project of 500 files, then one of 2,000, each beside writing the same bytes to other files.
//
// usage: ReportsBenchmark [FILES]...

#include "ProgramPath.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "platform/host/modFiles.h"
#include "reports/classic/ProjectReportOrder.h"
#include "reports/classic/ReportsEngine.h"
#include "reports/modern/ModernReport.h"
#include "results/ResultsDB.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/modRulebaseDefaults.h"
#include "settings/DVKWorkData.h"
#include "source/VirtualObject.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using dorvik::ResultsDB;
using dorvik::Violation;
using dorvik::VirtualObject;

constexpr int kProcedures = 12;
constexpr int kViolationsOfAProcedure = 2;
constexpr int kCategories = 7;
constexpr int kRuns = 3;
constexpr double kMegabyte = 1024 * 1024;

/// What a run costs: the least of some runs, each figure by itself.
struct Cost {
    double CpuSeconds = 1e9;
    double WallSeconds = 1e9;
};

double CpuSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

Cost Measured(const std::function<void()>& run, const std::function<void()>& prepare = {}) {
    Cost best;
    for (int number = 0; number < kRuns; ++number) {
        if (prepare) {
            prepare();
        }
        const double cpu = CpuSeconds();
        const auto start = std::chrono::steady_clock::now();
        run();
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        best.WallSeconds = std::min(best.WallSeconds, spent.count());
        best.CpuSeconds = std::min(best.CpuSeconds, CpuSeconds() - cpu);
    }
    return best;
}

// ---- the review ----

void Fill(VirtualObject& object, const std::string& name, const char* ending, const char* type) {
    object.Properties().Add("Name", name);
    object.Properties().Add("Path", "C:\\Src\\");
    object.Properties().Add("Filename", name + ending);
    object.Properties().Add("Type", type);
}

void LogFigures(ResultsDB& results, VirtualObject& object, int lines) {
    object.LineStats().SetTotalLines(lines);
    object.LineStats().SetCodeLines(lines - lines / 5);
    object.LineStats().SetCommentOnlyLines(lines / 5);
    results.Writer().LogVirtualObjectProperties(object);
    results.Writer().LogVirtualObjectViolationStats(object);
    results.Writer().LogVirtualObjectLineStats(object);
}

Violation Sample(int number) {
    Violation violation;
    violation.Severity = number % 5 + 1;
    violation.Impact = static_cast<std::int16_t>(number % 900);
    violation.CategoryID = number % kCategories;
    violation.RuleID = 5000 + number % 60;
    violation.RuleType = 4;
    violation.SourceLineNumber = number;
    violation.Title = "Variable without a type";
    violation.Description =
        "The variable 'lngResult' of the procedure 'Calculate' holds a Variant.";
    violation.Advice = "Give the variable a type of its own, so that the compiler can check it.";
    violation.SourceLine = "        lngResult = lngResult + CLng(varAmounts(intIndex)) * dblRate";
    return violation;
}

void WriteFile(ResultsDB& results, int file, VirtualObject& project) {
    VirtualObject object;
    Fill(object, "modFile" + std::to_string(file), ".bas", "Module");
    results.Writer().SetupVObjectResults("File", object);
    for (int number = 0; number < kProcedures; ++number) {
        VirtualObject procedure;
        procedure.Properties().Add("Name", "Calculate" + std::to_string(number));
        procedure.Properties().Add("ProcedureType", "Sub");
        procedure.Properties().Add("Scope", "Public");
        procedure.Properties().Add("IsStatic", false);
        procedure.Properties().Add("DataType", "");
        results.Writer().SetupVObjectResults("Procedure", procedure);
        for (int count = 0; count < kViolationsOfAProcedure; ++count) {
            const Violation violation = Sample(file * kProcedures + number + count);
            results.Writer().LogViolation(procedure.ObjectID(), procedure.ObjectType(), violation);
            for (VirtualObject* const owner : {&procedure, &object, &project}) {
                owner->ViolationStats().IncrementCount(violation.Severity, violation.Impact);
            }
        }
        procedure.Properties().Add("CyclomaticComplexity", number);
        LogFigures(results, procedure, 30);
    }
    LogFigures(results, object, 30 * kProcedures);
}

void WriteReview(const std::string& database, int files) {
    dorvik::Rulebase rulebase;
    dorvik::modRulebaseDefaults::DefaultSeverityList(rulebase.SeverityList());
    for (int id = 0; id < kCategories; ++id) {
        const auto category = std::make_shared<dorvik::CategoryItem>();
        category->SetID(id);
        category->SetTitle("Category " + std::to_string(id));
        rulebase.CategoryList().Add(category, false);
    }
    const dorvik::ReviewCriteria criteria{dorvik::DVKWorkData()};
    ResultsDB results;
    if (!results.Writer().StartReview(database, rulebase, criteria)) {
        std::fputs("the review did not start\n", stderr);
        std::exit(1);
    }
    VirtualObject project;
    Fill(project, "Generated", ".vbp", "Exe");
    results.Writer().SetupVObjectResults("Project", project);
    VirtualObject projectFile;
    Fill(projectFile, "Generated", ".vbp", "Project");
    results.Writer().SetupVObjectResults("VBP", projectFile);
    LogFigures(results, projectFile, 0);
    for (int file = 0; file < files; ++file) {
        WriteFile(results, file, project);
    }
    LogFigures(results, project, 30 * kProcedures * files);
    results.Writer().EndReview(1000);
}

// ---- the reports ----

void WriteReports(const std::string& database, const fs::path& folder, bool detailed) {
    ResultsDB results;
    dorvik::ReportsEngine engine;
    dorvik::ProgressInfo progress;
    dorvik::ProjectReportOrder order;
    order.ProjectFile = "C:\\Src\\Generated.vbp";
    order.ReportsFolder = dorvik::ProgramPath(folder);
    order.Detailed = detailed;
    if (!results.OpenReview(database) ||
        !engine.CreateReportsOfDatabase(results, order, progress)) {
        std::fputs("the reports were not written\n", stderr);
        std::exit(1);
    }
}

std::vector<std::string> PagesIn(const fs::path& folder) {
    std::vector<std::string> pages;
    for (const auto& entry : fs::directory_iterator(folder)) {
        std::ifstream stream(entry.path(), std::ios::binary);
        pages.emplace_back(
            std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    return pages;
}

/// As the reports are written: each page beside its place, moved there when it is whole.
void WriteBytes(const std::vector<std::string>& pages, const fs::path& folder) {
    for (std::size_t number = 0; number < pages.size(); ++number) {
        dorvik::modFiles::WriteBytesAtomicallyAsNamed(
            dorvik::ProgramPath(folder) + "\\", std::to_string(number) + ".html", pages[number]);
    }
}

/// Pages that are new cost more than pages that replace others: their names are looked up in vain.
void Empty(const fs::path& folder) {
    fs::remove_all(folder);
    fs::create_directories(folder);
}

void PrintRow(const char* name, std::size_t pages, double megabytes, const Cost& cost) {
    std::printf(
        "  %-26s %6zu %8.1f %8.3f %8.3f %10.1f\n",
        name,
        pages,
        megabytes,
        cost.WallSeconds,
        cost.CpuSeconds,
        1e6 * cost.CpuSeconds / static_cast<double>(pages));
}

/// CPU seconds for each megabyte of the detailed reports.
double Measure(const fs::path& folder, int files) {
    const fs::path reports = folder / ("reports" + std::to_string(files));
    const fs::path copies = folder / ("copies" + std::to_string(files));
    const fs::path host = folder / ("Generated" + std::to_string(files) + "_DORVIK.mdb");
    fs::create_directories(reports);
    fs::create_directories(copies);
    fs::copy_file(
        fs::read_symlink("/proc/self/exe").parent_path() / "Data" / "DVKProject.mdb", host);
    const std::string database = dorvik::ProgramPath(host);
    WriteReview(database, files);

    const Cost detailed =
        Measured([&] { WriteReports(database, reports, true); }, [&] { Empty(reports); });
    const std::vector<std::string> pages = PagesIn(reports);
    double megabytes = 0;
    for (const std::string& page : pages) {
        megabytes += static_cast<double>(page.size()) / kMegabyte;
    }
    const Cost copied = Measured([&] { WriteBytes(pages, copies); }, [&] { Empty(copies); });
    const Cost summary = Measured([&] { WriteReports(database, reports, false); });
    const Cost modern = Measured([&] {
        ResultsDB results;
        results.OpenReview(database);
        dorvik::ModernReport::Save(
            results, {}, {dorvik::ProgramPath(folder) + "\\", "", "modern.html"});
    });
    std::printf("%d files, %d violations\n", files, files * kProcedures * kViolationsOfAProcedure);
    PrintRow("detailed reports", pages.size(), megabytes, detailed);
    PrintRow("the same bytes to files", pages.size(), megabytes, copied);
    PrintRow(
        "project report alone",
        1,
        static_cast<double>(fs::file_size(reports / "Generated_Dorvik.html")) / kMegabyte,
        summary);
    PrintRow(
        "modern page",
        1,
        static_cast<double>(fs::file_size(folder / "modern.html")) / kMegabyte,
        modern);
    return detailed.CpuSeconds / megabytes;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<int> sizes;
    for (int index = 1; index < argc; ++index) {
        sizes.push_back(std::atoi(argv[index]));
    }
    if (sizes.empty()) {
        sizes = {500, 2000};
    }
    const fs::path folder =
        fs::temp_directory_path() / ("dorvik-reports-" + std::to_string(std::random_device()()));
    fs::remove_all(folder);
    std::printf(
        "  %-26s %6s %8s %8s %8s %10s\n", "", "pages", "MB", "wall s", "CPU s", "CPU us/page");
    double first = 0;
    for (const int files : sizes) {
        const double each = Measure(folder, files);
        first = first == 0 ? each : first;
        std::printf(
            "  CPU seconds for each megabyte, against %d files: %.2f times\n",
            sizes[0],
            each / first);
    }
    fs::remove_all(folder);
    return 0;
}
