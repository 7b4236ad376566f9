#pragma once

#include "platform/host/TextFileReader.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// What came of an attempt to open a text file: either a reader, or the number of the error.
struct TextFileOpening {
    std::unique_ptr<TextFileReader> Reader;  // null after a failure
    std::int32_t ErrorNumber = 0;            // 0 after success
    /// Why a file that is there holds no text that can be read, to be put after its name; empty otherwise.
    std::string Unreadable;

    /// The file, or a folder on its path, does not exist.
    bool IsMissing() const;
    /// Raises what went wrong. REQUIRES: `Reader` is null.
    [[noreturn]] void Raise(std::string_view filename) const;
};

/// Opens a text file. A failure raises nothing: its number is the result, and nothing is logged.
/// Only a failure without a number of its own (memory runs out over a huge file) is logged, and counts
/// as 75.
TextFileOpening OpenTextFile(std::string_view filename, int codePage);

}  // namespace dorvik
