// How fast the window of the work bench shows, sorts and groups a results database of 300,000 violations, with real
// widgets that draw into memory, and how much memory that takes.
//
// usage: WorkbenchBenchmark [VIOLATIONS]

#include "EmptyScreen.h"
#include "GeneratedReview.h"
#include "ProgramPath.h"
#include "criteria/ReviewCriteria.h"
#include "platform/host/HostFacts.h"
#include "platform/host/ScopedInstall.h"
#include "settings/modGlobal.h"
#include "source/VirtualProject.h"
#include "workstation/bench/WorkbenchView.h"
#include "workstation/controls/GridTableRows.h"
#include "workstation/controls/TableExport.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/look/modTheme.h"
#include "workstation/view/ViolationColumn.h"

#include <QApplication>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace dorvik {

namespace {

double ResidentMegabytes() {
    long size = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1048576;
}

struct Cost {
    double Wall = 0;  // milliseconds
    double Cpu = 0;
};

Cost CostOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t cpu = std::clock();
    work();
    const std::chrono::duration<double, std::milli> spent =
        std::chrono::steady_clock::now() - start;
    return {spent.count(), 1000.0 * static_cast<double>(std::clock() - cpu) / CLOCKS_PER_SEC};
}

/// Prints the medians of five runs, each with the time that drawing takes after it.
void Measure(WorkbenchView& bench, const char* name, const std::function<void()>& work) {
    constexpr std::size_t kRuns = 5;
    std::array<Cost, kRuns> runs;
    for (Cost& run : runs) {
        run = CostOf([&] {
            work();
            QApplication::processEvents();
            bench.grab();
        });
    }
    const auto median = [&](double Cost::*part) {
        std::sort(runs.begin(), runs.end(), [part](const Cost& left, const Cost& right) {
            return left.*part < right.*part;
        });
        return runs[kRuns / 2].*part;
    };
    std::printf("%-42s %8.1f ms %8.1f ms\n", name, median(&Cost::Wall), median(&Cost::Cpu));
}

/// The criteria of an add-in with one project open.
std::shared_ptr<ReviewCriteria> OneProject(const std::string& file) {
    auto project = std::make_shared<VirtualProject>();
    project->SetName("Test");
    project->SetFilename(file);
    auto criteria = std::make_shared<ReviewCriteria>();
    criteria->ProjectList().Add("Test", project, true);
    return criteria;
}

void Open(udocDorvik& document, const std::shared_ptr<ReviewCriteria>& criteria) {
    document.Results().CloseResults();
    document.Results().PopulateResults(criteria, false);
    if (!document.Results().ResultsAvailable()) {
        std::fputs("the results did not open\n", stderr);
        std::exit(1);
    }
}

void MeasureAll(const std::shared_ptr<ReviewCriteria>& criteria) {
    EmptyScreen screen;
    udocDorvik document(screen);
    WorkbenchView bench(document);
    bench.resize(1400, 800);
    bench.show();
    document.VisibleChanged(true);
    bench.grab();
    Grid& grid = document.Controls().List;
    const double before = ResidentMegabytes();
    const auto group = [&](const std::vector<ViolationColumn>& columns) {
        std::vector<GridOrderKey> keys;
        keys.reserve(columns.size());
        for (const ViolationColumn column : columns) {
            keys.push_back({NumberOf(column)});
        }
        grid.ChooseGroups(std::move(keys));
    };
    using enum ViolationColumn;
    std::printf("%-42s %11s %11s\n", "", "wall", "CPU");
    Measure(bench, "open and show", [&] { Open(document, criteria); });
    std::printf("%zu rows\n", grid.DataRowCount());
    Measure(bench, "to the last row", [&] {
        bench.List().verticalScrollBar()->setValue(0);
        grid.ChooseDataRow(grid.DataRowCount() - 1);
    });
    Measure(bench, "one page further", [&] {
        bench.List().verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepSub);
    });
    Measure(bench, "sort by title", [&] { grid.SetSortKeys({{NumberOf(Title)}}); });
    Measure(bench, "sort by impact, then title", [&] {
        grid.SetSortKeys({{NumberOf(Impact), true}, {NumberOf(Title)}});
    });
    grid.SetSortKeys({});
    Measure(bench, "group by severity", [&] { group({SeverityText}); });
    Measure(bench, "group by source file", [&] { group({SourceFile}); });
    Measure(bench, "group by severity, category and file", [&] {
        group({SeverityText, Category, SourceFile});
    });
    Measure(bench, "collapse all, expand all", [&] {
        document.ExpandCollapseGroups(false);
        document.ExpandCollapseGroups(true);
    });
    Measure(bench, "collapse and expand the first group", [&] {
        grid.SetExpanded(0, false);
        grid.SetExpanded(0, true);
    });
    Measure(bench, "select a row", [&] { grid.ChooseDataRow(1000); });
    std::size_t bytes = 0;
    const Cost csv = CostOf([&] {
        GridTableRows rows(grid);
        TableExport table(
            rows, TableFormat::Csv, "", [&](std::string_view text) { bytes += text.size(); });
        table.WriteNext(rows.Count());
    });
    std::printf("%-42s %8.0f ms %8.0f ms\n", "all rows as CSV, once", csv.Wall, csv.Cpu);
    std::printf("memory: %.0f MB more than before opening\n", ResidentMegabytes() - before);
}

void Run(int argumentCount, char** arguments) {
    constexpr int kViolations = 300000;
    const int violations = argumentCount > 1 ? std::atoi(arguments[1]) : kViolations;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    modTheme::Apply(ThemeName::Light);
    const auto program = std::filesystem::canonical("/proc/self/exe").parent_path();
    const auto folder = std::filesystem::temp_directory_path() / "WorkbenchBenchmark";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::create_directories(folder / "Dorvik");
    const auto file = folder / "Dorvik" / "Test_DORVIK.mdb";
    std::filesystem::copy_file(program / "Data" / "DVKProject.mdb", file);
    const std::string own = ProgramPath(folder) + "\\";
    const HostFacts facts{"ann", ProgramPath(program) + "\\", own, own, own, own};
    const ScopedInstall<const HostFacts> installed(facts);
    WriteGeneratedReview(ProgramPath(file), violations);
    modGlobal::CreateGlobalObjects();
    MeasureAll(OneProject(own + "Test.vbp"));
    modGlobal::DestroyGlobalObjects();
    std::filesystem::remove_all(folder);
}

}  // namespace

}  // namespace dorvik

int main(int argumentCount, char** arguments) {
    dorvik::Run(argumentCount, arguments);
    return 0;
}
