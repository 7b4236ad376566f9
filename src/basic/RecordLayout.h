#pragma once

#include "basic/Program.h"

#include <cstdint>
#include <string>
#include <string_view>

/// How the members of a `Type` lie behind each other. In a file (what `Len` tells) there are no gaps, and a character
/// of a fixed string takes one byte; in memory (what `LenB` tells and `LSet` copies) numbers stand at even places or
/// at multiples of four, and a character takes two.
namespace dorvik::basic::modRecordLayout {

enum class Form : std::uint8_t { File, Memory };

/// The bytes of a value of a Type.
std::int64_t SizeOf(const Program& program, std::int32_t record, Form form);
/// Whether it has numbers and fixed strings only, in arrays of fixed bounds too: nothing whose bytes mean an address.
bool HasOnlyBytes(const Program& program, std::int32_t record);

/// The bytes of a value in memory. REQUIRES: `HasOnlyBytes`.
std::string BytesOf(const Program& program, const RecordBody& record);
/// Sets all members by their bytes. Raises 6, with no effect, for bytes that are no number of the member's type.
/// REQUIRES: `HasOnlyBytes`, and as many bytes as the value has.
void SetBytes(const Program& program, RecordBody& record, std::string_view bytes);

}  // namespace dorvik::basic::modRecordLayout
