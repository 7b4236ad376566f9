#pragma once

#include <cstddef>

namespace dorvik::basic {

/// Counts the bytes that the strings, arrays and collections of all scripts of this thread hold, so
/// that a script cannot eat the machine. Values may outlive the engine that made them.
class MemoryMeter {
public:
    static MemoryMeter& Current();

    std::size_t Limit() const { return m_limit; }
    void SetLimit(std::size_t bytes) { m_limit = bytes; }
    std::size_t StringLimit() const { return m_stringLimit; }
    /// In bytes; a longer string raises 14.
    void SetStringLimit(std::size_t bytes) { m_stringLimit = bytes; }
    std::size_t Used() const { return m_used; }

    /// Raises 7, "Out of memory (the limit of N bytes was reached)", and counts nothing, when the limit would be passed.
    void Charge(std::size_t bytes);
    void Refund(std::size_t bytes) noexcept { m_used -= bytes; }
    /// Raises 14 with a text that names the limit.
    void CheckString(std::size_t bytes) const;

private:
    std::size_t m_limit = 256u << 20;
    std::size_t m_stringLimit = 64u << 20;
    std::size_t m_used = 0;
};

}  // namespace dorvik::basic
