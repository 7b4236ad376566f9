#include "HotspotList.h"

#include "base/modTextCase.h"
#include "cli/commands/results/ResultsItems.h"
#include "modSortRows.h"
#include "results/ResultsDB.h"
#include "results/UnfinishedFiles.h"

#include <algorithm>
#include <array>

namespace dorvik {

namespace {

std::int32_t ByName(const Hotspot& left, const Hotspot& right) {
    const std::int32_t files = modTextCase::Compare(left.File, right.File);
    return files != 0 ? files : modTextCase::Compare(left.Name, right.Name);
}

std::int32_t Order(std::int32_t left, std::int32_t right) {
    return left < right ? -1 : left > right ? 1 : 0;
}

struct SortRow {
    std::string_view Key;
    std::int32_t (*Compare)(const Hotspot& left, const Hotspot& right);
};

constexpr std::array<SortRow, 6> kSortRows = {{
    {"name", &ByName},
    {"violations",
     [](const auto& left, const auto& right) {
         return Order(left.Object.ViolationCount, right.Object.ViolationCount);
     }},
    {"impact",
     [](const auto& left, const auto& right) {
         return Order(left.Object.ViolationImpact, right.Object.ViolationImpact);
     }},
    {"lines",
     [](const auto& left, const auto& right) {
         return Order(left.Object.SourceLines, right.Object.SourceLines);
     }},
    {"comments",
     [](const auto& left, const auto& right) {
         return Order(left.Comments.value_or(0), right.Comments.value_or(0));
     }},
    {"complexity",
     [](const auto& left, const auto& right) {
         return Order(left.Object.CyclomaticComplexity, right.Object.CyclomaticComplexity);
     }},
}};

/// Nothing where no line was counted.
std::optional<std::int32_t>
PercentageOfComments(ItemType itemType, std::int32_t itemId, ResultsDB& database) {
    const SourceLineStatistics lines = database.Figures().GetLineStats(itemType, itemId);
    return lines.TotalLines() == 0 ? std::nullopt : std::optional(lines.CommentPercentage());
}

}  // namespace

HotspotList HotspotList::OfFiles(ResultsDB& database) {
    HotspotList list;
    const UnfinishedFiles unfinished = UnfinishedFiles::ReadFrom(database);
    for (BasicObject& file : database.Items().GetProjectSourceFileList(true, true)) {
        Hotspot hotspot;
        hotspot.Name = file.Filename;
        if (ResultsItems::IsProjectFile(file)) {
            hotspot.HasComplexity = false;
        } else {
            hotspot.Comments = PercentageOfComments(ItemType::File, file.ObjectID, database);
        }
        hotspot.Finished = !unfinished.Contains(file.ObjectID);
        hotspot.HasComplexity = hotspot.HasComplexity && hotspot.Finished;
        hotspot.Passed =
            hotspot.Finished && database.Verdict().TolerancePass(ItemType::File, file.ObjectID);
        hotspot.Object = std::move(file);
        list.m_rows.push_back(std::move(hotspot));
    }
    return list;
}

bool HotspotList::AllFinished() const {
    return std::all_of(
        m_rows.begin(), m_rows.end(), [](const Hotspot& row) { return row.Finished; });
}

void HotspotList::AddProceduresOf(const BasicObject& file, ResultsDB& database) {
    for (BasicObject& procedure :
         database.Items().GetSourceFileProcList(file.ObjectID, true, true)) {
        Hotspot hotspot;
        hotspot.File = file.Name;
        hotspot.Name = ResultsItems::ShownName(procedure.Name, procedure.ObjectType);
        hotspot.HasComplexity = !procedure.ObjectType.empty();
        hotspot.Comments = PercentageOfComments(ItemType::Procedure, procedure.ObjectID, database);
        hotspot.Object = std::move(procedure);
        hotspot.Object.Filename = file.Filename;
        hotspot.Object.Path = file.Path;
        m_rows.push_back(std::move(hotspot));
    }
}

void HotspotList::Sort(std::string_view key, bool descending) {
    const SortRow& row = modSortRows::Find(kSortRows, key);
    std::stable_sort(m_rows.begin(), m_rows.end(), [&](const auto& left, const auto& right) {
        const std::int32_t order = row.Compare(left, right);
        return order == 0 ? ByName(left, right) < 0 : (order < 0) != descending;
    });
}

std::vector<std::string> HotspotList::SortKeys() {
    return modSortRows::Keys(kSortRows);
}

}  // namespace dorvik
