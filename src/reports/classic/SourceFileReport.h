#pragma once

#include "reports/format/HTMLHelper2.h"
#include "results/ResultsDB.h"
#include "results/ToleranceFailure.h"
#include "source/BasicObject.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ProgressInfo;
class ReportsEngine;

/// Builds the page of one source file, or of the project file: all its figures, each violation in full.
/// A section that can be cancelled returns false when it was.
class SourceFileReport {
public:
    struct Subject {
        std::string_view ProjectFile;  // full path
        const BasicObject& File;
        std::string_view Folder;     // of the reports, empty beside the project
        bool TolerancesSet = false;  // without, the page has no verdict
    };

    /// REQUIRES: all of them outlive this.
    SourceFileReport(
        ReportsEngine& engine, const Subject& subject, ResultsDB& results, ProgressInfo& progress);

    /// False where it was cancelled; the page is then not complete.
    bool Build();
    const HTMLHelper2& Html() const { return m_html; }

private:
    struct FigureTable {
        std::string_view Id;
        std::string_view Title;
        const SeverityFigures& (ViolationStatistics::*BySeverity)() const;
        std::int32_t (ViolationStatistics::*Total)() const;
        bool RowsAreProgress;
    };
    static const FigureTable kCounts;
    static const FigureTable kImpacts;

    void ReadFigures();
    bool BeginProgress();
    bool Advance();

    void InsertHead();
    void InsertVerdict();
    void InsertFileNames();
    void InsertContents();
    bool InsertFigureTable(const FigureTable& table);
    void InsertFigureHeading();
    bool InsertFigureRows(const FigureTable& table);
    /// The stored ones, which no filter touches; the rows of the tables go by them.
    const ViolationStatistics& FiguresOf(const BasicObject& location) const;
    void InsertFigureCells(const ViolationStatistics& statistics, const FigureTable& table);
    void InsertCategoryTable();
    bool InsertLineCounts();
    void InsertLineCountCells(const SourceLineStatistics& statistics);
    bool InsertComplexity();
    void InsertComplexityRow(const BasicObject& procedure);
    void InsertComplexitySummary(std::string_view label, std::int32_t complexity);
    bool InsertViolations();
    bool InsertViolationTable(std::string_view heading, const ResultsDB::ViolationList& list);

    void InsertSectionHeading(std::string_view id, std::string_view title);
    void InsertNumber(std::int32_t number);

    ReportsEngine& m_engine;
    Subject m_subject;
    ResultsDB& m_results;
    ProgressInfo& m_progress;
    HTMLHelper2 m_html;

    bool m_isProjectFile;
    std::vector<BasicObject> m_procedures;                             // the sections among them
    std::map<std::int32_t, ViolationStatistics> m_locationStatistics;  // by `ObjectID`
    ViolationStatistics m_statistics;                                  // of the file
    std::vector<ToleranceFailure> m_failures;
    bool m_passed = true;
    bool m_isUnfinished = false;  // the review did not come to the end of the file
};

}  // namespace dorvik
