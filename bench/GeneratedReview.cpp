#include "GeneratedReview.h"

#include "criteria/ReviewCriteria.h"
#include "results/ResultsDB.h"
#include "rulebase/model/Rulebase.h"
#include "settings/DVKWorkData.h"
#include "source/VirtualObject.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

namespace dorvik {

namespace {

constexpr int kFiles = 500;
constexpr int kProceduresOfAFile = 20;

double Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

VirtualObject* Fill(VirtualObject& object, const std::string& name, const char* type) {
    object.Properties().Add("Name", name);
    object.Properties().Add("Path", "C:\\Src\\");
    object.Properties().Add("Filename", name + ".bas");
    object.Properties().Add("Type", type);
    return &object;
}

void LogFigures(ResultsDB& results, VirtualObject& object, int lines) {
    object.LineStats().SetTotalLines(lines);
    object.LineStats().SetCodeLines(lines);
    results.Writer().LogVirtualObjectViolationStats(object);
    results.Writer().LogVirtualObjectLineStats(object);
}

Violation Sample(int number) {
    Violation violation;
    violation.Severity = number % 5 + 1;
    violation.Impact = static_cast<std::int16_t>(number % 900);
    violation.CategoryID = number % 13;
    violation.RuleID = 5000 + number % 60;
    violation.RuleType = number % 6 + 1;
    violation.Location = 4;
    violation.SourceLineNumber = number;
    violation.Title = "Unauthorised keyword " + std::to_string(number % 60);
    violation.Description = "The keyword GoTo has been found in Calculate_Total of frmBilling.frm.";
    violation.Advice =
        "Rewrite the procedure with structured statements, so that it needs no jump.";
    violation.LocationMember = "Calculate_Total";
    violation.SourceLine = "        If lngTotal > 0 Then GoTo ErrorHandler";
    return violation;
}

void WriteReview(ResultsDB& results, int violations) {
    VirtualObject project;
    results.Writer().SetupVObjectResults("Project", *Fill(project, "Generated", "Exe"));
    int logged = 0;
    for (int file = 0; file < kFiles; ++file) {
        VirtualObject object;
        results.Writer().SetupVObjectResults(
            "File", *Fill(object, "modFile" + std::to_string(file), "Module"));
        for (int number = 0; number < kProceduresOfAFile; ++number) {
            VirtualObject procedure;
            procedure.Properties().Add("Name", "Procedure" + std::to_string(number));
            procedure.Properties().Add("ProcedureType", "Sub");
            procedure.Properties().Add("Scope", "Public");
            procedure.Properties().Add("IsStatic", false);
            procedure.Properties().Add("DataType", "");
            results.Writer().SetupVObjectResults("Procedure", procedure);
            const int place = file * kProceduresOfAFile + number + 1;
            for (const long end = 1L * violations * place / (kFiles * kProceduresOfAFile);
                 logged < end;
                 ++logged) {
                const Violation violation = Sample(logged);
                results.Writer().LogViolation(procedure.ObjectID(), ItemType::Procedure, violation);
                procedure.ViolationStats().IncrementCount(violation.Severity, violation.Impact);
            }
            LogFigures(results, procedure, 30);
        }
        LogFigures(results, object, 600);
    }
}

}  // namespace

void WriteGeneratedReview(const std::string& file, int violations) {
    Rulebase rulebase;
    for (int id = 0; id < 13; ++id) {
        const auto category = std::make_shared<CategoryItem>();
        category->SetID(id);
        category->SetTitle("Category " + std::to_string(id));
        rulebase.CategoryList().Add(category, false);
    }
    const ReviewCriteria criteria{DVKWorkData()};
    ResultsDB results;
    if (!results.Writer().StartReview(file, rulebase, criteria)) {
        std::fputs("the review did not start\n", stderr);
        std::exit(1);
    }
    const double writing = Milliseconds([&] { WriteReview(results, violations); });
    const double ending = Milliseconds([&] { results.Writer().EndReview(violations); });
    const double closing = Milliseconds([&] { results.CloseReview(); });
    std::printf(
        "%d violations of %d procedures: %.0f ms to write, %.0f ms to end (indexes), %.0f ms to "
        "close\n\n",
        violations,
        kFiles * kProceduresOfAFile,
        writing,
        ending,
        closing);
}

}  // namespace dorvik
