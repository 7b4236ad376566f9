#include "BatchReport.h"

#include "criteria/ProgressInfo.h"
#include "criteria/ReviewAction.h"
#include "criteria/ReviewCriteria.h"
#include "foundation/text/modUtilFunctions.h"
#include "modReportTables.h"
#include "platform/host/modHost.h"
#include "reports/classic/modProjectDatabase.h"
#include "reports/format/HtmlTag.h"
#include "reports/format/modPassRate.h"
#include "reports/format/modReportFilename.h"
#include "reports/format/modReportFormat.h"
#include "reports/format/modReportLinks.h"
#include "reports/format/modSortIndex.h"
#include "results/UnfinishedFiles.h"

namespace dorvik {

namespace {

std::string Sum(std::int64_t sum) {
    return modReportFormat::FormatNumber(static_cast<double>(sum));
}

}  // namespace

void BatchReport::Write() {
    ProgressInfo& progress = m_context.Progress.Info();
    progress.BeginBatchReport();
    progress.SetAction(reviewaction::kGeneratingReport);
    WriteHead();
    WriteSummary();
    modReportTables::InsertSectionHeading(m_html, "ProjectStatistics", "Project Statistics");
    {
        const HtmlTag table(m_html, "table", {"cellspacing", "0"});
        WriteProjects();
        WriteCounts();
        WriteTotals();
    }
    m_html.InsertBlankLine();
    WriteCriteria();
    m_html.EndDocument();
    m_context.Output.SaveReport(
        m_html,
        m_criteria.BatchFilenameOrDefault(),
        ReportKind::BatchSummary,
        m_criteria.FixedFolderReports());
}

void BatchReport::WriteHead() {
    m_html.StartDocument("Dorvik Batch Summary Report", m_context.Legend.GetStyleSheet());
    m_html.InsertBlankLine();
    m_html.InsertQuickTag("h1", m_criteria.BatchTitle());
    m_html.InsertQuickTag("h2", "Dorvik Batch Summary Report");
    m_html.InsertQuickTag(
        "h3", "Review Performed: " + modReportFormat::FormatLongDate(m_criteria.ReviewStarted()));
}

void BatchReport::WriteSummary() {
    const DateTime end = modHost::Now();
    ReviewSummaryInfo info;
    info.Heading = "Batch";
    info.Value = modReportLinks::PathText(m_criteria.BatchFilename());
    info.ReviewedBy = modHost::LogonName();
    info.ReviewStart = modReportFormat::FormatGeneralDate(m_criteria.ReviewStarted());
    info.ReviewEnd = modReportFormat::FormatGeneralDate(end);
    info.ReviewDuration = modReportFormat::FormatDuration(m_criteria.ReviewStarted(), end);
    modReportTables::InsertReviewSummaryInfo(m_html, info);
}

void BatchReport::WriteProjects() {
    modReportTables::InsertHeadings(
        m_html, {"Project", "Verdict", "Violations", "Impact", "Lines"}, "20%");
    const auto& projects = m_criteria.ProjectList();
    for (const std::int32_t position : modSortIndex::MakeSortIndex(projects)) {
        if (projects.Selected(position)) {
            WriteProject(*projects.Item(position));
        }
    }
}

void BatchReport::WriteProject(const VirtualProject& project) {
    const std::string name = modUtilFunctions::FilenameFromFullPathName(project.Filename());
    const HtmlTag row(m_html, "tr");
    if (modProjectDatabase::OpenResultsDatabase(project, m_criteria, m_results) &&
        !m_results->Review().GetReviewData().End.IsZero()) {
        WriteReviewedProject(project, name);
    } else {
        WriteFailedProject(name);
        ++m_errors;
    }
}

void BatchReport::WriteFailedProject(const std::string& name) {
    m_html.InsertTableCell(name, "left");
    m_html.InsertTableCell("Error", "left", "error");
    modReportTables::InsertDashes(m_html);
}

void BatchReport::WriteReviewedProject(const VirtualProject& project, const std::string& name) {
    const BasicObject details = m_results->Items().GetProjectDetails(/*ignoreFilter=*/true);
    const auto violations =
        m_results->Figures().GetViolationStats(ItemType::Project, details.ObjectID);
    const auto lines = m_results->Figures().GetLineStats(ItemType::Project, details.ObjectID);
    if (m_criteria.ReportOption() > 0) {
        m_html.InsertHyperLinkedTableCell(name, HrefOfProject(project.Filename()), "left");
    } else {
        m_html.InsertTableCell(name, "left");
    }
    // Required: this does not test whether any tolerance is set, so every project passes without one.
    const bool passes = m_results->Verdict().TolerancePass(ItemType::Project, 0);
    if (passes && !UnfinishedFiles::ReadFrom(*m_results).InPart.empty()) {
        // Incomplete figures cannot prove that a tolerance is kept.
        m_html.InsertTableCell("Incomplete", {}, "error");
        ++m_errors;
    } else if (passes) {
        m_html.InsertTableCell("Pass", {}, "pass");
        ++m_passed;
    } else {
        m_html.InsertTableCell("Fail", {}, "fail");
        ++m_failed;
    }
    m_html.InsertTableCell(modReportFormat::FormatNumber(violations.TotalViolations()));
    m_html.InsertTableCell(modReportFormat::FormatNumber(violations.TotalImpact()));
    m_html.InsertTableCell(modReportFormat::FormatNumber(lines.TotalLines()));
    m_violations += violations.TotalViolations();
    m_impact += violations.TotalImpact();
    m_lines += lines.TotalLines();
}

std::string BatchReport::HrefOfProject(const std::string& projectFile) const {
    const std::string folder = ReportsFolder();
    const std::string report =
        modDorvikUtils::CreateReportFilename(projectFile, ReportKind::Project, folder);
    return folder.empty()
               ? modReportLinks::HrefOfPath(report)
               : modReportLinks::HrefOfFile(modUtilFunctions::FilenameFromFullPathName(report));
}

void BatchReport::WriteCounts() {
    {
        const HtmlTag row(m_html, "tr", {"class", "totalsline"});
        m_html.InsertQuickTag("td", "&nbsp;", {"colspan", "5"});
    }
    WriteCount("Total Passed", m_passed, "pass");
    WriteCount("Total Failed", m_failed, "fail");
    WriteCount("Total Errors", m_errors, "error");
}

void BatchReport::WriteCount(
    std::string_view label, std::int32_t value, std::string_view className) {
    const HtmlTag row(m_html, "tr");
    m_html.InsertTableCell(label, "left");
    m_html.InsertTableCell(modReportFormat::FormatNumber(value), {}, className);
    modReportTables::InsertDashes(m_html);
}

void BatchReport::WriteTotals() {
    const HtmlTag row(m_html, "tr", {"class", "totalsline"});
    m_html.InsertTableCell("TOTALS", "left");
    m_html.InsertTableCell(modPassRate::Text(m_passed, m_failed, m_errors), "center");
    m_html.InsertTableCell(Sum(m_violations));
    m_html.InsertTableCell(Sum(m_impact));
    m_html.InsertTableCell(Sum(m_lines));
}

void BatchReport::WriteCriteria() {
    const RulebaseLoadCriteria& load = m_criteria.LoadCriteria();
    const CategoryList& all = m_context.Legend.Categories();
    CategoryList included;
    for (std::int32_t index = 1; index <= all.Count(); ++index) {
        if (!load.IsExcludedCategoryID(all.Item(index)->ID())) {
            included.Add(all.Item(index), /*newItem=*/false);
        }
    }
    ReviewCriteriaInfo info{
        load,
        "Review Information",
        ReviewCriteriaInfo::kNoRuleCount,
        ReviewCriteriaInfo::kNoRuleCount,
        included,
        m_criteria.Tolerances()};
    info.ReviewedFiles = 1;
    modReportTables::InsertReviewCriteriaTable(m_html, m_context.Legend, info);
}

std::string BatchReport::ReportsFolder() const {
    return m_criteria.UseProjectFolderReports() ? std::string() : m_criteria.FixedFolderReports();
}

}  // namespace dorvik
