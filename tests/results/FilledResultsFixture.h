#pragma once

#include "results/ResultsDBFixture.h"

namespace dorvik::test {

/// A small finished review of a known shape, still open in `m_results`.
///
///     project 1 "Billing", file "Billing.vbp", categories 7 "Jumps" and 8 "Clarity"
///     file 1  "Billing", the project file: violation 2
///     file 2  "modA", a module of 100 lines: violation 6 of the file itself
///       procedure 1  "Declarations": violation 3
///       procedure 2  "Total", a function of complexity 9, 20 lines: violations 4 and 5
///     file 3  "frmB", a form without violations
///       procedure 3  "Layout"
///       procedure 4  "Total", a private sub
///
///     violation  item  severity  impact  category  rule type
///     1          1 1   4         50      -1        2
///     2          1 2   1         900     -1        1
///     3          1 3   3         500     8         3
///     4          2 3   2         750     7         3
///     5          2 3   2         100     7         4
///     6          2 2   5         10      8         5
///
/// The one tolerance is a critical violation count of 0, which the project file misses.
class FilledResultsFixture : public ResultsDBFixture {
protected:
    void SetUp() override {
        ResultsDBFixture::SetUp();
        m_rulebase.SetTitle("House rules");
        AddCategory(7, "Jumps");
        AddCategory(8, "Clarity");
        m_criteria.SetToleranceCount(1, 0);
        m_criteria.LoadCriteria().SetSeverityLevel(2, true);
        Start();
        WriteObjects();
        WriteViolations();
        m_results.Writer().EndReview(12);
        ASSERT_TRUE(m_results.OpenReview(m_path));
        ASSERT_THAT(m_log.Entries(), testing::IsEmpty());
    }

    /// Takes everything into the filter and says that it changed.
    RulebaseLoadCriteria& FilterOfAll() {
        auto& filter = m_results.Filter();
        filter.SetAuthorisedComponents(true);
        filter.SetAuthorisedReferences(true);
        filter.SetCodingConventions(true);
        filter.SetDocumentationConventions(true);
        filter.SetNamingConventions(true);
        filter.SetUnauthorisedKeywords(true);
        for (std::int32_t level = 1; level <= 5; ++level) {
            filter.SetSeverityLevel(level, true);
        }
        return filter;
    }

private:
    static void CountLines(VirtualObject& object, std::int32_t total, std::int32_t comments) {
        object.LineStats().SetTotalLines(total);
        object.LineStats().SetCodeLines(total - comments);
        object.LineStats().SetCommentOnlyLines(comments);
    }

    static void Count(VirtualObject& object, std::int32_t violations, std::int32_t impact) {
        object.ViolationStats().SetTotalViolations(violations);
        object.ViolationStats().SetTotalImpact(impact);
    }

    void SetUpSection(std::string_view kind, std::int32_t violations, std::int32_t impact) {
        VirtualObject section;
        m_results.Writer().SetupVObjectResults(kind, section);
        Count(section, violations, impact);
        StoreFigures(section);
    }

    void WriteObjects() {
        const auto project = SetUpProject();
        Count(*project, 6, 2310);
        StoreFigures(*project);
        const auto projectFile = SetUpTypedFile("Billing", "Project", "Billing.vbp");
        projectFile->ViolationStats().IncrementCount(1, 900);
        modTolerances::SetTolerancePassValue(*projectFile, m_criteria, true);
        StoreFigures(*projectFile);
        WriteModule();
        WriteForm();
    }

    void WriteModule() {
        const auto file = SetUpTypedFile("modA", "Module", "modA.bas");
        SetUpSection("Declarations", 1, 500);
        const auto procedure = SetUpProcedure("Total", "Function");
        procedure->Properties().Add("CyclomaticComplexity", 9);
        Count(*procedure, 2, 850);
        CountLines(*procedure, 20, 4);
        StoreFigures(*procedure);
        Count(*file, 4, 1360);
        CountLines(*file, 100, 20);
        file->Properties().Add("AverageCyclomatic", 9);
        modTolerances::SetTolerancePassValue(*file, m_criteria, false);
        StoreFigures(*file);
    }

    void WriteForm() {
        const auto file = SetUpTypedFile("frmB", "Form", "frmB.frm");
        SetUpSection("Layout", 0, 0);
        StoreFigures(*SetUpProcedure("Total", "Sub", "Private"));
        Count(*file, 0, 0);
        StoreFigures(*file);
    }

    void Log(std::int32_t itemId, ItemType itemType, Violation violation, std::int32_t ruleType) {
        violation.RuleType = ruleType;
        m_results.Writer().LogViolation(itemId, itemType, violation);
    }

    void WriteViolations() {
        Log(1, ItemType::Project, Breach(4, 50, -1), 2);
        Log(1, ItemType::File, Breach(1, 900, -1), 1);
        Log(1, ItemType::Procedure, Breach(3, 500, 8), 3);
        Log(2, ItemType::Procedure, Breach(2, 750, 7), 3);
        Log(2, ItemType::Procedure, Breach(2, 100, 7), 4);
        Log(2, ItemType::File, Breach(5, 10, 8), 5);
    }
};

}  // namespace dorvik::test
