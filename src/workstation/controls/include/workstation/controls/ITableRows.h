#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace dorvik {

/// Rows of texts under headings, for the clipboard and for files.
class ITableRows {
public:
    virtual ~ITableRows() = default;
    virtual std::vector<std::string> Headings() const = 0;
    virtual std::size_t Count() const = 0;
    /// As many as there are headings. Rows are numbered from 0.
    virtual std::vector<std::string> Cells(std::size_t row) = 0;
};

}  // namespace dorvik
