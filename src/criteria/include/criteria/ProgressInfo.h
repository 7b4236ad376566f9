#pragma once

#include "base/DateTime.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// The one record through which a review reports what it is doing: counters, names,
/// times, three percentages, and a changed flag that says whether showing it is worthwhile.
/// It lives as long as the review's driver. Counters are 16 bits wide and raise `kOverflow`
/// beyond 32767.
class ProgressInfo {
public:
    void BeginReview(std::int32_t numProjects);
    void BeginBatchReport();
    void LoadProject(std::string_view name, std::string_view path, std::int32_t numSourceFiles);
    void BeginProject();
    /// Required: leaves the changed flag alone, as does `BeginSourceFileReports`.
    void BeginSourceFiles(std::int32_t numSourceFiles);
    void BeginSourceFileReports(std::int32_t numReports);
    /// `size` is in the units of `UpdateSourceFileProgress`.
    void BeginSourceFile(std::string_view name, std::string_view path, std::int32_t size);
    void UpdateSourceFileProgress(std::int32_t delta);
    void EndSourceFile();
    void EndProject();
    void EndReview();
    void BeginPreScan();
    void PreScanFile(std::string_view name, std::string_view path);
    /// The changed flag, which the call clears.
    bool HasChanged();
    /// Computes the percentages anew; sets the changed flag only if one of them moved. Runs after
    /// every parser tick.
    void RecalcPercentages();

    const DateTime& ReviewStartTime() const { return m_reviewStartTime; }
    const DateTime& ReviewEndTime() const { return m_reviewEndTime; }
    std::int16_t NumProjects() const { return m_numProjects; }
    std::int16_t CurrentProject() const { return m_currentProject; }  // 1-based
    std::int16_t NumSourceFiles() const { return m_numSourceFiles; }
    std::int16_t CurrentSourceFile() const { return m_currentSourceFile; }  // 1-based in the pass
    std::int16_t NumReports() const { return m_numReports; }
    const std::string& ProjectName() const { return m_projectName; }
    const std::string& ProjectPath() const { return m_projectPath; }
    const DateTime& ProjectStartTime() const { return m_projectStartTime; }
    const DateTime& ProjectEndTime() const { return m_projectEndTime; }
    const std::string& SourceFileName() const { return m_sourceFileName; }
    const std::string& SourceFilePath() const { return m_sourceFilePath; }
    void SetSourceFilePath(std::string_view path);
    std::int32_t SourceFileEnd() const { return m_sourceFileEnd; }
    std::int32_t SourceFileProgress() const { return m_sourceFileProgress; }
    const DateTime& SourceFileStartTime() const { return m_sourceFileStartTime; }
    const DateTime& SourceFileEndTime() const { return m_sourceFileEndTime; }

    /// These four set the changed flag only if the value really changes; a change of case alone
    /// goes unnoticed by the flag.
    std::int32_t Process() const { return m_process; }
    void SetProcess(std::int32_t process);
    const std::string& ProcessText() const { return m_processText; }
    void SetProcessText(std::string_view text);
    /// 1 loading rulebase, 2 reviewing, 3 generating report, 4 extracting global names,
    /// 5 loading references, 6 initialising project review, 7 loading components.
    std::int32_t Action() const { return m_action; }
    void SetAction(std::int32_t action);
    const std::string& ActionText() const { return m_actionText; }
    void SetActionText(std::string_view text);
    /// A line for the log of the view that shows the progress; a write always counts as a change.
    const std::string& LogMessage() const { return m_logMessage; }
    void SetLogMessage(std::string_view message);

    std::int16_t ReviewPercentage() const { return m_reviewPercentage; }          // 0 to 100
    std::int16_t ProjectPercentage() const { return m_projectPercentage; }        // 0 to 100
    std::int16_t SourceFilePercentage() const { return m_sourceFilePercentage; }  // not capped

private:
    double FileFraction() const;
    double ProjectFraction(double fileFraction) const;
    double ReviewFraction(double projectFraction) const;

    DateTime m_reviewStartTime;
    DateTime m_reviewEndTime;
    std::int16_t m_numProjects = 0;
    std::int16_t m_currentProject = 0;
    std::int16_t m_numSourceFiles = 0;
    std::int16_t m_currentSourceFile = 0;
    std::int16_t m_numReports = 0;
    std::int16_t m_filesBegun = 0;  // over review and report passes of the project
    std::string m_projectName;
    std::string m_projectPath;
    DateTime m_projectStartTime;
    DateTime m_projectEndTime;
    std::string m_sourceFileName;
    std::string m_sourceFilePath;
    std::int32_t m_sourceFileEnd = 0;
    std::int32_t m_sourceFileProgress = 0;
    DateTime m_sourceFileStartTime;
    DateTime m_sourceFileEndTime;
    std::int32_t m_process = 0;
    std::string m_processText;
    std::int32_t m_action = 0;
    std::string m_actionText;
    bool m_changed = false;
    std::string m_logMessage;
    std::int16_t m_reviewPercentage = 0;
    std::int16_t m_projectPercentage = 0;
    std::int16_t m_sourceFilePercentage = 0;
};

}  // namespace dorvik
