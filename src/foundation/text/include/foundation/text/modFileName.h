#pragma once

#include <string>
#include <string_view>

namespace dorvik::modFileName {

/// Bytes of the longest name that `FromText` makes. The companions of a database fit in after it.
inline constexpr std::size_t kMostBytes = 230;

/// The name of a file that this program writes: `text`, which may come from anywhere, and `ending` after
/// it, which is the program's own and no part of a text. Whatever the text, the name is one that is in the
/// folder it is put into, on any system: no separator, no control character, no "..", no dot or blank at
/// its beginning, no name of a device, and not too long. A text that needs nothing stays as it is; any other
/// is changed and gets its hash after it, so that two texts do not share a name.
std::string FromText(std::string_view text, std::string_view ending);

}  // namespace dorvik::modFileName
