#include "ReviewSummaryPages.h"

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "results/ResultsDB.h"
#include "source/modMemberStats.h"
#include "workstation/dialogs/modAllItems.h"
#include "workstation/dialogs/modItemIcons.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "frmReviewSummary";
constexpr std::string_view kProjectType = "Project";
constexpr std::string_view kSections[] = {"Declarations", "Layout"};
constexpr std::string_view kProperties[] = {"Property Let", "Property Get", "Property Set"};
constexpr std::string_view kPublic = "Public";

bool IsAnyOf(std::string_view text, const auto& texts) {
    for (const std::string_view candidate : texts) {
        if (modTextCase::Equal(candidate, text)) {
            return true;
        }
    }
    return false;
}

std::string_view ProcedureIcon(const BasicObject& procedure) {
    const bool isPublic = modTextCase::Equal(procedure.Scope, kPublic);
    if (IsAnyOf(procedure.ObjectType, kProperties)) {
        return isPublic ? "PublicProperty" : "Property";
    }
    return isPublic ? "PublicMethod" : "Method";
}

std::string NameWithFile(const BasicObject& object) {
    return object.Name + " (" + object.Filename + ")";
}

}  // namespace

ReviewSummaryPages::ReviewSummaryPages(ResultsDB& results, ListTable& list)
    : m_results(results),
      m_rows(list),
      m_projectId(results.ProjectID()),
      m_project(results.Items().GetProjectDetails(/*ignoreFilter=*/true)) {}

std::vector<BasicObject> ReviewSummaryPages::SourceFiles() {
    return m_results.Items().GetProjectSourceFileList(
        /*includeAll=*/true, /*sortByFilename=*/false);
}

bool ReviewSummaryPages::IsProjectFile(const BasicObject& file) const {
    return modTextCase::Equal(file.ObjectType, kProjectType);
}

std::string ReviewSummaryPages::NameOf(const BasicObject& file) const {
    return NameWithFile(IsProjectFile(file) ? m_project : file);
}

std::string_view ReviewSummaryPages::IconOf(const BasicObject& file) const {
    return IsProjectFile(file) ? modItemIcons::ProjectIconKeyFromType(m_project.ObjectType)
                               : std::string_view(file.ObjectType);
}

void ReviewSummaryPages::PopulateViolationsSummary() {
    Trap({kModule, "PopulateViolationsSummary"}, [&] { AddSeverityColumns(/*impacts=*/false); });
}

void ReviewSummaryPages::PopulateImpactSummary() {
    Trap({kModule, "PopulateImpactSummary"}, [&] { AddSeverityColumns(/*impacts=*/true); });
}

void ReviewSummaryPages::AddSeverityColumns(bool impacts) {
    for (const BasicObject& file : SourceFiles()) {
        const ViolationStatistics stats =
            m_results.Figures().GetViolationStats(ItemType::File, file.ObjectID);
        std::vector<ListCell> cells{ListCell{NameOf(file)}};
        for (const std::int32_t figure : impacts ? stats.Impacts() : stats.Counts()) {
            cells.push_back({std::to_string(figure)});
        }
        cells.push_back({std::to_string(impacts ? stats.TotalImpact() : stats.TotalViolations())});
        m_rows.AddRow(IconOf(file), std::move(cells));
    }
}

void ReviewSummaryPages::PopulateLineCountSummary() {
    Trap({kModule, "PopulateLineCountSummary"}, [&] {
        for (const BasicObject& file : SourceFiles()) {
            const SourceLineStatistics lines =
                m_results.Figures().GetLineStats(ItemType::File, file.ObjectID);
            std::vector<ListCell> cells{ListCell{NameOf(file)}};
            for (const std::int32_t figure :
                 {lines.CodeLines(),
                  lines.CommentOnlyLines(),
                  lines.InLineCommentLines(),
                  lines.BlankLines(),
                  lines.TotalLines()}) {
                cells.push_back({std::to_string(figure)});
            }
            m_rows.AddRow(IconOf(file), std::move(cells));
        }
    });
}

void ReviewSummaryPages::PopulateTolerancesSummary() {
    Trap({kModule, "PopulateTolerancesSummary"}, [&] {
        if (!m_results.Verdict().TolerancesSet()) {
            m_rows.AddItem("No Tolerances Set", {});
            return;
        }
        for (const BasicObject& file : SourceFiles()) {
            const bool pass = m_results.Verdict().TolerancePass(ItemType::File, file.ObjectID);
            m_rows.AddRow(IconOf(file), {ListCell{NameOf(file)}, SummaryRows::VerdictCell(pass)});
        }
        m_rows.AddBlankRow();
        const bool pass = m_results.Verdict().TolerancePass(ItemType::Project, m_projectId);
        m_rows.AddRow({}, {ListCell{"Review Verdict", {}, true}, SummaryRows::VerdictCell(pass)});
    });
}

std::vector<ComboItem> ReviewSummaryPages::SourceFileItems() {
    std::vector<ComboItem> items{modAllItems::AllFiles()};
    for (const BasicObject& file : SourceFiles()) {
        if (m_results.Items().SourceFileHasProcs(file.ObjectID, /*realProcsOnly=*/true)) {
            items.push_back(
                {std::to_string(file.ObjectID), {}, NameWithFile(file), file.ObjectType});
        }
    }
    return items;
}

void ReviewSummaryPages::PopulateComplexitySummary(std::int32_t sourceId) {
    Trap({kModule, "PopulateComplexitySummary"}, [&] {
        if (sourceId != 0) {
            AddProcedureComplexities(sourceId);
        } else {
            AddSourceFileComplexities();
        }
    });
}

void ReviewSummaryPages::AddProcedureComplexities(std::int32_t sourceId) {
    for (const BasicObject& procedure : m_results.Items().GetSourceFileProcList(
             sourceId, /*includeAll=*/true, /*withStats=*/false)) {
        if (!IsAnyOf(procedure.Name, kSections)) {
            AddComplexityRow(
                procedure.Name, ProcedureIcon(procedure), procedure.CyclomaticComplexity);
        }
    }
}

void ReviewSummaryPages::AddSourceFileComplexities() {
    for (const BasicObject& file : SourceFiles()) {
        if (!IsProjectFile(file)) {
            AddComplexityRow(
                NameWithFile(file),
                file.ObjectType,
                file.CyclomaticComplexity,
                std::to_string(file.ObjectID));
        }
    }
}

void ReviewSummaryPages::AddComplexityRow(
    std::string text, std::string_view icon, std::int32_t complexity, std::string key) {
    m_rows.AddRow(
        icon,
        {ListCell{std::move(text)},
         ListCell{std::to_string(complexity)},
         ListCell{std::string(modMemberStats::CyclomaticComplexityToTestText(complexity))},
         ListCell{std::string(modMemberStats::CyclomaticComplexityToUnderstandText(complexity))},
         ListCell{std::string(modMemberStats::CyclomaticComplexityToChangeText(complexity))}},
        std::move(key));
}

}  // namespace dorvik
