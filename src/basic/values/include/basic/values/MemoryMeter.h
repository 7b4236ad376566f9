#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>

namespace dorvik::basic {

/// Counts the bytes that the strings, arrays and collections of all scripts of this thread hold, so
/// that a script cannot eat the machine. Values may outlive the engine that made them.
class MemoryMeter {
public:
    static MemoryMeter& Current();

    std::size_t Limit() const { return m_limit; }
    void SetLimit(std::size_t bytes) { m_limit = bytes == 0 ? kUnlimited : bytes; }  // 0: none
    std::size_t StringLimit() const { return m_stringLimit; }
    /// In bytes; a longer string raises 14. 0: only the limit of the language, 2^31 - 1.
    void SetStringLimit(std::size_t bytes) {
        m_stringLimit = bytes == 0 ? kLongestString : std::min(bytes, kLongestString);
    }
    std::size_t Used() const { return m_used; }

    /// Raises 7, "Out of memory (the limit of N bytes was reached)", and counts nothing, when the limit would be passed.
    void Charge(std::size_t bytes) {
        if (bytes > m_limit || m_used > m_limit - bytes) {
            RaiseOutOfMemory();
        }
        m_used += bytes;
    }
    void Refund(std::size_t bytes) noexcept { m_used -= std::min(bytes, m_used); }
    /// Raises 14 with a text that names the limit.
    void CheckString(std::size_t bytes) const {
        if (bytes > m_stringLimit) {
            RaiseOutOfStringSpace();
        }
    }

private:
    static constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t kLongestString = 0x7FFFFFFF;

    [[noreturn]] void RaiseOutOfMemory() const;
    [[noreturn]] void RaiseOutOfStringSpace() const;

    std::size_t m_limit = 256u << 20;
    std::size_t m_stringLimit = 64u << 20;
    std::size_t m_used = 0;
};

namespace detail {
inline constinit thread_local MemoryMeter t_memoryMeter;
}  // namespace detail

inline MemoryMeter& MemoryMeter::Current() {
    return detail::t_memoryMeter;
}

}  // namespace dorvik::basic
