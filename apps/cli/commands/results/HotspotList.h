#pragma once

#include "source/BasicObject.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class ResultsDB;

/// A file or a procedure with its figures.
struct Hotspot {
    BasicObject Object;
    std::string File;  // object name of the file that a procedure is in; empty for a file
    std::string Name;  // to be shown: the file name of a file
    /// Percentage of comment lines among code and comment lines; nothing for what has no lines of its own.
    std::optional<std::int32_t> Comments;
    /// Whether there is a complexity: not for a project file or a section.
    bool HasComplexity = true;
    bool Passed = true;    // verdict of a file; false for one that was not reviewed to its end
    bool Finished = true;  // false for such a file
};

/// Files or procedures with their figures, to find where it is worst.
class HotspotList {
public:
    /// All source files, the project file among them.
    static HotspotList OfFiles(ResultsDB& database);
    /// The procedures and sections of a file; appends to what is there.
    void AddProceduresOf(const BasicObject& file, ResultsDB& database);

    /// Sorts by one of `SortKeys`, and by name where that is alike; procedures by file first.
    void Sort(std::string_view key, bool descending);
    static std::vector<std::string> SortKeys();

    const std::vector<Hotspot>& Rows() const { return m_rows; }
    /// True if every file in the list was reviewed to its end.
    bool AllFinished() const;

private:
    std::vector<Hotspot> m_rows;
};

}  // namespace dorvik
