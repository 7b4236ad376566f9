#pragma once

#include "SummaryRows.h"
#include "source/BasicObject.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"
#include "workstation/controls/ComboBox.h"
#include "workstation/controls/ListTable.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ResultsDB;
struct CategorySeverityLists;
struct ToleranceSettings;

/// Reads the pages of the review summary from the results and adds their rows to the list, whose columns are there
/// already. A failure is logged under the module "frmReviewSummary" and leaves the list as far as it had come.
class ReviewSummaryPages {
public:
    /// REQUIRES: both outlive this, and the results stay open.
    ReviewSummaryPages(ResultsDB& results, ListTable& list);

    const std::string& ProjectName() const { return m_project.Name; }

    void PopulateReviewSummary();
    void PopulateReviewCriteria();
    void PopulateViolationsSummary();
    void PopulateImpactSummary();
    void PopulateLineCountSummary();
    void PopulateTolerancesSummary();
    /// The procedures of a source file, or the source files for 0.
    void PopulateComplexitySummary(std::int32_t sourceId);

    /// The entries of the files box: all files, then each one that has procedures.
    std::vector<ComboItem> SourceFileItems();

private:
    void AddReview();
    void AddFigures(const SourceLineStatistics& lines, const ViolationStatistics& violations);
    void AddToleranceFailures();
    void AddViolationStatistics(const ViolationStatistics& violations);
    void AddSeverityFigures(
        const SeverityFigures& figures,
        const CategorySeverityLists& lists,
        std::string_view heading,
        std::string_view icon);
    void AddLineCountStatistics(const SourceLineStatistics& lines);
    void AddSourceFileStatistics();
    void AddSourceLineStatistics(const SourceLineStatistics& lines);

    void AddReviewCriteriaRows();
    void AddTolerances(const ToleranceSettings& tolerances, const CategorySeverityLists& lists);
    /// The rows of the seven columns: five figures and their total.
    void AddSeverityColumns(bool impacts);
    void AddComplexityRow(
        std::string text, std::string_view icon, std::int32_t complexity, std::string key = {});
    void AddProcedureComplexities(std::int32_t sourceId);
    void AddSourceFileComplexities();

    std::vector<BasicObject> SourceFiles();
    bool IsProjectFile(const BasicObject& file) const;
    std::string NameOf(const BasicObject& file) const;
    std::string_view IconOf(const BasicObject& file) const;

    ResultsDB& m_results;
    SummaryRows m_rows;
    std::int32_t m_projectId;
    BasicObject m_project;
};

}  // namespace dorvik
