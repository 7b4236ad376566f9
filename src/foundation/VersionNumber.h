#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// A version of three numbers, written "6.2.0001".
class VersionNumber {
public:
    std::int16_t Major() const { return m_major; }
    void SetMajor(std::int16_t major) { m_major = major; }
    std::int16_t Minor() const { return m_minor; }
    void SetMinor(std::int16_t minor) { m_minor = minor; }
    std::int16_t Revision() const { return m_revision; }
    void SetRevision(std::int16_t revision) { m_revision = revision; }

    std::string MajorString() const { return std::to_string(m_major); }
    std::string MinorString() const { return std::to_string(m_minor); }
    /// With at least four digits.
    std::string RevisionString() const;
    /// An empty text sets 0; a text that is no 16-bit number raises "Type mismatch" or "Overflow".
    void SetMajorString(std::string_view text);
    void SetMinorString(std::string_view text);
    void SetRevisionString(std::string_view text);

    std::string Version() const;
    /// A text with fewer than three parts is logged; the numbers assigned before that stay.
    void SetVersion(std::string_view text);

    /// Adds 1 to the revision; 9999 carries into the minor number and that into the major one.
    void Increment();

private:
    std::int16_t m_major = 0;
    std::int16_t m_minor = 0;
    std::int16_t m_revision = 0;
};

}  // namespace dorvik
