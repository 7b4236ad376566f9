#include "basic/EmittedCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>

namespace dorvik::basic::test {

namespace {

std::vector<std::filesystem::path> EmittedFiles() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(DORVIK_BASIC_CASES "/emitted")) {
        if (entry.path().extension() == ".cases") {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

std::vector<EmittedCase> EmittedCases() {
    std::vector<EmittedCase> all;
    for (const std::filesystem::path& file : EmittedFiles()) {
        for (EmittedCase& emitted : ReadEmittedCases(file)) {
            all.push_back(std::move(emitted));
        }
    }
    return all;
}

/// "assignments.cases", "A Long gets a sum" -> "assignments_ALongGetsASum".
std::string TestName(const testing::TestParamInfo<EmittedCase>& test) {
    std::string name;
    for (const char character : test.param.File.stem().string()) {
        name += character == '-' ? '_' : character;
    }
    name += '_';
    bool beginsWord = true;
    for (const char character : test.param.Name) {
        const auto letter = static_cast<unsigned char>(character);
        if (std::isalnum(letter) != 0) {
            name += static_cast<char>(beginsWord ? std::toupper(letter) : letter);
        }
        beginsWord = std::isalnum(letter) == 0;
    }
    return name;
}

}  // namespace

class EmittedCodeCase : public testing::TestWithParam<EmittedCase> {};

TEST_P(EmittedCodeCase, IsWhatTheCaseExpects) {
    EXPECT_EQ(EmittedCode(GetParam()), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(All, EmittedCodeCase, testing::ValuesIn(EmittedCases()), TestName);

// With DORVIK_EMITTED_NOW=folder the files with what the compiler emits now are left there, to be compared.
TEST(EmittedCodeFiles, AreWrittenAsTheyAreRead) {
    const char* const folder = std::getenv("DORVIK_EMITTED_NOW");
    for (const std::filesystem::path& file : EmittedFiles()) {
        std::vector<EmittedCase> cases = ReadEmittedCases(file);
        std::ifstream stream(file);
        const std::string text(std::istreambuf_iterator<char>(stream), {});
        EXPECT_EQ(EmittedCasesText(cases), text) << file;
        if (folder != nullptr) {
            for (EmittedCase& emitted : cases) {
                emitted.Expected = EmittedCode(emitted);
            }
            std::ofstream(std::filesystem::path(folder) / file.filename())
                << EmittedCasesText(cases);
        }
    }
}

}  // namespace dorvik::basic::test
