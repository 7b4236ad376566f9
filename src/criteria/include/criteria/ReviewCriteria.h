#pragma once

#include "base/DateTime.h"
#include "foundation/lists/LongArrayList.h"
#include "foundation/lists/ObjectKeyedArrayList.h"
#include "foundation/lists/StringKeyedArrayList.h"
#include "rulebase/model/RulebaseLoadCriteria.h"
#include "rulebase/model/ToleranceSettings.h"
#include "source/VirtualProject.h"

#include <cstdint>
#include <string>

namespace dorvik {

struct DVKWorkData;

/// Where the projects of a review come from.
enum class ReviewType : std::int32_t {
    ReviewType_IDE = 1,    // open in the development environment, files chosen by the user
    ReviewType_Batch = 2,  // each read from its project file, all its files taken
};
using enum ReviewType;

/// What is to be reviewed and how. It is filled before a review, read by everything in it and
/// written by no one during it; it outlives the review. Every write of a scalar sets the own flag.
class ReviewCriteria {
public:
    /// The workstation settings give some of the defaults. Without an argument those of the process
    /// are taken; that raises `kObjectNotSet` while no one uses the objects of `modGlobal`.
    explicit ReviewCriteria(const DVKWorkData& settings);
    ReviewCriteria();
    ReviewCriteria(const ReviewCriteria&) = delete;
    ReviewCriteria& operator=(const ReviewCriteria&) = delete;

    dorvik::ReviewType ReviewType() const { return m_reviewType; }
    void SetReviewType(dorvik::ReviewType type);
    RulebaseLoadCriteria& LoadCriteria() { return m_loadCriteria; }
    const RulebaseLoadCriteria& LoadCriteria() const { return m_loadCriteria; }
    bool BackgroundReview() const { return m_backgroundReview; }
    void SetBackgroundReview(bool background);
    /// Keyed by project name; only selected projects are reviewed.
    ObjectKeyedArrayList<VirtualProject>& ProjectList() { return m_projectList; }
    const ObjectKeyedArrayList<VirtualProject>& ProjectList() const { return m_projectList; }
    /// Results database and review log are beside the project file, or in the fixed folder.
    bool UseProjectFolderResults() const { return m_useProjectFolderResults; }
    void SetUseProjectFolderResults(bool use);
    const std::string& FixedFolderResults() const { return m_fixedFolderResults; }
    void SetFixedFolderResults(std::string folder);
    /// 0 no reports, 1 a project report, 2 also a report for each source file.
    std::int32_t ReportOption() const { return m_reportOption; }
    void SetReportOption(std::int32_t option);
    bool ClearLogBeforeReview() const { return m_clearLogBeforeReview; }
    void SetClearLogBeforeReview(bool clear);
    bool UseProjectFolderReports() const { return m_useProjectFolderReports; }
    void SetUseProjectFolderReports(bool use);
    const std::string& FixedFolderReports() const { return m_fixedFolderReports; }
    void SetFixedFolderReports(std::string folder);

    /// Faults of older versions are repeated, for results that must compare with theirs: a value with a "'"
    /// loses its row, and what a complete file leaves in scope reaches the next one. False at first.
    bool KeepsKnownFaults() const { return m_keepsKnownFaults; }
    void SetKeepsKnownFaults(bool keeps);

    /// The own flag, that of `LoadCriteria` or that of `ProjectList`. A write sets all three.
    bool Dirty() const;
    void SetDirty(bool dirty);

    /// What is written in place sets no flag of the criteria.
    ToleranceSettings& Tolerances() { return m_tolerances; }
    const ToleranceSettings& Tolerances() const { return m_tolerances; }
    void SetToleranceCount(std::int32_t index, std::int32_t limit);
    void SetToleranceImpact(std::int32_t index, std::int32_t limit);
    void SetTolerancePercentageComments(std::int32_t percentage);
    void SetToleranceCyclomaticComplexity(std::int32_t complexity);

    const std::string& BatchTitle() const { return m_batchTitle; }
    void SetBatchTitle(std::string title);
    const std::string& BatchFilename() const { return m_batchFilename; }
    void SetBatchFilename(std::string filename);
    /// What the batch is called by: `BatchFilename`, or where that is empty a file "Review.batch" beside the
    /// first selected project.
    std::string BatchFilenameOrDefault() const;
    /// Whether a batch review ends with the page of the batch; true at first.
    bool WritesBatchReport() const { return m_writesBatchReport; }
    void SetWritesBatchReport(bool writes);
    /// Shown in the batch report; nothing in the system assigns it.
    const DateTime& ReviewStarted() const { return m_reviewStarted; }
    void SetReviewStarted(const DateTime& started);
    /// By project name the keys of the files that were selected for the last review.
    ObjectKeyedArrayList<StringKeyedArrayList>& PreviouslySelectedFiles() {
        return m_previouslySelectedFiles;
    }
    const ObjectKeyedArrayList<StringKeyedArrayList>& PreviouslySelectedFiles() const {
        return m_previouslySelectedFiles;
    }

private:
    dorvik::ReviewType m_reviewType = ReviewType_Batch;
    RulebaseLoadCriteria m_loadCriteria;
    bool m_backgroundReview = false;
    ObjectKeyedArrayList<VirtualProject> m_projectList;
    bool m_useProjectFolderResults;
    std::string m_fixedFolderResults;
    std::int32_t m_reportOption;
    bool m_clearLogBeforeReview = false;
    bool m_useProjectFolderReports;
    std::string m_fixedFolderReports;
    bool m_keepsKnownFaults = false;
    bool m_dirty = false;
    ToleranceSettings m_tolerances;
    std::string m_batchTitle;
    std::string m_batchFilename;
    bool m_writesBatchReport = true;
    DateTime m_reviewStarted;
    ObjectKeyedArrayList<StringKeyedArrayList> m_previouslySelectedFiles;
};

}  // namespace dorvik
