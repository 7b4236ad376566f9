#pragma once

#include "basic/program/Program.h"

#include <cstdint>
#include <string>
#include <string_view>

/// How the members of a `Type` follow each other. In a file (the size that `Len` gives) there are no gaps, and a character
/// of a fixed string takes one byte; in memory (what `LenB` counts and `LSet` copies) numbers are at even offsets or
/// at multiples of four, and a character takes two.
namespace dorvik::basic::modRecordLayout {

enum class Form : std::uint8_t { File, Memory };

/// The bytes of a value of a Type, at most some 2^40. REQUIRES: no Type contains itself.
std::int64_t SizeOf(const Program& program, std::int32_t record, Form form);
/// Whether it has numbers and fixed strings only, in arrays of fixed bounds too: nothing whose bytes mean an address.
bool HasOnlyBytes(const Program& program, std::int32_t record);

/// The bytes of a value in memory. REQUIRES: `HasOnlyBytes`.
std::string BytesOf(const Program& program, const RecordBody& record);
/// A value of the same Type with other bytes. Raises 6 for bytes that are not a number of a member's type.
/// REQUIRES: a record; `HasOnlyBytes`, and as many bytes as the value has.
Value WithBytes(const Program& program, const Value& record, std::string_view bytes);

}  // namespace dorvik::basic::modRecordLayout
