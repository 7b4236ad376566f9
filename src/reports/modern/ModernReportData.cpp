#include "ModernReportData.h"

#include "base/modTextCase.h"
#include "results/ResultsDB.h"
#include "results/UnfinishedFiles.h"
#include "results/modViolationRow.h"

#include <algorithm>
#include <unordered_map>

namespace dorvik {

namespace {

using IndexById = std::unordered_map<std::int32_t, std::size_t>;

std::string ShownName(const std::string& name, const std::string& type) {
    constexpr std::string_view kPropertyWord = "Property ";
    if (type.empty()) {
        return "(" + name + ")";
    }
    return modTextCase::StartsWith(type, kPropertyWord)
               ? name + " (" + type.substr(kPropertyWord.size()) + ")"
               : name;
}

std::string ReasonOf(const ModernReportFacts& facts, const std::string& filename) {
    for (const UnreadFile& file : facts.Unreviewed) {
        if (modTextCase::Equal(file.Filename, filename)) {
            return file.Reason;
        }
    }
    return {};
}

void ReadSeverities(ModernReportData& data) {
    for (const Severity severity : kSeverities) {
        data.Severities.at(IndexOf(severity)).Title =
            "Severity " + std::to_string(NumberOf(severity));
    }
    const SeverityTable& severities = data.Criteria.Lists.Severities;
    for (std::int32_t index = 1; index <= severities.Count(); ++index) {
        const SeverityItem& item = *severities.Item(index);
        if (const std::optional<Severity> severity = SeverityOf(item.SeverityLevel())) {
            data.Severities.at(IndexOf(*severity)) = {item.Title(), severities.Selected(index)};
        }
    }
}

/// Why a file was not reviewed, as far as the database shows.
std::string StoredReasonOf(const UnfinishedFiles& unfinished, std::int32_t sourceId) {
    return unfinished.InPart.contains(sourceId)   ? "Reviewed only in part"
           : unfinished.Unread.contains(sourceId) ? "Could not be read"
                                                  : "";
}

/// Also adds the files that were not reviewed to `data.Unreviewed`, unless the facts have them already.
void ReadFiles(ResultsDB& results, const ModernReportFacts& facts, ModernReportData& data) {
    const UnfinishedFiles unfinished = UnfinishedFiles::ReadFrom(results);
    for (BasicObject& object : results.Items().GetProjectSourceFileList(true, true)) {
        ModernFile file;
        file.ID = object.ObjectID;
        file.UnreviewedReason = ReasonOf(facts, object.Filename);
        if (file.UnreviewedReason.empty() && unfinished.Contains(file.ID)) {
            file.UnreviewedReason = StoredReasonOf(unfinished, file.ID);
            data.Unreviewed.push_back({object.Filename, file.UnreviewedReason});
        }
        file.Filename = std::move(object.Filename);
        file.Path = std::move(object.Path);
        file.IsProjectFile = modTextCase::Equal(object.ObjectType, "Project");
        file.Violations = results.Figures().GetViolationStats(ItemType::File, file.ID);
        file.Lines = results.Figures().GetLineStats(ItemType::File, file.ID);
        file.AverageComplexity = object.CyclomaticComplexity;
        results.Verdict().TolerancePass(ItemType::File, file.ID, file.Failures);
        data.Files.push_back(std::move(file));
    }
}

void NoteComplexity(const ModernProcedure& procedure, ModernFile& file) {
    if (!procedure.IsSection) {
        file.WorstComplexity = std::max(file.WorstComplexity.value_or(0), procedure.Complexity);
    }
}

IndexById IndexesOf(const std::vector<ModernFile>& files) {
    IndexById indexes;
    for (std::size_t index = 0; index < files.size(); ++index) {
        indexes[files.at(index).ID] = index;
    }
    return indexes;
}

IndexById ReadProcedures(ResultsDB& results, const IndexById& files, ModernReportData& data) {
    IndexById indexes;
    auto rows = results.OpenRecordSource(
        "SELECT ProcID, SourceID, Name, Type, CyclomaticComplexity FROM Procedures");
    for (; rows && !rows->EOF_(); rows->MoveNext()) {
        const auto file = files.find(rows->Value("SourceID").AsLong());
        if (file == files.end()) {
            continue;
        }
        const std::string type = rows->Value("Type").AsText();
        ModernProcedure procedure;
        procedure.ID = rows->Value("ProcID").AsLong();
        procedure.File = file->second;
        procedure.Name = ShownName(rows->Value("Name").AsText(), type);
        procedure.IsSection = type.empty();
        procedure.Complexity = rows->Value("CyclomaticComplexity").AsLong();
        NoteComplexity(procedure, data.Files.at(procedure.File));
        indexes[procedure.ID] = data.Procedures.size();
        data.Procedures.push_back(std::move(procedure));
    }
    return indexes;
}

void CountInProcedure(const Violation& violation, ModernProcedure& procedure) {
    if (const std::optional<Severity> severity = SeverityOf(violation.Severity)) {
        ++procedure.Violations.at(IndexOf(*severity));
    }
    ++procedure.TotalViolations;
    procedure.TotalImpact += violation.Impact;
}

std::optional<std::size_t> IndexIn(const IndexById& indexes, std::int32_t id) {
    const auto found = indexes.find(id);
    return found == indexes.end() ? std::nullopt : std::optional(found->second);
}

void ReadViolations(
    ResultsDB& results,
    const IndexById& files,
    const IndexById& procedures,
    ModernReportData& data) {
    auto rows = results.OpenRecordSource(
        "SELECT ViolationID, ItemID, ItemType, " + std::string(modViolationRow::kColumns) +
        " FROM Violations");
    for (; rows && !rows->EOF_(); rows->MoveNext()) {
        ModernViolation violation;
        violation.ID = rows->Value("ViolationID").AsLong();
        violation.Violation = modViolationRow::Read(*rows);
        const ItemType itemType = ItemTypeOf(rows->Value("ItemType").AsLong());
        const std::int32_t itemId = rows->Value("ItemID").AsLong();
        if (itemType == ItemType::File) {
            violation.File = IndexIn(files, itemId);
        } else if (itemType == ItemType::Procedure) {
            violation.Procedure = IndexIn(procedures, itemId);
        }
        if (violation.Procedure) {
            ModernProcedure& procedure = data.Procedures.at(*violation.Procedure);
            violation.File = procedure.File;
            CountInProcedure(violation.Violation, procedure);
        }
        data.AllViolations.push_back(std::move(violation));
    }
}

}  // namespace

ModernReportData ModernReportData::ReadFrom(ResultsDB& results, const ModernReportFacts& facts) {
    ModernReportData data;
    data.ProjectName = results.Items().GetProjectData("Name");
    data.ProjectFilename = results.Items().GetProjectData("Filename");
    data.ProjectPath = results.Items().GetProjectData("Path");
    data.Review = results.Review().GetReviewData();
    data.Criteria = results.Review().GetReviewCriteria();
    data.Violations = results.Figures().GetViolationStats(ItemType::Project, results.ProjectID());
    data.Lines = results.Figures().GetLineStats(ItemType::Project, results.ProjectID());
    data.Categories = results.Figures().GetViolationStatsByCategory(-1, /*fileLevel=*/false);
    data.HasTolerances = data.Criteria.Tolerances.IsAnySet();
    data.Passed =
        results.Verdict().TolerancePass(ItemType::Project, results.ProjectID(), data.Failures);
    data.Unreviewed = facts.Unreviewed;
    ReadSeverities(data);
    ReadFiles(results, facts, data);
    const IndexById files = IndexesOf(data.Files);
    const IndexById procedures = ReadProcedures(results, files, data);
    ReadViolations(results, files, procedures, data);
    return data;
}

std::size_t ModernReportData::SourceFileCount() const {
    return static_cast<std::size_t>(std::count_if(
        Files.begin(), Files.end(), [](const ModernFile& file) { return !file.IsProjectFile; }));
}

}  // namespace dorvik
