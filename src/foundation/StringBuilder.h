#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// Builds a long text in a buffer that grows by one block at a time.
class StringBuilder {
public:
    std::string Text() const;
    /// Fills the buffer with NUL characters and sets the block size. The write position stays.
    void Initialise(std::int32_t initialSize, std::int32_t increment);
    /// Writes behind what is there. Required: at most one block is added, so a text longer than the
    /// room plus one block is cut, while the position moves on by its whole length; the next `Append`
    /// then fails, which is logged.
    void Append(std::string_view text);

    static constexpr std::int32_t kDefaultBlock = 50000;

private:
    void Overwrite(std::string_view text);

    std::string m_buffer;
    std::size_t m_position = 1;  // 1-based, where the next text goes
    std::int32_t m_blockSize = kDefaultBlock;
};

}  // namespace dorvik
