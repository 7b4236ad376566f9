#include "ModernReportData.h"
#include "ModernReportPage.h"
#include "foundation/text/modHtmlText.h"
#include "reports/format/modReportFormat.h"

#include <algorithm>

namespace dorvik::modModernReport {

namespace {

using modHtmlText::Escape;
using modReportFormat::FormatNumber;

std::string Figure(double figure, std::int32_t decimals = 0) {
    return FormatNumber(figure, decimals, /*showZero=*/true);
}

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
    return Figure(static_cast<double>(count)) + " " + std::string(count == 1 ? one : many);
}

// ---- the verdict ----

struct Verdict {
    std::string_view Class;
    std::string_view Word;
    std::string Sentence;
};

std::size_t FailedFiles(const ModernReportData& data) {
    return static_cast<std::size_t>(
        std::count_if(data.Files.begin(), data.Files.end(), [](const ModernFile& file) {
            return !file.Failures.empty();
        }));
}

Verdict VerdictOf(const ModernReportData& data) {
    if (data.Review.End.IsZero()) {
        return {"none", "No verdict", "The results are incomplete."};
    }
    if (!data.HasTolerances) {
        return {"none", "No verdict", "The rulebase of this review sets no tolerances."};
    }
    if (data.Passed && !data.Unreviewed.empty()) {
        return {
            "none",
            "Incomplete",
            Counted(data.Unreviewed.size(), "file was", "files were") +
                " not, or not wholly, reviewed. All others keep within the tolerances."};
    }
    if (data.Passed) {
        return {"pass", "Passed", "Every file keeps within the tolerances."};
    }
    return {
        "fail",
        "Failed",
        Counted(data.Failures.size(), "tolerance is", "tolerances are") + " missed, by " +
            Figure(static_cast<double>(FailedFiles(data))) + " of " +
            Counted(data.Files.size(), "file", "files") + "."};
}

/// How far a file is from a limit, whether that is an upper or a lower one.
std::int32_t Excess(const ToleranceFailure& failure) {
    return std::abs(failure.ToleranceValue - failure.ToleranceLimit);
}

/// The files that miss one measure, and the worst of them.
struct MissedMeasure {
    std::size_t Files = 0;
    const ModernFile* WorstFile = nullptr;
    ToleranceFailure Worst;
};

MissedMeasure FindMissed(const std::string& measure, const std::vector<ModernFile>& files) {
    MissedMeasure missed;
    for (const ModernFile& file : files) {
        for (const ToleranceFailure& failure : file.Failures) {
            if (failure.Description != measure) {
                continue;
            }
            ++missed.Files;
            if (missed.WorstFile == nullptr || Excess(failure) > Excess(missed.Worst)) {
                missed.WorstFile = &file;
                missed.Worst = failure;
            }
        }
    }
    return missed;
}

std::string FailureRow(const std::string& measure, const MissedMeasure& missed) {
    std::string html = "<tr><th scope=\"row\">" + Escape(measure) + "</th><td class=\"number\">" +
                       MeasureFigure(missed.Worst, missed.Worst.ToleranceLimit) +
                       "</td><td class=\"number\">" + Figure(static_cast<double>(missed.Files)) +
                       "</td><td>";
    if (missed.WorstFile != nullptr) {
        html += Escape(missed.WorstFile->Filename) + ": <strong>" +
                MeasureFigure(missed.Worst, missed.Worst.ToleranceValue) + "</strong>";
    }
    return html + "</td></tr>\n";
}

std::string FailureTable(const ModernReportData& data) {
    if (data.Failures.empty()) {
        return {};
    }
    std::string html = "<table class=\"failures\">\n<caption>Missed tolerances</caption>\n"
                       "<thead><tr><th scope=\"col\">Tolerance</th>"
                       "<th scope=\"col\" class=\"number\">Limit</th>"
                       "<th scope=\"col\" class=\"number\">Files</th>"
                       "<th scope=\"col\">Worst</th></tr></thead>\n<tbody>\n";
    for (const ToleranceFailure& failure : data.Failures) {
        html += FailureRow(failure.Description, FindMissed(failure.Description, data.Files));
    }
    return html + "</tbody>\n</table>\n";
}

// ---- the figures ----

std::string Item(std::string_view term, const std::string& figure, const std::string& note = {}) {
    std::string html = "<div><dt>" + std::string(term) + "</dt><dd>" + figure;
    if (!note.empty()) {
        html += " <span class=\"note\">" + note + "</span>";
    }
    return html + "</dd></div>\n";
}

std::string ViolationNote(const ModernReportData& data) {
    constexpr double kLinesOfRatio = 100;
    const std::int32_t lines = data.Lines.TotalLines();
    return lines < 1 ? std::string()
                     : Figure(data.Violations.TotalViolations() * kLinesOfRatio / lines, 1) +
                           " in 100 lines";
}

std::string CommentShare(const ModernReportData& data) {
    return modReportFormat::FormatPercent(data.Lines.CommentShare().value_or(0));
}

std::string Unreviewed(const ModernReportData& data) {
    return Item(
        "Errors",
        Figure(static_cast<double>(data.Unreviewed.size())),
        data.Unreviewed.empty() ? "" : "named above");
}

std::string MainFigures(const ModernReportData& data) {
    return "<dl class=\"figures\">\n" +
           Item("Violations", Figure(data.Violations.TotalViolations()), ViolationNote(data)) +
           Item("Impact", Figure(data.Violations.TotalImpact())) +
           Item("Lines", Figure(data.Lines.TotalLines()), "code, comment and blank") +
           Item("Comments", CommentShare(data), "of code and comment lines") +
           Item(
               "Source files",
               Figure(static_cast<double>(data.SourceFileCount())),
               "and the project file") +
           Unreviewed(data) + "</dl>\n";
}

std::string Moment(const DateTime& date) {
    return date.IsZero() ? "–" : modReportFormat::FormatGeneralDate(date);
}

std::string Duration(const ReviewData& review) {
    return review.End.IsZero() ? "not finished"
                               : modReportFormat::FormatDuration(review.Start, review.End);
}

std::string ReviewFacts(const ModernReportData& data) {
    const ReviewData& review = data.Review;
    return "<dl class=\"facts\">\n" + Item("Reviewed", Moment(review.Start)) +
           Item("Duration", Duration(review)) +
           Item("Reviewed by", review.Reviewer.empty() ? "–" : Escape(review.Reviewer)) +
           Item("Rulebase", Escape(review.RulebaseTitle), Escape(review.RulebaseVersion)) +
           "</dl>\n";
}

std::string UnreviewedList(const ModernReportData& data) {
    if (data.Unreviewed.empty()) {
        return {};
    }
    std::string html = "<div class=\"notice\"><p>Not, or not wholly, reviewed:</p><ul>\n";
    for (const UnreadFile& file : data.Unreviewed) {
        html += "<li>" + Escape(file.Filename) + ": " + Escape(file.Reason) + "</li>\n";
    }
    return html + "</ul></div>\n";
}

std::string UnfinishedNotice(const ModernReportData& data) {
    return data.Review.End.IsZero()
               ? "<p class=\"notice\">This review did not reach its end. Figures may be missing."
                 "</p>\n"
               : "";
}

}  // namespace

std::string MeasureFigure(const ToleranceFailure& measure, std::int32_t figure) {
    return Figure(figure) + (measure.Description == "Percentage Comments" ? "%" : "");
}

std::string SummarySection(const ModernReportData& data) {
    const Verdict verdict = VerdictOf(data);
    const SeverityFigures& counts = data.Violations.Counts();
    return "<section id=\"summary\" aria-labelledby=\"title\">\n<header class=\"title\">\n"
           "<h1 id=\"title\">" +
           Escape(data.ProjectName) + "</h1>\n<p class=\"byline\">" + Escape(data.ProjectFilename) +
           ", reviewed on " + Escape(modReportFormat::FormatLongDate(data.Review.Start)) +
           "</p>\n" + "</header>\n<div class=\"strata\">" +
           StackedBar(counts, data.Violations.TotalViolations()) + "</div>\n" +
           UnfinishedNotice(data) + "<div class=\"verdict " + std::string(verdict.Class) +
           "\"><p class=\"word\">" + std::string(verdict.Word) + "</p><p>" + verdict.Sentence +
           "</p></div>\n" + FailureTable(data) + UnreviewedList(data) + MainFigures(data) +
           ReviewFacts(data) + "</section>\n";
}

}  // namespace dorvik::modModernReport
