#pragma once

#include "results/ResultsDBFixture.h"
#include "settings/modGlobal.h"
#include "source/Severity.h"
#include "workstation/dialogs/FakeScreen.h"
#include "workstation/dialogs/frmReviewSummary.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// "icon|key|first cell|second cell ..."; "*" in front of a bold cell, its colour behind it where it has one.
inline std::string CellText(const ListCell& cell) {
    std::string text = (cell.Bold ? "*" : "") + cell.Text;
    if (!cell.Colour.Automatic) {
        text += "{" + std::to_string(cell.Colour.Red) + " " + std::to_string(cell.Colour.Green) +
                " " + std::to_string(cell.Colour.Blue) + "}";
    }
    return text;
}

inline std::vector<std::string> RowsOf(const ListTable& list) {
    std::vector<std::string> rows;
    for (std::size_t index = 0; index < list.Count(); ++index) {
        const ListRow& row = list.Row(index);
        std::string text = row.Icon + "|" + row.Key;
        for (const ListCell& cell : row.Cells) {
            text += "|" + CellText(cell);
        }
        rows.push_back(std::move(text));
    }
    return rows;
}

/// "Title" or, right-aligned, ">Title", its icon behind it where it has one.
inline std::vector<std::string> ColumnsOf(const ListTable& list) {
    std::vector<std::string> columns;
    for (const ListColumn& column : list.Columns()) {
        const std::string side = column.Alignment == ColumnAlignment::Right ? ">" : "";
        columns.push_back(
            side + column.Text + (column.SortIcon.empty() ? "" : " " + column.SortIcon));
    }
    return columns;
}

/// The stored review of a project "Billing":
///
///     source 1  the project file: one critical violation
///     source 2  modA, a module, 1,200 lines, complexity 12: procedures Total (public, 12), Value (property, 0), Help
///     source 3  frmB, a form with a section alone
class SummaryFixture : public ResultsDBFixture {
protected:
    void SetUp() override {
        ResultsDBFixture::SetUp();
        modGlobal::CreateGlobalObjects();
        modGlobal::WorkData() = DVKWorkData();
        m_rulebase.SetTitle("House rules");
        m_rulebase.SetVersion("1.0.7");
        AddCategory(7, "Jumps");
        AddCategory(8, "Clarity");
        auto& criteria = m_criteria.LoadCriteria();
        criteria.SetCodingConventions(true);
        criteria.SetUnauthorisedKeywords(true);
        for (const std::int32_t level : {1, 2, 3, 4}) {
            criteria.SetSeverityLevel(level, true);
        }
    }
    void TearDown() override { modGlobal::DestroyGlobalObjects(); }

    static DVKWorkData& Settings() { return modGlobal::WorkData(); }

    void WriteReview() {
        Start();
        const auto project = SetUpProject();
        CountViolations(*project, {1, 2, 0, 0, 1300}, {900, 1500, 0, 0, 0});
        CountLines(*project, 900, 200, 30, 100);
        StoreFigures(*project);
        WriteProjectFile();
        WriteModule();
        WriteForm();
        m_clock.Time = {2026, 11, 21, 14, 7, 10};
        m_results.Writer().EndReview(12345);
        ASSERT_TRUE(m_results.OpenReview(m_path));
    }

    void Open() {
        m_form = std::make_unique<frmReviewSummary>(m_screen);
        m_form->Initialise(m_results, m_log.Path(), m_folder.Path("none.html"));
    }

    std::vector<std::string> PageRows(std::int16_t tab) {
        m_form->SwitchTab(tab);
        return RowsOf(m_form->lvwReview);
    }
    std::vector<std::string> FirstCells() const {
        std::vector<std::string> texts;
        for (std::size_t index = 0; index < m_form->lvwReview.Count(); ++index) {
            texts.push_back(m_form->lvwReview.Row(index).Cells[0].Text);
        }
        return texts;
    }

    static void CountLines(
        VirtualObject& object,
        std::int32_t code,
        std::int32_t comments,
        std::int32_t inLine,
        std::int32_t blank) {
        object.LineStats().SetCodeLines(code);
        object.LineStats().SetCommentOnlyLines(comments);
        object.LineStats().SetInLineCommentLines(inLine);
        object.LineStats().SetBlankLines(blank);
        object.LineStats().SetTotalLines(code + comments + blank);
    }

    static void CountViolations(
        VirtualObject& object, const SeverityFigures& counts, const SeverityFigures& impacts) {
        std::int32_t count = 0;
        std::int32_t impact = 0;
        for (const Severity severity : kSeverities) {
            object.ViolationStats().SetCount(severity, counts[IndexOf(severity)]);
            object.ViolationStats().SetImpact(severity, impacts[IndexOf(severity)]);
            count += counts[IndexOf(severity)];
            impact += impacts[IndexOf(severity)];
        }
        object.ViolationStats().SetTotalViolations(count);
        object.ViolationStats().SetTotalImpact(impact);
    }

    void WriteProcedure(
        std::string_view name, std::string_view type, std::string_view scope, int complexity) {
        const auto procedure = SetUpProcedure(name, type, scope);
        procedure->Properties().Add("CyclomaticComplexity", complexity);
        StoreFigures(*procedure);
    }

    void WriteProjectFile() {
        const auto file = SetUpTypedFile("Billing", "Project", "Billing.vbp");
        CountViolations(*file, {1, 0, 0, 0, 0}, {900, 0, 0, 0, 0});
        modTolerances::SetTolerancePassValue(*file, m_criteria, true);
        StoreFigures(*file);
    }

    void WriteModule() {
        const auto file = SetUpTypedFile("modA", "Module", "modA.bas");
        VirtualObject section;
        m_results.Writer().SetupVObjectResults("Declarations", section);
        StoreFigures(section);
        WriteProcedure("Total", "Function", "Public", 12);
        WriteProcedure("Value", "Property Get", "Public", 0);
        WriteProcedure("Value", "Property Let", "Private", 3);
        WriteProcedure("Help", "Sub", "Private", 60);
        CountViolations(*file, {0, 2, 0, 0, 1300}, {0, 1500, 0, 0, 0});
        CountLines(*file, 900, 200, 30, 100);
        file->Properties().Add("AverageCyclomatic", 12);
        modTolerances::SetTolerancePassValue(*file, m_criteria, false);
        StoreFigures(*file);
    }

    void WriteForm() {
        const auto file = SetUpTypedFile("frmB", "Form", "frmB.frm");
        VirtualObject section;
        m_results.Writer().SetupVObjectResults("Layout", section);
        StoreFigures(section);
        modTolerances::SetTolerancePassValue(*file, m_criteria, false);
        StoreFigures(*file);
    }

    FakeScreen m_screen;
    std::unique_ptr<frmReviewSummary> m_form;
};

}  // namespace dorvik::test
