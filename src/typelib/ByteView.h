#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// The number of the `BasicError` for a file that does not keep to its format.
inline constexpr std::int32_t kInvalidFileFormat = 321;

/// "0x1F4": how the faults of type libraries write a place.
std::string HexText(std::uint64_t number);

/// Raises `kInvalidFileFormat` with this text.
[[noreturn]] void RaiseFormatError(const std::string& text);

/// A named stretch of a file, read by offsets from its own start, in the byte order of Intel. What
/// is outside raises `kInvalidFileFormat` with the offset in the file and the name, so a reader
/// may follow whatever numbers a file gives it. REQUIRES: the bytes outlive the view.
class ByteView {
public:
    ByteView() = default;
    /// `name` is used in sentences: "the table of names". REQUIRES: it is a literal.
    ByteView(std::string_view bytes, std::string_view name) : m_bytes(bytes), m_name(name) {}

    std::size_t Size() const { return m_bytes.size(); }
    /// Where in the file an offset of this view is.
    std::uint64_t FileOffset(std::uint64_t offset) const { return m_start + offset; }

    std::uint16_t Word(std::uint64_t offset) const;
    std::uint32_t DoubleWord(std::uint64_t offset) const;
    std::string_view Bytes(std::uint64_t offset, std::uint64_t size) const;
    /// The bytes up to a zero, of which there must be one within the first `longest` + 1.
    std::string_view ZeroEnded(std::uint64_t offset, std::uint64_t longest) const;
    /// A GUID of 16 bytes as text in braces and capitals.
    std::string Guid(std::uint64_t offset) const;

    bool StartsWith(std::string_view bytes) const { return m_bytes.starts_with(bytes); }

    /// A stretch of this one.
    ByteView Part(std::uint64_t offset, std::uint64_t size, std::string_view name) const;
    /// What is from there to the end.
    ByteView From(std::uint64_t offset, std::string_view name) const;

private:
    void Check(std::uint64_t offset, std::uint64_t size) const;
    /// "the table of names (0x48C to 0x4E4)"
    std::string Extent() const;

    std::string_view m_bytes;
    std::uint64_t m_start = 0;  // in the file
    std::string_view m_name;
};

}  // namespace dorvik
