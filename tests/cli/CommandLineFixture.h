#pragma once

#include "cli/ProgramRun.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// What one finished run of the program left.
struct ProgramResult {
    int ExitCode = 0;
    std::string Output;
    std::string Error;

    /// The lines of standard error.
    std::vector<std::string> Errors() const;
};

/// For tests of the program as a whole: a folder of its own to work in, and the means to fill it.
class CommandLineFixture : public ::testing::Test {
protected:
    CommandLineFixture();

    /// Runs the program in the working folder to its end. A review that names no rulebase takes a small
    /// one of the tests, which stays as it is while the sample rulebase grows.
    ProgramResult Run(std::vector<std::string> arguments) const;
    /// The same with the arguments as they stand.
    ProgramResult RunAsTyped(std::vector<std::string> arguments) const;
    /// How to start the program in the working folder, with that rulebase too.
    ProgramRun::Settings Settings(std::vector<std::string> arguments) const;

    /// Writes a file below the working folder; the lines get CR LF.
    void WriteLines(const std::string& name, std::initializer_list<std::string_view> lines) const;
    void WriteBytes(const std::string& name, std::string_view bytes) const;
    /// Copies a folder of samples below the working folder under its own name.
    void CopySample(const std::string& name) const;
    /// A project of one module, both named so, which has a procedure with this body.
    void WriteModuleProject(const std::string& name, std::string_view body) const;

    std::filesystem::path Work(const std::string& name) const { return m_work / name; }
    bool Exists(const std::string& name) const { return std::filesystem::exists(Work(name)); }
    std::string Bytes(const std::string& name) const;

    /// The one value that a query on a results database gives, as text; empty if there is no row.
    std::string Query(const std::string& name, std::string_view sql) const;

private:
    ProgramResult Finished(const ProgramRun::Settings& settings) const;

    TemporaryFolder m_folder;
    std::filesystem::path m_work;
    std::filesystem::path m_state;
};

/// Each line of standard error is one sentence of the program's own, on one line.
void ExpectClearSentences(const ProgramResult& result);

}  // namespace dorvik::test
