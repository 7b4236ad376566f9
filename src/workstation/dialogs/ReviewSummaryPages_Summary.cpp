#include "ReviewSummaryPages.h"
#include "foundation/log/Trap.h"
#include "modFileKinds.h"
#include "reports/format/modReportFormat.h"
#include "results/ResultsDB.h"
#include "source/Severity.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmReviewSummary";

}  // namespace

void ReviewSummaryPages::PopulateReviewSummary() {
    Trap({kModule, "PopulateReviewSummary"}, [&] {
        AddReview();
        const SourceLineStatistics lines =
            m_results.Figures().GetLineStats(ItemType::Project, m_projectId);
        const ViolationStatistics violations =
            m_results.Figures().GetViolationStats(ItemType::Project, m_projectId);
        AddFigures(lines, violations);
        AddToleranceFailures();
        m_rows.AddBlankRow();
        AddViolationStatistics(violations);
        m_rows.AddBlankRow();
        AddLineCountStatistics(lines);
    });
}

void ReviewSummaryPages::AddReview() {
    const ReviewData review = m_results.Review().GetReviewData();
    m_rows.AddHeading("Dorvik Review Summary", "Review");
    m_rows.AddItem("Project", m_project.Name + " (" + m_project.Filename + ")");
    m_rows.AddItem("Reviewed By", review.Reviewer);
    m_rows.AddItem("Review Date", modReportFormat::FormatLongDate(review.Start));
    if (m_results.Verdict().TolerancesSet()) {
        const bool pass = m_results.Verdict().TolerancePass(ItemType::Project, m_projectId);
        m_rows.AddRow({}, {ListCell{"Verdict"}, SummaryRows::VerdictCell(pass)});
    }
    m_rows.AddItem("Review Duration", modReportFormat::FormatDuration(review.Start, review.End));
}

void ReviewSummaryPages::AddFigures(
    const SourceLineStatistics& lines, const ViolationStatistics& violations) {
    const double ratio =
        lines.TotalLines() == 0
            ? 0
            : static_cast<double>(violations.TotalViolations()) / lines.TotalLines();
    const std::int32_t comments = lines.CommentOnlyLines() + lines.InLineCommentLines();
    const std::int32_t divisor = comments + lines.CodeLines();
    const double commentRatio = divisor < 1 ? 0 : static_cast<double>(comments) / divisor;
    m_rows.AddItem(
        "Source Files Reviewed",
        SummaryRows::NumberText(m_results.Items().GetSourceFileCount({}) - 1));
    m_rows.AddItem("Total Source Lines", SummaryRows::NumberText(lines.TotalLines()));
    m_rows.AddItem("Total Violations", SummaryRows::NumberText(violations.TotalViolations()));
    m_rows.AddItem("Total Impact", SummaryRows::NumberText(violations.TotalImpact()));
    m_rows.AddItem(
        "Violations/Source Lines Ratio",
        modReportFormat::FormatNumber(ratio, 2, /*showZero=*/true));
    m_rows.AddItem("Percentage Comments", modReportFormat::FormatPercent(commentRatio));
}

/// By description alone: at project level the failures have no figures.
void ReviewSummaryPages::AddToleranceFailures() {
    std::vector<ToleranceFailure> failures;
    m_results.Verdict().TolerancePass(ItemType::Project, m_projectId, failures);
    if (failures.empty()) {
        return;
    }
    m_rows.AddBlankRow();
    m_rows.AddHeading("Tolerance Failures", "Review");
    for (const ToleranceFailure& failure : failures) {
        m_rows.AddItem(failure.Description, {});
    }
}

void ReviewSummaryPages::AddViolationStatistics(const ViolationStatistics& violations) {
    Trap({kModule, "AddViolationStatistics"}, [&] {
        const CategorySeverityLists lists = m_results.Review().GetCategorySeverityLists();
        AddSeverityFigures(
            violations.Counts(), lists, "Violation Count Statistics", "ViolationCounts");
        m_rows.AddTotal("Total Violations", SummaryRows::NumberText(violations.TotalViolations()));
        m_rows.AddBlankRow();
        AddSeverityFigures(
            violations.Impacts(), lists, "Violation Impact Statistics", "ViolationImpacts");
        m_rows.AddTotal("Total Impact", SummaryRows::NumberText(violations.TotalImpact()));
    });
}

void ReviewSummaryPages::AddSeverityFigures(
    const SeverityFigures& figures,
    const CategorySeverityLists& lists,
    std::string_view heading,
    std::string_view icon) {
    m_rows.AddHeading(heading, icon);
    std::int32_t level = 0;
    for (const std::int32_t figure : figures) {
        ++level;
        m_rows.AddRow(
            {},
            {SummaryRows::SeverityCell(lists.Severities, level),
             ListCell{SummaryRows::NumberText(figure)}});
    }
}

void ReviewSummaryPages::AddLineCountStatistics(const SourceLineStatistics& lines) {
    Trap({kModule, "AddLineCountStatistics"}, [&] {
        AddSourceFileStatistics();
        m_rows.AddBlankRow();
        AddSourceLineStatistics(lines);
    });
}

void ReviewSummaryPages::AddSourceFileStatistics() {
    m_rows.AddHeading("Source File Statistics", "OTHER");
    std::int32_t total = 0;
    for (const modFileKinds::FileKindRow& kind : modFileKinds::kKinds) {
        // The icon of a kind is that of its type.
        const std::string_view type = FileTypeKey(kind.Type);
        std::int32_t count = m_results.Items().GetSourceFileCount(type);
        if (kind.OtherType != FileType::None) {
            count += m_results.Items().GetSourceFileCount(FileTypeKey(kind.OtherType));
        }
        if (count > 0) {
            m_rows.AddItem(kind.Text, SummaryRows::NumberText(count), type);
            total += count;
        }
    }
    m_rows.AddTotal("Total Source Files", SummaryRows::NumberText(total));
}

void ReviewSummaryPages::AddSourceLineStatistics(const SourceLineStatistics& lines) {
    const double inLinePart =
        lines.TotalLines() == 0
            ? 0
            : static_cast<double>(lines.InLineCommentLines()) / lines.TotalLines();
    m_rows.AddHeading("Source Line Statistics", "LineStats");
    m_rows.AddItem("Code Lines", SummaryRows::NumberText(lines.CodeLines()), "CodeLine");
    m_rows.AddItem(
        "Comment Only Lines", SummaryRows::NumberText(lines.CommentOnlyLines()), "CommentLine");
    m_rows.AddItem(
        "In-line Comment Lines",
        SummaryRows::NumberText(lines.InLineCommentLines()) + " (" +
            modReportFormat::FormatPercent(inLinePart) + ")",
        "InlineCommentLine");
    m_rows.AddItem("Blank Lines", SummaryRows::NumberText(lines.BlankLines()), "BlankLine");
    m_rows.AddTotal("Total Lines", SummaryRows::NumberText(lines.TotalLines()));
}

}  // namespace dorvik
