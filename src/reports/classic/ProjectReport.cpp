#include "ProjectReport.h"

#include "SourceFileReport.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewAction.h"
#include "foundation/text/modUtilFunctions.h"
#include "modReportTables.h"
#include "reports/format/HtmlTag.h"
#include "reports/format/modPassRate.h"
#include "reports/format/modReportFormat.h"
#include "reports/format/modReportLinks.h"
#include "source/VirtualProject.h"
#include "source/modDorvikUtils.h"

namespace dorvik {

namespace {

constexpr std::int32_t kWholeDatabase = -1;
constexpr std::string_view kNotAvailable = "N/A";

std::string Figure(std::int32_t value) {
    return modReportFormat::FormatNumber(value);
}

std::string ViolationsRatio(std::int32_t violations, std::int32_t lines) {
    const double ratio = lines < 1 ? 0 : static_cast<double>(violations) / lines;
    return modReportFormat::FormatNumber(ratio, 2, false);
}

}  // namespace

bool ProjectReport::Write() {
    m_files =
        m_results.Items().GetProjectSourceFileList(/*includeAll=*/true, /*sortByFilename=*/true);
    ProgressInfo& progress = m_context.Progress.Info();
    progress.SetAction(reviewaction::kGeneratingReport);
    progress.BeginSourceFiles(static_cast<std::int32_t>(m_files.size()));
    if (m_context.Progress.Update(ReportProgress::kProjectReportState)) {
        return false;
    }
    ReadReview();
    WriteHead();
    WriteContents();
    WriteTables();
    modReportTables::InsertSectionHeading(m_html, "SourceFileStatistics", "Source File Statistics");
    {
        const HtmlTag table(m_html, "table", {"cellspacing", "0"});
        if (!WriteFiles()) {
            return false;
        }
        WriteCounts();
        WriteTotals();
    }
    m_html.InsertBlankLine();
    WriteCriteria();
    m_html.EndDocument();
    m_context.Output.SaveReport(
        m_html, m_order.ProjectFile, ReportKind::Project, m_order.ReportsFolder);
    return true;
}

void ProjectReport::ReadReview() {
    m_criteria = m_results.Review().GetReviewCriteria();
    m_review = m_results.Review().GetReviewData();
    m_project = m_results.Items().GetProjectDetails(/*ignoreFilter=*/true);
    m_violations = m_results.Figures().GetViolationStats(ItemType::Project, m_project.ObjectID);
    m_lines = m_results.Figures().GetLineStats(ItemType::Project, m_project.ObjectID);
    // A review without an end is incomplete and gets no verdict.
    m_tolerancesSet = !m_review.End.IsZero() && m_criteria.Tolerances.IsAnySet();
    m_unfinished = UnfinishedFiles::ReadFrom(m_results);
    if (m_tolerancesSet) {
        m_passed = m_results.Verdict().TolerancePass(ItemType::Project, 0, m_failures);
    }
    RulebaseLoadCriteria& load = m_criteria.LoadCriteria;
    load.SetRulebaseTitle(m_review.RulebaseTitle);
    load.SetRulebaseVersion(m_review.RulebaseVersion);
    load.SetRulebaseFile(m_order.RulebaseFile);
}

void ProjectReport::WriteHead() {
    const std::string name = modUtilFunctions::FilenameFromFullPathName(m_order.ProjectFile);
    m_html.StartDocument(
        name + " - Dorvik Project Summary Report", m_context.Legend.GetStyleSheet());
    m_html.InsertQuickTag("h1", name);
    m_html.InsertQuickTag("h2", "Dorvik Project Summary Report");
    m_html.InsertQuickTag(
        "h3", "Review Performed " + modReportFormat::FormatLongDate(m_review.Start));
    m_html.InsertBlankLine();
    if (!m_tolerancesSet) {
        return;
    }
    const HtmlTag heading(m_html, "h3");
    m_html.TagValue("Verdict: ");
    // Incomplete figures cannot prove that a tolerance is kept. A file that could not be opened has an error in
    // its own row.
    const bool isIncomplete = m_passed && !m_unfinished.InPart.empty();
    m_html.InsertQuickTag(
        "span",
        isIncomplete ? "&nbsp;Incomplete&nbsp;"
        : m_passed   ? "&nbsp;Pass&nbsp;"
                     : "&nbsp;Fail&nbsp;",
        {"class", m_passed && !isIncomplete ? "passtext" : "failtext"});
}

void ProjectReport::WriteContents() {
    m_html.InsertBlankLine();
    const HtmlTag list(m_html, "ul");
    m_html.InsertHyperlinkedLI("#ReviewSummaryInformation", "Review Summary Information");
    if (!m_passed) {
        m_html.InsertHyperlinkedLI("#ToleranceFailures", "Tolerance Failures");
    }
    m_html.InsertHyperlinkedLI("#ViolationStatistics", "Violation Statistics");
    m_html.InsertHyperlinkedLI(
        "#ViolationStatisticsByCategory", "Violation Statistics By Category");
    m_html.InsertHyperlinkedLI("#SourceLineStatistics", "Source Line Statistics");
    m_html.InsertHyperlinkedLI("#SourceFileStatistics", "Source File Statistics");
    m_html.InsertHyperlinkedLI("#ReviewCriteria", "Review Criteria");
}

void ProjectReport::WriteTables() {
    WriteSummary();
    if (!m_passed) {
        modReportTables::InsertToleranceFailures(m_html, m_failures, /*isProject=*/true);
    }
    modReportTables::InsertViolStatsTable(
        m_html, m_context.Legend, m_criteria.LoadCriteria, m_violations);
    auto categories =
        m_results.Figures().GetViolationStatsByCategory(kWholeDatabase, /*fileLevel=*/false);
    modReportTables::InsertViolStatsByCatTable(
        m_html, m_context.Legend, categories, m_violations.TotalViolations());
    modReportTables::InsertSourceLineStatsTable(m_html, m_lines);
}

void ProjectReport::WriteSummary() {
    ReviewSummaryInfo info;
    info.Heading = "Project";
    info.Value = m_project.Name;
    info.ReviewedBy = m_review.Reviewer;
    info.ReviewStart = modReportFormat::FormatGeneralDate(m_review.Start);
    info.ReviewEnd = kNotAvailable;
    info.ReviewDuration = kNotAvailable;
    if (!m_review.End.IsZero()) {
        info.ReviewEnd = modReportFormat::FormatGeneralDate(m_review.End);
        info.ReviewDuration = modReportFormat::FormatDuration(m_review.Start, m_review.End);
    }
    info.SourceFilesReviewed = Figure(ReviewedFiles());
    info.TotalSourceLines = Figure(m_lines.TotalLines());
    info.TotalViolations = Figure(m_violations.TotalViolations());
    info.TotalImpact = Figure(m_violations.TotalImpact());
    info.ViolationsRatio = ViolationsRatio(m_violations.TotalViolations(), m_lines.TotalLines());
    info.PercentageComments = modReportFormat::FormatPercent(m_lines.CommentShare().value_or(0));
    info.LogFile = m_order.LogFile;
    modReportTables::InsertReviewSummaryInfo(m_html, info);
}

bool ProjectReport::WriteFiles() {
    modReportTables::InsertHeadings(
        m_html, {"Source File", "Verdict", "Violations", "Impact", "Lines"}, "20%");
    for (const BasicObject& file : m_files) {
        if (!WriteFile(file)) {
            return false;
        }
    }
    return true;
}

bool ProjectReport::WriteFile(const BasicObject& file) {
    const ViolationStatistics violations =
        m_results.Figures().GetViolationStats(ItemType::File, file.ObjectID);
    const SourceLineStatistics lines =
        m_results.Figures().GetLineStats(ItemType::File, file.ObjectID);
    const std::int32_t status = ReviewStatusOf(file);
    const bool hasDetails = status == 0 && !m_unfinished.Unread.contains(file.ObjectID);
    const HtmlTag row(m_html, "tr");
    if (!WriteFileName(file, m_order.Detailed && hasDetails)) {
        return false;
    }
    if (status != 0) {
        m_html.InsertTableCell("Error", "center", "error");
        m_html.InsertQuickTag(
            "td",
            modReportFormat::GetReviewStatusDescription(status),
            {"colspan", "3", "align", "left", "class", "error"});
    } else {
        WriteVerdict(file);
        m_html.InsertTableCell(Figure(violations.TotalViolations()));
        m_html.InsertTableCell(Figure(violations.TotalImpact()));
        m_html.InsertTableCell(Figure(lines.TotalLines()));
    }
    return true;
}

/// Links the name to the page of the file, if it has one, which is written here. False if that was cancelled.
bool ProjectReport::WriteFileName(const BasicObject& file, bool hasPage) {
    // Required: a name without "." shows as empty.
    const std::string shownName = modUtilFunctions::FilenameFromFullPathName(file.Filename);
    if (!hasPage) {
        m_html.InsertTableCell(shownName, "left");
        return true;
    }
    const SourceFileReport::Subject subject{
        m_order.ProjectFile, file, m_order.ReportsFolder, m_tolerancesSet};
    if (!SourceFileReport::CreateSourceFileReport(m_context, subject, m_results)) {
        return false;
    }
    m_html.InsertHyperLinkedTableCell(
        shownName, modReportLinks::HrefOfFile(DetailFilename(file)), "left");
    return true;
}

void ProjectReport::WriteVerdict(const BasicObject& file) {
    if (m_unfinished.Contains(file.ObjectID)) {
        m_html.InsertTableCell("Not reviewed", "center", "error");
        ++m_counts.NotReviewed;
    } else if (!m_tolerancesSet) {
        m_html.InsertTableCell(kNotAvailable, "center");
    } else if (m_results.Verdict().TolerancePass(ItemType::File, file.ObjectID)) {
        m_html.InsertTableCell("Pass", {}, "pass");
        ++m_counts.Passed;
    } else {
        m_html.InsertTableCell("Fail", {}, "fail");
        ++m_counts.Failed;
    }
}

void ProjectReport::WriteCounts() {
    {
        const HtmlTag row(m_html, "tr");
        for (const std::string_view heading :
             {"&nbsp;", "Verdict", "Violations", "Impact", "Lines"}) {
            m_html.InsertQuickTag("th", heading);
        }
    }
    WriteCount("Total Passed", m_tolerancesSet ? Figure(m_counts.Passed) : "", "pass");
    WriteCount("Total Failed", m_tolerancesSet ? Figure(m_counts.Failed) : "", "fail");
    WriteCount("Total Errors", Figure(FileErrors()), "error");
}

void ProjectReport::WriteCount(
    std::string_view label, std::string_view value, std::string_view className) {
    const HtmlTag row(m_html, "tr");
    m_html.InsertTableCell(label, "left");
    if (value.empty()) {
        m_html.InsertTableCell(kNotAvailable, "center");
    } else {
        m_html.InsertTableCell(value, {}, className);
    }
    modReportTables::InsertDashes(m_html);
}

void ProjectReport::WriteTotals() {
    const HtmlTag row(m_html, "tr", {"class", "totalsline"});
    m_html.InsertTableCell("TOTALS", "left");
    m_html.InsertTableCell(PassRate(), m_tolerancesSet ? "center" : "");
    m_html.InsertTableCell(Figure(m_violations.TotalViolations()));
    m_html.InsertTableCell(Figure(m_violations.TotalImpact()));
    m_html.InsertTableCell(Figure(m_lines.TotalLines()));
}

void ProjectReport::WriteCriteria() {
    ReviewCriteriaInfo info{
        m_criteria.LoadCriteria,
        "Review Criteria",
        m_review.ActiveRules,
        m_review.RuleExecutions,
        m_criteria.Lists.Categories,
        m_criteria.Tolerances};
    info.ReviewedFiles = ReviewedFiles();
    if (m_order.Project != nullptr) {
        info.TotalFiles = m_order.Project->SourceFiles().Count();
    } else {
        info.RuleEngine = ProjectReportOrder::kNotKnown;
    }
    modReportTables::InsertReviewCriteriaTable(m_html, m_context.Legend, info);
}

std::int32_t ProjectReport::ReviewStatusOf(const BasicObject& file) const {
    if (m_order.Project == nullptr || modDorvikUtils::IsVBPFile(file.Filename)) {
        return 0;
    }
    // A file without a known name is listed under its path.
    const auto* found = m_order.Project->SourceFiles().Find(
        file.Name.empty() ? file.Path + file.Filename : file.Name);
    return found == nullptr ? 0 : static_cast<std::int32_t>((*found)->ReviewStatus());
}

std::string ProjectReport::DetailFilename(const BasicObject& file) const {
    return modUtilFunctions::FilenameFromFullPathName(modDorvikUtils::CreateReportFilename(
        m_order.ProjectFile,
        ReportKind::SourceFile,
        m_order.ReportsFolder,
        file.Path + file.Filename,
        file.Name));
}

std::string ProjectReport::PassRate() const {
    if (!m_tolerancesSet) {
        return std::string(kNotAvailable);
    }
    return modPassRate::Text(m_counts.Passed, m_counts.Failed, FileErrors());
}

std::int32_t ProjectReport::FileErrors() const {
    return m_counts.NotReviewed +
           (m_order.Project == nullptr ? 0 : m_order.Project->Outcome().FileErrors);
}

}  // namespace dorvik
