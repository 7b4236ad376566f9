#include "support/KillRounds.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>
#include <string_view>

namespace dorvik::test {

int KillRounds(int usual) {
    const char* const variable = std::getenv("DORVIK_KILL_ROUNDS");
    if (variable == nullptr) {
        return usual;
    }
    const std::string_view text = variable;
    int rounds = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), rounds);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() || rounds < 1) {
        ADD_FAILURE() << "DORVIK_KILL_ROUNDS is '" << text << "' instead of a number from 1";
    }
    return rounds;
}

}  // namespace dorvik::test
