#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Looks for texts by the byte of them that is rarest in source code: most of the text is then skipped at the
/// speed of `memchr`, which a search for the first byte seldom reaches.
namespace dorvik::modByteSearch {

/// How common a byte is in source code, from 0, the rarest, up. Only the order means anything.
std::uint8_t Commonness(char byte);

/// The first place from `from` on where `text` has exactly the bytes of `sought`, or npos.
/// REQUIRES: sought is not empty.
std::size_t Find(std::string_view text, std::string_view sought, std::size_t from = 0);

}  // namespace dorvik::modByteSearch
