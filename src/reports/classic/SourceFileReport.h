#pragma once

#include "ReportContext.h"
#include "reports/format/HTMLHelper2.h"
#include "results/ResultsDB.h"
#include "results/ToleranceFailure.h"
#include "results/ViolationReader.h"
#include "source/BasicObject.h"
#include "source/SourceLineStatistics.h"
#include "source/ViolationStatistics.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Builds the page of one source file, or of the project file, with all figures and the full text of each violation.
/// An operation that can be cancelled returns false if it was.
class SourceFileReport {
public:
    struct Subject {
        std::string_view ProjectFile;  // full path
        const BasicObject& File;
        std::string_view Folder;     // of the reports; empty: beside the project
        bool TolerancesSet = false;  // without, the page has no verdict
    };

    /// Builds and writes the page. False if it was cancelled; no file is written then. A failure is logged, and
    /// `context.Output` lists the page as failed.
    static bool CreateSourceFileReport(
        const ReportContext& context, const Subject& subject, ResultsDB& results);

private:
    SourceFileReport(const ReportContext& context, const Subject& subject, ResultsDB& results);

    bool Build();
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
    /// The stored figures, whatever the filter is; they decide which rows the tables have.
    const ViolationStatistics& FiguresOf(const BasicObject& location) const;
    void InsertFigureCells(const ViolationStatistics& statistics, const FigureTable& table);
    void InsertCategoryTable();
    bool InsertLineCounts();
    void InsertLineCountRow(std::string_view label, ItemType itemType, std::int32_t itemId);
    void InsertLineCountCells(const SourceLineStatistics& statistics);
    bool InsertComplexity();
    bool InsertComplexityRows();
    void InsertComplexityRow(const BasicObject& procedure);
    void InsertComplexitySummary(std::string_view label, std::int32_t complexity);
    bool InsertViolations();
    bool InsertViolationTable(std::string_view heading, const ViolationReader::ViolationList& list);

    void InsertNumber(std::int32_t number);

    const ReportContext& m_context;
    Subject m_subject;
    ResultsDB& m_results;
    HTMLHelper2 m_html;

    bool m_isProjectFile;
    std::vector<BasicObject> m_procedures;                             // the sections among them
    std::map<std::int32_t, ViolationStatistics> m_locationStatistics;  // by `ObjectID`
    ViolationStatistics m_statistics;                                  // of the file
    std::vector<ToleranceFailure> m_failures;
    bool m_passed = true;
    bool m_isUnfinished = false;  // the review did not reach the end of the file
};

}  // namespace dorvik
