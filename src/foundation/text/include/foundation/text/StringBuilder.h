#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// Builds a long text piece by piece in a buffer that grows by blocks. Sizes and positions count
/// bytes of the UTF-8 text.
// Required: an Append takes one more block at most. What does not fit in it is cut off while the
// position moves on, so the next Append fails and is logged. A block is to be far larger than a piece.
class StringBuilder {
public:
    static constexpr std::int32_t kDefaultBlock = 50000;

    /// What was appended so far.
    std::string Text() const;

    /// A buffer of `initialSize` and blocks of `increment` bytes. The position stays where it is.
    void Initialise(std::int32_t initialSize, std::int32_t increment);

    void Append(std::string_view text);

private:
    void Overwrite(std::string_view text);

    std::string m_buffer;
    std::int32_t m_position = 1;  // 1-based, of the next byte to write
    std::int32_t m_blockSize = kDefaultBlock;
};

}  // namespace dorvik
