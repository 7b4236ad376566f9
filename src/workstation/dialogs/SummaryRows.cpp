#include "SummaryRows.h"

#include "reports/format/modNamedColour.h"
#include "reports/format/modReportFormat.h"

#include <memory>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kTotalIcon = "Total";
constexpr Colour kPassColour = Rgb(0, 128, 0);
constexpr Colour kFailColour = Rgb(255, 0, 0);

void FormatTotalLine(std::vector<ListCell>& cells) {
    for (ListCell& cell : cells) {
        cell.Bold = true;
    }
}

}  // namespace

void SummaryRows::AddRow(std::string_view icon, std::vector<ListCell> cells, std::string key) {
    if (cells.size() < m_list.Columns().size()) {
        cells.resize(m_list.Columns().size());
    }
    m_list.Add({std::move(key), std::string(icon), std::move(cells)});
}

void SummaryRows::AddItem(std::string_view text, std::string value, std::string_view icon) {
    AddRow(icon, {ListCell{std::string(text)}, ListCell{std::move(value)}});
}

void SummaryRows::AddBlankRow() {
    AddRow({}, {});
}

void SummaryRows::AddHeading(std::string_view text, std::string_view icon) {
    AddRow(icon, {ListCell{std::string(text), {}, true}});
}

void SummaryRows::AddTotal(std::string_view text, std::string value) {
    std::vector<ListCell> cells{ListCell{std::string(text)}, ListCell{std::move(value)}};
    FormatTotalLine(cells);
    AddRow(kTotalIcon, std::move(cells));
}

ListCell SummaryRows::VerdictCell(bool pass) {
    return pass ? ListCell{"Pass", kPassColour} : ListCell{"Fail", kFailColour};
}

ListCell SummaryRows::SeverityCell(const SeverityTable& severities, std::int32_t level) {
    const std::shared_ptr<SeverityItem>* const item = severities.Find(SeverityKeyOf(level));
    if (item == nullptr) {
        return {};
    }
    ListCell cell{(*item)->Title()};
    if (const NamedColour* const colour = modNamedColour::ByNumber((*item)->Colour())) {
        cell.Colour = Rgb(colour->Red, colour->Green, colour->Blue);
    }
    return cell;
}

std::string SummaryRows::NumberText(std::int32_t number) {
    return modReportFormat::FormatNumber(number, 0, /*showZero=*/true);
}

}  // namespace dorvik
