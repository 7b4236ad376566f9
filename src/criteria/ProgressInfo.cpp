#include "criteria/ProgressInfo.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "platform/host/modHost.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace dorvik {

namespace {

constexpr double kHundred = 100.0;

std::int16_t Counter(std::int32_t value) {
    if (value > std::numeric_limits<std::int16_t>::max() ||
        value < std::numeric_limits<std::int16_t>::min()) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return static_cast<std::int16_t>(value);
}

std::int32_t Sum(std::int32_t left, std::int32_t right) {
    std::int32_t sum = 0;
    if (__builtin_add_overflow(left, right, &sum)) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return sum;
}

/// A fraction as a whole percentage, half to even.
std::int16_t Percentage(double fraction) {
    const double rounded = std::nearbyint(fraction * kHundred);
    if (std::fabs(rounded) > std::numeric_limits<std::int16_t>::max()) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return static_cast<std::int16_t>(rounded);
}

std::int16_t CappedPercentage(double fraction) {
    return Percentage(std::min(fraction, 1.0));
}

}  // namespace

void ProgressInfo::BeginReview(std::int32_t numProjects) {
    m_numProjects = Counter(numProjects);
    m_currentProject = 0;
    m_reviewStartTime = modHost::Now();
    m_changed = true;
}

void ProgressInfo::BeginBatchReport() {
    m_currentProject = 0;
    m_changed = true;
}

void ProgressInfo::LoadProject(
    std::string_view name, std::string_view path, std::int32_t numSourceFiles) {
    m_currentProject = Counter(m_currentProject + 1);
    m_currentSourceFile = 0;
    m_projectStartTime = modHost::Now();
    m_projectName = name;
    m_projectPath = path;
    m_numSourceFiles = Counter(numSourceFiles);
    m_changed = true;
}

void ProgressInfo::BeginProject() {
    m_filesBegun = 0;
    m_currentSourceFile = 0;
    m_changed = true;
}

void ProgressInfo::BeginSourceFiles(std::int32_t numSourceFiles) {
    m_currentSourceFile = 0;
    m_numSourceFiles = Counter(numSourceFiles);
}

void ProgressInfo::BeginSourceFileReports(std::int32_t numReports) {
    m_numReports = Counter(numReports);
}

void ProgressInfo::BeginSourceFile(
    std::string_view name, std::string_view path, std::int32_t size) {
    m_currentSourceFile = Counter(m_currentSourceFile + 1);
    m_filesBegun = Counter(m_filesBegun + 1);
    m_sourceFileStartTime = modHost::Now();
    m_sourceFileProgress = 0;
    m_sourceFileName = name;
    m_sourceFilePath = path;
    m_sourceFileEnd = size;
    m_changed = true;
}

void ProgressInfo::UpdateSourceFileProgress(std::int32_t delta) {
    m_sourceFileProgress = Sum(m_sourceFileProgress, delta);
    RecalcPercentages();
}

void ProgressInfo::EndSourceFile() {
    m_sourceFileEndTime = modHost::Now();
    m_sourceFileProgress = m_sourceFileEnd;
    m_changed = true;
    RecalcPercentages();
}

void ProgressInfo::EndProject() {
    m_projectEndTime = modHost::Now();
    m_changed = true;
}

void ProgressInfo::EndReview() {
    m_reviewEndTime = modHost::Now();
    m_changed = true;
}

void ProgressInfo::BeginPreScan() {
    m_currentSourceFile = 0;
    m_changed = true;
}

void ProgressInfo::PreScanFile(std::string_view name, std::string_view path) {
    m_sourceFileName = name;
    m_sourceFilePath = path;
    m_currentSourceFile = Counter(m_currentSourceFile + 1);
    m_changed = true;
}

bool ProgressInfo::HasChanged() {
    const bool changed = m_changed;
    m_changed = false;
    return changed;
}

void ProgressInfo::RecalcPercentages() {
    const double fileFraction = FileFraction();
    const double projectFraction = ProjectFraction(fileFraction);
    const std::int16_t file = Percentage(fileFraction);
    const std::int16_t project = CappedPercentage(projectFraction);
    const std::int16_t review = CappedPercentage(ReviewFraction(projectFraction));
    if (file == m_sourceFilePercentage && project == m_projectPercentage &&
        review == m_reviewPercentage) {
        return;
    }
    m_sourceFilePercentage = file;
    m_projectPercentage = project;
    m_reviewPercentage = review;
    m_changed = true;
}

double ProgressInfo::FileFraction() const {
    return m_sourceFileEnd >= 1 ? static_cast<double>(m_sourceFileProgress) / m_sourceFileEnd : 0.0;
}

double ProgressInfo::ProjectFraction(double fileFraction) const {
    if (m_numSourceFiles < 1 || m_filesBegun <= 0) {
        return 0.0;
    }
    const double steps = static_cast<double>(m_numSourceFiles) + m_numReports;
    return (m_filesBegun - 1) / steps + (1.0 / steps) * fileFraction;
}

double ProgressInfo::ReviewFraction(double projectFraction) const {
    if (m_numProjects < 1 || m_currentProject <= 0) {
        return 0.0;
    }
    const double projects = m_numProjects;
    return (m_currentProject - 1) / projects + (1.0 / projects) * projectFraction;
}

void ProgressInfo::SetSourceFilePath(std::string_view path) {
    m_sourceFilePath = path;
    m_changed = true;
}

void ProgressInfo::SetProcess(std::int32_t process) {
    m_changed = m_changed || m_process != process;
    m_process = process;
}

void ProgressInfo::SetProcessText(std::string_view text) {
    m_changed = m_changed || !modTextCase::Equal(m_processText, text);
    m_processText = text;
}

void ProgressInfo::SetAction(std::int32_t action) {
    m_changed = m_changed || m_action != action;
    m_action = action;
}

void ProgressInfo::SetActionText(std::string_view text) {
    m_changed = m_changed || !modTextCase::Equal(m_actionText, text);
    m_actionText = text;
}

void ProgressInfo::SetLogMessage(std::string_view message) {
    m_logMessage = message;
    m_changed = true;
}

}  // namespace dorvik
