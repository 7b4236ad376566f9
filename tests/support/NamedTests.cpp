#include "support/NamedTests.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace dorvik::test {

namespace {

bool IsLower(char c) {
    return c >= 'a' && c <= 'z';
}

bool IsLetterOrDigit(char c) {
    return IsLower(c) || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

class FileTest : public testing::Test {
public:
    explicit FileTest(std::function<void()> body) : m_body(std::move(body)) {}

    void TestBody() override { m_body(); }

private:
    std::function<void()> m_body;
};

}  // namespace

std::string TestName(std::string_view sentence) {
    std::string name;
    bool startsWord = true;
    for (const char c : sentence) {
        if (IsLetterOrDigit(c)) {
            name += startsWord && IsLower(c) ? static_cast<char>(c - 'a' + 'A') : c;
        }
        startsWord = !IsLetterOrDigit(c);
    }
    return name;
}

void RegisterNamedTest(NamedTest test) {
    const std::string place = test.File.string();
    testing::RegisterTest(
        test.Suite.c_str(),
        test.Name.c_str(),
        nullptr,
        nullptr,
        place.c_str(),
        test.Line,
        [body = std::move(test.Body)]() -> testing::Test* {
            return std::make_unique<FileTest>(body).release();  // gtest owns it
        });
}

void RegisterTestsOfFile(
    const std::string& suite,
    const std::filesystem::path& file,
    const std::function<void()>& registerTests) {
    try {
        registerTests();
    } catch (const std::exception& error) {
        const std::string reason = error.what();
        RegisterNamedTest({suite, "CanBeRead", file, 1, [reason] {
                               FAIL() << reason;
                           }});
    }
}

}  // namespace dorvik::test
