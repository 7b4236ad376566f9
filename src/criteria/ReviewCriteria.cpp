#include "criteria/ReviewCriteria.h"

#include "foundation/text/modUtilFunctions.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"

#include <utility>

namespace dorvik {

namespace {

constexpr const char* kDefaultBatchName = "Review.batch";

}  // namespace

ReviewCriteria::ReviewCriteria(const DVKWorkData& settings)
    : m_useProjectFolderResults(settings.UseProjectFolderResults),
      m_fixedFolderResults(settings.LastResultsPath),
      m_reportOption(settings.LastReportOption),
      m_useProjectFolderReports(settings.UseProjectFolderReports),
      m_fixedFolderReports(settings.LastReportsPath) {}

ReviewCriteria::ReviewCriteria() : ReviewCriteria(modGlobal::WorkData()) {}

bool ReviewCriteria::Dirty() const {
    return m_dirty || m_loadCriteria.Dirty() || m_projectList.Dirty();
}

void ReviewCriteria::SetDirty(bool dirty) {
    m_dirty = dirty;
    m_loadCriteria.SetDirty(dirty);
    m_projectList.SetDirty(dirty);
}

void ReviewCriteria::SetReviewType(dorvik::ReviewType type) {
    m_reviewType = type;
    m_dirty = true;
}

void ReviewCriteria::SetBackgroundReview(bool background) {
    m_backgroundReview = background;
    m_dirty = true;
}

void ReviewCriteria::SetUseProjectFolderResults(bool use) {
    m_useProjectFolderResults = use;
    m_dirty = true;
}

void ReviewCriteria::SetFixedFolderResults(std::string folder) {
    m_fixedFolderResults = std::move(folder);
    m_dirty = true;
}

void ReviewCriteria::SetReportOption(std::int32_t option) {
    m_reportOption = option;
    m_dirty = true;
}

void ReviewCriteria::SetClearLogBeforeReview(bool clear) {
    m_clearLogBeforeReview = clear;
    m_dirty = true;
}

void ReviewCriteria::SetUseProjectFolderReports(bool use) {
    m_useProjectFolderReports = use;
    m_dirty = true;
}

void ReviewCriteria::SetFixedFolderReports(std::string folder) {
    m_fixedFolderReports = std::move(folder);
    m_dirty = true;
}

void ReviewCriteria::SetKeepsKnownFaults(bool keeps) {
    m_keepsKnownFaults = keeps;
    m_dirty = true;
}

void ReviewCriteria::SetToleranceCount(std::int32_t index, std::int32_t limit) {
    m_tolerances.Count.SetItem(index, limit);
    m_dirty = true;
}

void ReviewCriteria::SetToleranceImpact(std::int32_t index, std::int32_t limit) {
    m_tolerances.Impact.SetItem(index, limit);
    m_dirty = true;
}

void ReviewCriteria::SetTolerancePercentageComments(std::int32_t percentage) {
    m_tolerances.PercentageComments = percentage;
    m_dirty = true;
}

void ReviewCriteria::SetToleranceCyclomaticComplexity(std::int32_t complexity) {
    m_tolerances.CyclomaticComplexity = complexity;
    m_dirty = true;
}

void ReviewCriteria::SetBatchTitle(std::string title) {
    m_batchTitle = std::move(title);
    m_dirty = true;
}

void ReviewCriteria::SetBatchFilename(std::string filename) {
    m_batchFilename = std::move(filename);
    m_dirty = true;
}

std::string ReviewCriteria::BatchFilenameOrDefault() const {
    if (!m_batchFilename.empty()) {
        return m_batchFilename;
    }
    std::int32_t first = 1;
    while (first < m_projectList.Count() && !m_projectList.Selected(first)) {
        ++first;
    }
    std::string folder;
    if (m_projectList.Count() > 0) {
        folder = modUtilFunctions::PathFromFilename(m_projectList.Item(first)->Filename());
    }
    return folder + kDefaultBatchName;
}

void ReviewCriteria::SetWritesBatchReport(bool writes) {
    m_writesBatchReport = writes;
    m_dirty = true;
}

void ReviewCriteria::SetReviewStarted(const DateTime& started) {
    m_reviewStarted = started;
    m_dirty = true;
}

}  // namespace dorvik
