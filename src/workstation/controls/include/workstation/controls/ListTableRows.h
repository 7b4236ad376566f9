#pragma once

#include "workstation/controls/ITableRows.h"
#include "workstation/controls/ListTable.h"

#include <optional>

namespace dorvik {

/// The rows of a list as texts, in the order shown, without the blanks in front that numbers are padded with.
class ListTableRows final : public ITableRows {
public:
    /// All rows, or one. REQUIRES: `list` outlives this, and keeps its rows.
    explicit ListTableRows(const ListTable& list, std::optional<std::size_t> row = std::nullopt)
        : m_list(list), m_row(row) {}

    std::vector<std::string> Headings() const override;
    std::size_t Count() const override { return m_row ? 1 : m_list.Count(); }
    std::vector<std::string> Cells(std::size_t row) override;

private:
    const ListTable& m_list;
    std::optional<std::size_t> m_row;
};

}  // namespace dorvik
