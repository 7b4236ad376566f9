#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

using SessionWords = std::vector<std::string>;

/// Reads lines of a session script: words are separated by blanks or tabs; a word in double quotes may hold blanks, and
/// a quote written twice; a "#" at the start of a word begins a comment.
namespace modSessionWords {

/// The words of a line, none for one that is empty or a comment. Nothing for a quoted word that does not end, or that
/// continues after its end.
std::optional<SessionWords> Split(std::string_view line);

/// Whether words are what `shape` says, a letter for each: `t` any text, `n` a whole number, `s` "on" or "off". In upper
/// case they may be missing, and so may all after them.
bool Fit(const SessionWords& words, std::string_view shape);

/// REQUIRES: `word` is "on" or "off".
bool IsOn(std::string_view word);

}  // namespace modSessionWords

}  // namespace dorvik
