#pragma once

#include <array>

namespace dorvik {

/// The upper half of one single-byte code page; the lower half of each is ASCII.
struct CodePageTable {
    int CodePage = 0;
    /// The characters of the bytes 80 to FF, none of them ASCII or a surrogate.
    std::array<char16_t, 128> Upper{};
};

/// Null where there is no such single-byte page.
const CodePageTable* FindCodePageTable(int codePage);

}  // namespace dorvik
