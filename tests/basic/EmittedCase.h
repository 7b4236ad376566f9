#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace dorvik::basic::test {

/// A module of scripts and the code that the compiler must make of it. Files under tests/basic/emitted hold a
/// list of cases each:
///
///     ### The name of the test
///     Dim n As Long
///     n = n + 1
///     --- emits
///     Sub Main: ...
///
/// A script without a procedure of its own is the body of a `Sub Main`. With `--- emits with marks` the listing
/// also shows where `Resume` and `Resume Next` continue.
struct EmittedCase {
    std::filesystem::path File;
    std::string Name;
    std::string Source;
    bool ShowsMarks = false;
    std::string Expected;
};

/// How a failing test names its case.
void PrintTo(const EmittedCase& emitted, std::ostream* stream);

/// Throws std::runtime_error for a file that is not a list of cases.
std::vector<EmittedCase> ReadEmittedCases(const std::filesystem::path& file);
/// A file with these cases and their expected code, as `ReadEmittedCases` reads it.
std::string EmittedCasesText(const std::vector<EmittedCase>& cases);

/// What the compiler makes of the source: the disassembly of each procedure, and what the disassembler does not
/// show: flags and uses of members in braces, the first values of slots, and arguments that go back to their variables.
/// Compile errors, one a line, if there are any.
std::string EmittedCode(const EmittedCase& emitted);

}  // namespace dorvik::basic::test
