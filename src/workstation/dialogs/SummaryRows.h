#pragma once

#include "rulebase/model/Rulebase.h"
#include "workstation/controls/ListTable.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Adds rows to the list of the review summary. Each row gets a cell for each column of the list.
class SummaryRows {
public:
    /// REQUIRES: `list` outlives this.
    explicit SummaryRows(ListTable& list) : m_list(list) {}

    void AddRow(std::string_view icon, std::vector<ListCell> cells, std::string key = {});
    void AddItem(std::string_view text, std::string value, std::string_view icon = {});
    void AddBlankRow();
    /// A row whose first cell is bold.
    void AddHeading(std::string_view text, std::string_view icon = {});
    /// A row that is bold as a whole.
    void AddTotal(std::string_view text, std::string value);

    /// "Pass" or "Fail" in its colour.
    static ListCell VerdictCell(bool pass);
    /// The title of a severity in its colour.
    static ListCell SeverityCell(const SeverityTable& severities, std::int32_t level);
    /// Without decimals, in groups of three digits. For the first page: the others show plain figures.
    static std::string NumberText(std::int32_t number);

private:
    ListTable& m_list;
};

}  // namespace dorvik
