#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace dorvik {

/// What a grid shows for a value.
struct GridValue {
    std::string Text;
    std::string Image = {};  // name of a picture, empty for none

    friend bool operator==(const GridValue&, const GridValue&) = default;
};

/// What a grid shows for the values of a column; a value is looked up by its text.
class GridValueList {
public:
    void Clear() { m_values.clear(); }
    void Add(std::string_view value, GridValue shown) {
        m_values.insert_or_assign(std::string(value), std::move(shown));
    }
    /// Null for a value that the list lacks.
    const GridValue* Find(std::string_view value) const {
        const auto found = m_values.find(value);
        return found == m_values.end() ? nullptr : &found->second;
    }
    std::size_t Count() const { return m_values.size(); }

private:
    std::map<std::string, GridValue, std::less<>> m_values;
};

/// What the rows of a column are sorted and grouped by.
enum class GridOrdering : std::int32_t {
    Number,    // the value as a number; a check mark counts as -1
    Text,      // the value as a text
    ListText,  // the text that the value list has for it, empty for a value that it lacks
};

struct GridColumn {
    std::string Key;
    std::string Caption;
    std::string Field;  // of the record source
    GridOrdering Ordering = GridOrdering::Text;
    bool HasValueList = false;
    bool Visible = true;
    bool IsCheckBox = false;  // the user sets and clears it
    double Width = 0;         // part of the width of the grid, 0 to 1
};

/// A column by which rows are grouped or sorted. Columns are numbered from 1.
struct GridOrderKey {
    std::int32_t Column = 0;
    bool Descending = false;

    friend bool operator==(const GridOrderKey&, const GridOrderKey&) = default;
};

}  // namespace dorvik
