#pragma once

#include <array>
#include <string_view>

/// The fields of the records in the data of the interactive page, and the columns of its tables.
namespace dorvik::modModernReportColumns {

struct Column {
    std::string_view Key;
    std::string_view Title;  // of the column; empty for a field without a column
    bool IsNumber;
};

// One array for each record, `kFiles` and so on, that the build makes from assets/columns.txt.
#include <ModernReportColumns.inc>

}  // namespace dorvik::modModernReportColumns
