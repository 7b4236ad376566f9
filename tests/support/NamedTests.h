#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace dorvik::test {

/// A sentence as the name of a test: "The end of a row" is `TheEndOfARow`. What is neither letter nor digit
/// of ASCII separates words.
std::string TestName(std::string_view sentence);

/// A test that comes from a file of data and not from a TEST of C++. `--gtest_filter=Suite.Name` runs it alone.
struct NamedTest {
    std::string Suite;  // "ScriptCases/rows"
    std::string Name;
    std::filesystem::path File;  // where a failure is to be mended
    std::int32_t Line = 0;       // 1-based
    std::function<void()> Body;
};

/// Makes a test of `test`. To be called before the tests run: from the initialiser of a constant.
void RegisterNamedTest(NamedTest test);

/// Calls `registerTests`, which registers the tests of a file. Where it throws, as for a file that cannot be
/// read, a test `suite` that fails with the reason takes their place.
void RegisterTestsOfFile(
    const std::string& suite,
    const std::filesystem::path& file,
    const std::function<void()>& registerTests);

}  // namespace dorvik::test
