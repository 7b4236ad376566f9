#include "workstation/controls/ListTableRows.h"

#include <algorithm>

namespace dorvik {

std::vector<std::string> ListTableRows::Headings() const {
    std::vector<std::string> headings;
    for (const ListColumn& column : m_list.Columns()) {
        headings.push_back(column.Text);
    }
    return headings;
}

std::vector<std::string> ListTableRows::Cells(std::size_t row) {
    std::vector<std::string> cells;
    if (m_row.value_or(row) < m_list.Count()) {
        for (const ListCell& cell : m_list.Row(m_row.value_or(row)).Cells) {
            cells.push_back(
                cell.Text.substr(std::min(cell.Text.find_first_not_of(' '), cell.Text.size())));
        }
    }
    cells.resize(m_list.Columns().size());
    return cells;
}

}  // namespace dorvik
