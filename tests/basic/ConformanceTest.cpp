#include "basic/ScriptCase.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace dorvik::basic::test {

namespace {

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

}  // namespace

TEST(Conformance, EveryCaseDoesWhatItSays) {
    std::size_t count = 0;
    for (const std::filesystem::path& file : CaseFiles()) {
        for (const ScriptCase& scriptCase : ReadScriptCases(file)) {
            ++count;
            const std::string disagreement = Disagreement(scriptCase);
            EXPECT_TRUE(disagreement.empty()) << scriptCase.Place() << "\n  " << disagreement;
        }
    }
    EXPECT_GE(count, 600U) << "Where have the cases gone?";
}

TEST(Conformance, NoTwoCasesOfAFileHaveOneName) {
    for (const std::filesystem::path& file : CaseFiles()) {
        std::vector<std::string> names;
        for (const ScriptCase& scriptCase : ReadScriptCases(file)) {
            names.push_back(scriptCase.Name);
        }
        std::ranges::sort(names);
        const auto twice = std::ranges::adjacent_find(names);
        EXPECT_TRUE(twice == names.end()) << file << ": " << *twice;
    }
}

}  // namespace dorvik::basic::test
