#include "cli/CommandLineFixture.h"

#include "platform/database/Database.h"
#include "support/FilesystemPaths.h"
#include "support/LineText.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace dorvik::test {

namespace fs = std::filesystem;

std::vector<std::string> ProgramResult::Errors() const {
    return LinesOf(Error);
}

CommandLineFixture::CommandLineFixture()
    : m_work(m_folder.HostPath() / "work"), m_state(m_folder.HostPath() / "state") {
    fs::create_directories(m_work);
    fs::create_directories(m_state);
}

ProgramRun::Settings CommandLineFixture::Settings(std::vector<std::string> arguments) const {
    const bool isReview = !arguments.empty() && arguments.front() == "review";
    if (isReview && std::ranges::find(arguments, "--rulebase") == arguments.end()) {
        arguments.insert(arguments.begin() + 1, {"--rulebase", DORVIK_RULEBASE});
    }
    return {std::move(arguments), m_work, m_state};
}

ProgramResult CommandLineFixture::Run(std::vector<std::string> arguments) const {
    return Finished(Settings(std::move(arguments)));
}

ProgramResult CommandLineFixture::RunAsTyped(std::vector<std::string> arguments) const {
    return Finished({std::move(arguments), m_work, m_state});
}

ProgramResult CommandLineFixture::Finished(const ProgramRun::Settings& settings) const {
    ProgramRun run(settings);
    run.Wait();
    EXPECT_NE(run.ExitCode(), ProgramRun::kKilled) << "the program hung";
    EXPECT_NE(run.ExitCode(), ProgramRun::kCrashed) << "the program crashed: " << run.Error();
    return {run.ExitCode(), run.Output(), run.Error()};
}

void CommandLineFixture::WriteLines(
    const std::string& name, std::initializer_list<std::string_view> lines) const {
    std::string bytes;
    for (const std::string_view line : lines) {
        bytes.append(line).append("\r\n");
    }
    WriteBytes(name, bytes);
}

void CommandLineFixture::WriteBytes(const std::string& name, std::string_view bytes) const {
    fs::create_directories(Work(name).parent_path());
    std::ofstream stream(Work(name), std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(stream.good()) << name;
}

void CommandLineFixture::CopySample(const std::string& name) const {
    const fs::path from = fs::path(DORVIK_SAMPLES_FOLDER) / name;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(from)) {
        // A review by hand may have left results beside the samples.
        const fs::path inside = fs::relative(entry.path(), from);
        if (entry.is_regular_file() && *inside.begin() != "Dorvik") {
            fs::create_directories((m_work / name / inside).parent_path());
            fs::copy_file(entry.path(), m_work / name / inside);
        }
    }
}

void CommandLineFixture::WriteModuleProject(const std::string& name, std::string_view body) const {
    WriteLines(
        name + ".vbp",
        {"Type=Exe", "Module=" + name + "; " + name + ".bas", "Name=\"" + name + "\""});
    WriteLines(
        name + ".bas",
        {"Attribute VB_Name = \"" + name + "\"", "Option Explicit", "Sub Work()", body, "End Sub"});
}

std::string CommandLineFixture::Bytes(const std::string& name) const {
    std::ifstream stream(Work(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string CommandLineFixture::Query(const std::string& name, std::string_view sql) const {
    Database database;
    database.Open(test::ProgramPath(Work(name)));
    Recordset rows = database.OpenRecordset(sql, RecordsetType::Snapshot);
    return rows.BOF() && rows.EOF_() ? std::string() : rows.Value(0).AsText();
}

void ExpectClearSentences(const ProgramResult& result) {
    for (const std::string& line : result.Errors()) {
        EXPECT_EQ(line.substr(0, 8), "dorvik: ") << result.Error;
        EXPECT_GT(line.size(), 20U) << "says nothing: " << line;
        EXPECT_EQ(line.find_first_of("\r\t"), std::string::npos) << line;
    }
}

}  // namespace dorvik::test
