#include "SourceFileReport.h"

#include "criteria/ProgressInfo.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "modReportTables.h"
#include "reports/format/HtmlTag.h"
#include "reports/format/modReportFilename.h"
#include "reports/format/modReportFormat.h"
#include "reports/format/modReportLinks.h"
#include "results/UnfinishedFiles.h"
#include "source/modDorvikUtils.h"

namespace dorvik {

namespace {

constexpr std::int32_t kStepsOfProcedure = 4;
constexpr std::string_view kPageTitle = "Dorvik Source File Detail Report";

}  // namespace

const SourceFileReport::FigureTable SourceFileReport::kCounts{
    "ViolationStatistics",
    "Violation Statistics",
    &ViolationStatistics::Counts,
    &ViolationStatistics::TotalViolations,
    true};

// Required: its rows do not advance the progress.
const SourceFileReport::FigureTable SourceFileReport::kImpacts{
    "ImpactStatistics",
    "Impact Statistics",
    &ViolationStatistics::Impacts,
    &ViolationStatistics::TotalImpact,
    false};

bool SourceFileReport::CreateSourceFileReport(
    const ReportContext& context, const Subject& subject, ResultsDB& results) {
    const BasicObject& file = subject.File;
    const std::string path = file.Path + file.Filename;
    bool cancelled = false;
    const bool ended = Trap({"ReportsEngine", "CreateSourceFileReport"}, [&] {
        SourceFileReport report(context, subject, results);
        cancelled = !report.Build();
        if (!cancelled) {
            context.Output.SaveReport(
                report.m_html,
                subject.ProjectFile,
                ReportKind::SourceFile,
                subject.Folder,
                path,
                file.Name);
        }
    });
    if (!ended) {
        context.Output.AddFailed(modDorvikUtils::CreateReportFilename(
            subject.ProjectFile, ReportKind::SourceFile, subject.Folder, path, file.Name));
    }
    return !cancelled;
}

SourceFileReport::SourceFileReport(
    const ReportContext& context, const Subject& subject, ResultsDB& results)
    : m_context(context),
      m_subject(subject),
      m_results(results),
      m_isProjectFile(modDorvikUtils::IsVBPFile(subject.File.Filename)) {}

bool SourceFileReport::Build() {
    ReadFigures();
    if (!BeginProgress()) {
        return false;
    }
    InsertHead();
    InsertContents();
    if (!m_passed) {
        modReportTables::InsertToleranceFailures(m_html, m_failures, false);
    }
    if (!InsertFigureTable(kCounts)) {
        return false;
    }
    InsertCategoryTable();
    if (!InsertFigureTable(kImpacts)) {
        return false;
    }
    if (!m_isProjectFile && !(InsertLineCounts() && InsertComplexity())) {
        return false;
    }
    if (m_statistics.TotalViolations() > 0 && !InsertViolations()) {
        return false;
    }
    // Required: one end tag of a table, however many tables are open.
    m_html.EndTag("table");
    m_html.EndDocument();
    return true;
}

void SourceFileReport::ReadFigures() {
    const std::int32_t id = m_subject.File.ObjectID;
    m_procedures = m_results.Items().GetSourceFileProcList(id, true, true);
    for (const BasicObject& location : m_procedures) {
        m_locationStatistics.emplace(
            location.ObjectID,
            m_results.Figures().GetViolationStats(ItemType::Procedure, location.ObjectID));
    }
    m_statistics = m_results.Figures().GetViolationStats(ItemType::File, id);
    m_isUnfinished = UnfinishedFiles::Include(id, m_results);
    if (m_subject.TolerancesSet) {
        m_passed = m_results.Verdict().TolerancePass(ItemType::File, id, m_failures);
    }
}

bool SourceFileReport::BeginProgress() {
    const auto procedures = static_cast<std::int32_t>(m_procedures.size());
    m_context.Progress.Info().BeginSourceFile(
        m_subject.File.Name,
        m_subject.File.Filename,
        procedures * kStepsOfProcedure + m_statistics.TotalViolations());
    return !m_context.Progress.Update(ReportProgress::kSourceFileReportState);
}

bool SourceFileReport::Advance() {
    m_context.Progress.Info().UpdateSourceFileProgress(1);
    return !m_context.Progress.Update(ReportProgress::kSourceFileReportState);
}

// ---- head ----

void SourceFileReport::InsertHead() {
    m_html.StartDocument(kPageTitle, m_context.Legend.GetStyleSheet());
    m_html.InsertBlankLine();
    m_html.InsertQuickTag(
        "h1", modUtilFunctions::FilenameFromFullPathName(m_subject.File.Filename));
    m_html.InsertQuickTag("h2", kPageTitle);
    m_html.InsertQuickTag(
        "h3",
        "Review Performed " +
            modReportFormat::FormatLongDate(m_results.Review().GetReviewData().Start));
    m_html.InsertBlankLine();
    if (m_subject.TolerancesSet || m_isUnfinished) {
        InsertVerdict();
    }
    InsertFileNames();
}

void SourceFileReport::InsertVerdict() {
    {
        const HtmlTag heading(m_html, "h3");
        m_html.TagValue("Verdict: ");
        const bool passed = m_passed && !m_isUnfinished;
        m_html.InsertQuickTag(
            "span",
            m_isUnfinished ? "&nbsp;Not reviewed&nbsp;"
            : passed       ? "&nbsp;Pass&nbsp;"
                           : "&nbsp;Fail&nbsp;",
            {"class", passed ? "passtext" : "failtext"});
    }
    m_html.InsertBlankLine();
}

void SourceFileReport::InsertFileNames() {
    const auto insertLabel = [this](std::string_view label) {
        m_html.InsertQuickTag("span", label, {"class", "emphasisedtext"});
    };
    const std::string projectReport =
        modUtilFunctions::FilenameFromFullPathName(modDorvikUtils::CreateReportFilename(
            m_subject.ProjectFile, ReportKind::Project, m_subject.Folder));
    {
        const HtmlTag paragraph(m_html, "p");
        insertLabel("Project: ");
        m_html.InsertHyperlinkedText(modReportLinks::HrefOfFile(projectReport), projectReport);
        m_html.InsertBreak();
        insertLabel("File: ");
        m_html.TagValue(modReportLinks::PathText(m_subject.File.Path + m_subject.File.Filename));
    }
    m_html.InsertBlankLine();
}

void SourceFileReport::InsertContents() {
    struct Entry {
        std::string_view Href;
        std::string_view Text;
        bool IsPresent;
    };
    const Entry entries[] = {
        {"#ToleranceFailures", "Tolerance Failures", !m_passed},
        {"#ViolationStatistics", "Violation Statistics", true},
        {"#ViolationStatisticsByCategory", "Violation Statistics By Category", true},
        {"#ImpactStatistics", "Impact Statistics", true},
        {"#LineCountStatistics", "Line Count Statistics", !m_isProjectFile},
        {"#ComplexityMetrics", "Cyclomatic Complexity", !m_isProjectFile},
        {"#ViolationDetails", "Violation Details", m_statistics.TotalViolations() > 0},
    };
    m_html.InsertQuickTag("h3", "Contents");
    const HtmlTag list(m_html, "ul");
    for (const Entry& entry : entries) {
        if (entry.IsPresent) {
            m_html.InsertHyperlinkedLI(entry.Href, entry.Text);
        }
    }
}

void SourceFileReport::InsertNumber(std::int32_t number) {
    m_html.InsertTableCell(modReportFormat::FormatNumber(number));
}

}  // namespace dorvik
