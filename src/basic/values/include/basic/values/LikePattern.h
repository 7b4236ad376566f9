#pragma once

#include <string_view>

namespace dorvik::basic {

/// Whether the whole text matches a pattern of `Like`: `?`, `*`, `#`, `[list]`, `[!list]`. Raises 93 for a
/// list without end or a range whose end is before its start, whatever the text. Time grows at most with
/// the product of both lengths.
bool MatchesLike(std::string_view text, std::string_view pattern, bool ignoresCase);

}  // namespace dorvik::basic
