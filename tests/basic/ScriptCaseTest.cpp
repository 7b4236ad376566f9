#include "basic/ScriptCase.h"

#include "support/NamedTests.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace dorvik::basic::test {

namespace {

using dorvik::test::RegisterNamedTest;
using dorvik::test::RegisterTestsOfFile;
using dorvik::test::TestName;

std::vector<std::filesystem::path> CaseFiles() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(DORVIK_BASIC_CASES)) {
        if (entry.path().extension() == ".cases") {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

void ExpectItDoesWhatItSays(const ScriptCase& scriptCase) {
    const std::string disagreement = Disagreement(scriptCase);
    if (!disagreement.empty()) {
        ADD_FAILURE_AT(scriptCase.File.c_str(), scriptCase.Line)
            << scriptCase.Name << "\n  " << disagreement;
    }
}

void RegisterCasesOf(const std::filesystem::path& file, const std::string& suite) {
    for (const ScriptCase& scriptCase : ReadScriptCases(file)) {
        RegisterNamedTest({suite, TestName(scriptCase.Name), file, scriptCase.Line, [scriptCase] {
                               ExpectItDoesWhatItSays(scriptCase);
                           }});
    }
}

/// Each case of each file is a test `ScriptCases/<file>.<NameOfTheCase>`.
bool RegisterAllCases() {
    for (const std::filesystem::path& file : CaseFiles()) {
        const std::string suite = "ScriptCases/" + file.stem().string();
        RegisterTestsOfFile(suite, file, [&] { RegisterCasesOf(file, suite); });
    }
    return true;
}

const bool kCasesAreRegistered = RegisterAllCases();

}  // namespace

TEST(TestName, IsTheSentenceInOneWord) {
    EXPECT_EQ(TestName("The end of a row"), "TheEndOfARow");
    EXPECT_EQ(TestName("Left$, 16-bit \"x\" don't"), "Left16BitXDonT");
}

TEST(ScriptCases, AreAllRegistered) {
    EXPECT_TRUE(kCasesAreRegistered);
    std::size_t count = 0;
    const testing::UnitTest& program = *testing::UnitTest::GetInstance();
    for (int i = 0; i < program.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *program.GetTestSuite(i);
        if (std::string_view(suite.name()).starts_with("ScriptCases/")) {
            count += static_cast<std::size_t>(suite.total_test_count());
        }
    }
    EXPECT_GE(count, 750U) << "Where have the cases gone?";
}

TEST(ScriptCases, OfOneFileHaveDifferentNames) {
    for (const std::filesystem::path& file : CaseFiles()) {
        std::set<std::string> names;
        for (const ScriptCase& scriptCase : ReadScriptCases(file)) {
            const std::string name = TestName(scriptCase.Name);
            EXPECT_FALSE(name.empty()) << scriptCase.Place();
            EXPECT_TRUE(names.insert(name).second) << scriptCase.Place();
        }
    }
}

}  // namespace dorvik::basic::test
