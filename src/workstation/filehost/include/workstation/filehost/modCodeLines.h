#pragma once

#include "workstation/host/ICodeModule.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Lines that were replaced: `Removed` lines from `Start` on by `Inserted` others.
struct LinesChange {
    std::int32_t Start = 0;
    std::int32_t Removed = 0;
    std::int32_t Inserted = 0;
};

/// What a code module answers from its lines alone.
namespace modCodeLines {

/// `count` lines from `start` on, joined by CR LF. A line outside the module reads empty.
std::string Joined(const std::vector<std::string>& lines, std::int32_t start, std::int32_t count);

/// The parts of a text between its line ends, of whatever kind; at least one.
std::vector<std::string> SplitText(std::string_view text);

/// `ICodeModule::Find`.
std::optional<CodeRange> Find(
    const std::vector<std::string>& lines,
    std::string_view text,
    const CodeRange& within,
    const FindOptions& options);

/// The lines between those that both have at the beginning and those that both have at the end; none where they are equal.
LinesChange
Difference(const std::vector<std::string>& before, const std::vector<std::string>& after);

}  // namespace modCodeLines

}  // namespace dorvik
