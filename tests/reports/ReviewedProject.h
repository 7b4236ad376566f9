#pragma once

#include "criteria/ReviewCriteria.h"
#include "platform/host/ScopedInstall.h"
#include "platform/host/modFiles.h"
#include "results/ResultsDB.h"
#include "results/modTolerances.h"
#include "rulebase/model/Rulebase.h"
#include "settings/DVKWorkData.h"
#include "source/VirtualObject.h"
#include "support/FilesystemPaths.h"

#include <memory>
#include <string>
#include <string_view>

namespace dorvik::test {

/// A review that a test makes up and writes through the results store, as a review of real sources would:
/// the figures of the objects are counted from what is raised. In this order:
///
///     ReviewedProject project(path);             // then categories, tolerances
///     project.Begin("Billing");
///     project.BeginFile({"modA", ".bas", "Module", 100, 20});
///     project.BeginProcedure("Total", "Function", 9);   // or BeginSection("Declarations")
///     project.Raise(violation);                  // of the procedure, without one of the file
///     project.EndProcedure();
///     project.EndFile();
///     project.End();                             // the results are then open for reading
class ReviewedProject {
public:
    struct File {
        std::string Name;
        std::string Ending;
        std::string Type;
        int Lines = 0;
        int Comments = 0;
    };

    /// `path` names the database, which is copied from the template of the build.
    explicit ReviewedProject(std::string path) : m_path(std::move(path)) {
        modFiles::CopyFile(test::ProgramPath(DORVIK_RESULTS_TEMPLATE), m_path);
        m_rulebase.SetTitle("House rules");
        m_rulebase.SetVersion("2.0.0007");
        for (std::int32_t level = 1; level <= 5; ++level) {
            m_criteria.LoadCriteria().SetSeverityLevel(level, true);
        }
        m_criteria.LoadCriteria().SetCodingConventions(true);
    }

    ReviewCriteria& Criteria() { return m_criteria; }
    ResultsDB& Results() { return m_results; }

    void AddCategory(std::int32_t id, std::string_view title) {
        auto category = std::make_shared<CategoryItem>();
        category->SetID(id);
        category->SetTitle(std::string(title));
        m_rulebase.CategoryList().Add(category, false);
    }

    bool Begin(std::string_view name) {
        const bool started = m_results.Writer().StartReview(m_path, m_rulebase, m_criteria);
        m_project = Named(name);
        m_project->Properties().Add("Path", "C:\\Src\\");
        m_project->Properties().Add("Filename", "Billing.vbp");
        m_project->Properties().Add("Type", "Exe");
        m_results.Writer().SetupVObjectResults("Project", *m_project);
        return started;
    }

    void BeginFile(const File& file) {
        m_isProjectFile = file.Type == "Project";
        m_file = Named(file.Name);
        m_file->Properties().Add("Path", "C:\\Src\\");
        m_file->Properties().Add("Filename", file.Name + file.Ending);
        m_file->Properties().Add("Type", file.Type);
        m_results.Writer().SetupVObjectResults(m_isProjectFile ? "VBP" : "File", *m_file);
        CountLines(*m_file, file);
        m_lines += file.Lines;
        m_comments += file.Comments;
        m_worst = 0;
    }

    void BeginProcedure(std::string_view name, std::string_view type, std::int32_t complexity) {
        m_procedure = Named(name);
        m_procedure->Properties().Add("ProcedureType", type);
        m_procedure->Properties().Add("Scope", "Public");
        m_procedure->Properties().Add("IsStatic", false);
        m_procedure->Properties().Add("DataType", "Long");
        m_results.Writer().SetupVObjectResults("Procedure", *m_procedure);
        m_procedure->Properties().Add("CyclomaticComplexity", complexity);
        m_worst = std::max(m_worst, complexity);
    }

    void BeginSection(std::string_view kind) {
        m_procedure = std::make_unique<VirtualObject>();
        m_results.Writer().SetupVObjectResults(kind, *m_procedure);
    }

    void Raise(const Violation& violation) {
        const VirtualObject& owner = m_procedure ? *m_procedure : m_file ? *m_file : *m_project;
        m_results.Writer().LogViolation(owner.ObjectID(), owner.ObjectType(), violation);
        for (const auto* object : {&m_procedure, &m_file, &m_project}) {
            if (*object) {
                (*object)->ViolationStats().IncrementCount(violation.Severity, violation.Impact);
            }
        }
    }

    void EndProcedure() { Finish(m_procedure); }

    void EndFile() {
        m_file->Properties().Add("AverageCyclomatic", m_worst);
        m_file->Properties().Add("MaximumCyclomatic", m_worst);
        EndFileEarly();
    }

    /// Ends a file that was not reviewed to its end.
    void EndFileEarly() {
        modTolerances::SetTolerancePassValue(*m_file, m_criteria, m_isProjectFile);
        Finish(m_file);
    }

    bool End(bool finished = true) {
        CountLines(*m_project, {"", "", "", m_lines, m_comments});
        Finish(m_project);
        if (finished) {
            m_results.Writer().EndReview(1200);
        }
        return m_results.OpenReview(m_path);
    }

private:
    static std::unique_ptr<VirtualObject> Named(std::string_view name) {
        auto object = std::make_unique<VirtualObject>();
        object->Properties().Add("Name", name);
        return object;
    }

    static void CountLines(VirtualObject& object, const File& file) {
        object.LineStats().SetTotalLines(file.Lines);
        object.LineStats().SetCodeLines(file.Lines - file.Comments);
        object.LineStats().SetCommentOnlyLines(file.Comments);
    }

    void Finish(std::unique_ptr<VirtualObject>& object) {
        m_results.Writer().LogVirtualObjectProperties(*object);
        m_results.Writer().LogVirtualObjectViolationStats(*object);
        if (object->LineStats().TotalLines() > 0) {
            m_results.Writer().LogVirtualObjectLineStats(*object);
        }
        object.reset();
    }

    class StoppedClock : public IClock {
    public:
        DateTime Now() override { return {2026, 11, 21, 14, 5, 9}; }
    };

    std::string m_path;
    StoppedClock m_clock;
    HostFacts m_facts{"ann", {}, {}, {}};
    ScopedInstall<StoppedClock> m_clockInstalled{m_clock};
    ScopedInstall<HostFacts> m_factsInstalled{m_facts};
    Rulebase m_rulebase;
    ReviewCriteria m_criteria{DVKWorkData()};
    ResultsDB m_results;
    std::unique_ptr<VirtualObject> m_project;
    std::unique_ptr<VirtualObject> m_file;
    std::unique_ptr<VirtualObject> m_procedure;
    bool m_isProjectFile = false;
    std::int32_t m_worst = 0;
    int m_lines = 0;
    int m_comments = 0;
};

/// A violation as rules raise them, with an empty place for what a test is about.
inline Violation
Breach(std::int32_t rule, std::int32_t severity, std::int16_t impact, std::string title) {
    Violation violation;
    violation.RuleID = rule;
    violation.RuleType = 4;
    violation.Severity = severity;
    violation.Impact = impact;
    violation.CategoryID = -1;
    violation.Title = std::move(title);
    violation.Description = "Description of " + violation.Title;
    violation.Advice = "Advice on " + violation.Title;
    return violation;
}

}  // namespace dorvik::test
