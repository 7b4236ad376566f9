#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// A version of three 16-bit numbers; reads "6.2.0001". Texts are converted as the reviewed language
/// does it: `kTypeMismatch` for what is not a number, `kOverflow` outside 16 bits.
class VersionNumber {
public:
    std::int16_t Major() const { return m_major; }
    void SetMajor(std::int16_t major) { m_major = major; }
    /// Plain decimal. An empty text sets 0.
    std::string MajorString() const;
    void SetMajorString(std::string_view text);

    std::int16_t Minor() const { return m_minor; }
    void SetMinor(std::int16_t minor) { m_minor = minor; }
    /// Plain decimal. An empty text sets 0.
    std::string MinorString() const;
    void SetMinorString(std::string_view text);

    std::int16_t Revision() const { return m_revision; }
    void SetRevision(std::int16_t revision) { m_revision = revision; }
    /// At least four digits. An empty text sets 0.
    std::string RevisionString() const;
    void SetRevisionString(std::string_view text);

    /// Major, minor and revision with "." between them.
    std::string Version() const;
    /// A text of fewer than three parts, or one part that is not a number, is logged; the numbers
    /// before the failure are set, the others keep their values.
    void SetVersion(std::string_view version);

    /// One revision on; from 9999 revision and minor go to 0 and carry over. `kOverflow` when major
    /// leaves 16 bits.
    void Increment();

private:
    std::int16_t m_major = 0;
    std::int16_t m_minor = 0;
    std::int16_t m_revision = 0;
};

}  // namespace dorvik
