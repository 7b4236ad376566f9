#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace dorvik::basic::test {

/// One conformance case of a file under tests/basic: a script, and what it must do. A file is a list of
/// cases:
///
///     ### A name in words
///     Debug.Print 1 + 2
///     --- prints
///      3
///     ### Another
///     Dim i As Integer
///     i = 40000
///     --- raises 6 on line 2
///     ### A third
///     If True
///     --- fails to compile 1017 on line 1
///
/// A script without a `Sub Main` of its own is the body of one. Line numbers are those of the script as
/// written in the case, and can be left out. "prints" and "raises" may stand together. What a case prints
/// is compared without the blanks at the ends of lines; a line may end in "|" to show where it ends.
/// Lines before the first case that begin with "'" are comments.
struct ScriptCase {
    struct Failure {
        std::int32_t Number = 0;
        std::optional<std::int32_t> Line;
    };

    std::filesystem::path File;
    std::int32_t Line = 0;  // of the name in the file
    std::string Name;
    std::string Source;
    bool IsBody = false;  // wrapped into a Sub Main
    std::optional<std::vector<std::string>> Prints;
    std::optional<Failure> Raises;
    std::optional<Failure> FailsToCompile;

    /// Where a failure is told.
    std::string Place() const;
};

/// The cases of a file. Throws std::runtime_error with the place for a file that is no list of cases.
std::vector<ScriptCase> ReadScriptCases(const std::filesystem::path& file);

/// What the case does otherwise than it says; empty if nothing.
std::string Disagreement(const ScriptCase& scriptCase);

}  // namespace dorvik::basic::test
