#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace dorvik::test {

/// Where a rule was found, or is to be: "flag.bas", 7. The line is 0 where there is none.
struct SamplePlace {
    std::string File;
    std::int32_t Line = 0;

    auto operator<=>(const SamplePlace&) const = default;
};

/// A line of "expected.txt".
struct ExpectedFinding {
    SamplePlace Place;
    std::string Piece;  // that description or advice must hold; may be empty
};

/// One of the sources of a folder, with the project that is to be reviewed for it.
struct SampleSource {
    std::string Name;         // of the file or sub-folder
    std::string ProjectFile;  // path of the ".vbp" that was written, as the program names it
    bool MustFlag = false;
};

/// A folder below tests/sample-rules: the sources for one rule.
class SampleFolder {
public:
    /// The names of all folders, sorted.
    static std::vector<std::string> Names();

    explicit SampleFolder(std::string name) : m_name(std::move(name)) {}

    /// The number that the name begins with; 0 if it begins with none.
    std::int32_t RuleID() const;
    /// The names of the sources that begin so: "flag" or "pass".
    std::vector<std::string> SourceNames(const std::string& prefix) const;
    /// Raises std::runtime_error for a line that is not of the form told in README.md.
    std::vector<ExpectedFinding> Expected() const;
    /// Lays each source with a project file into a folder of its own below `target`.
    std::vector<SampleSource> WriteProjects(const class TemporaryFolder& target) const;

private:
    std::string m_name;
};

}  // namespace dorvik::test
