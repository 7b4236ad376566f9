#pragma once

#include "workstation/host/ICodeModule.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a code module answers from its lines alone.
namespace dorvik::modCodeLines {

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

}  // namespace dorvik::modCodeLines
