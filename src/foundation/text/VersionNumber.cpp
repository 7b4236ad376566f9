#include "foundation/text/VersionNumber.h"

#include "base/BasicError.h"
#include "base/Variant.h"
#include "base/modText.h"
#include "foundation/log/Trap.h"

#include <limits>
#include <vector>

namespace dorvik {

namespace {

constexpr std::int32_t kHighestPart = 9999;
constexpr std::size_t kRevisionDigits = 4;

std::int16_t Narrow(std::int32_t number) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (number < Limits::min() || number > Limits::max()) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return static_cast<std::int16_t>(number);
}

std::int16_t NumberOf(std::string_view text) {
    return Narrow(Variant(text).AsLong());
}

std::int16_t NumberOrZero(std::string_view text) {
    return text.empty() ? std::int16_t{0} : NumberOf(text);
}

std::string_view PartOf(const std::vector<std::string_view>& parts, std::size_t index) {
    if (index >= parts.size()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return parts[index];
}

}  // namespace

std::string VersionNumber::MajorString() const {
    return std::to_string(m_major);
}

void VersionNumber::SetMajorString(std::string_view text) {
    m_major = NumberOrZero(text);
}

std::string VersionNumber::MinorString() const {
    return std::to_string(m_minor);
}

void VersionNumber::SetMinorString(std::string_view text) {
    m_minor = NumberOrZero(text);
}

std::string VersionNumber::RevisionString() const {
    const std::string digits = std::to_string(m_revision < 0 ? -m_revision : int{m_revision});
    const std::size_t zeros = digits.size() < kRevisionDigits ? kRevisionDigits - digits.size() : 0;
    return (m_revision < 0 ? "-" : "") + std::string(zeros, '0') + digits;
}

void VersionNumber::SetRevisionString(std::string_view text) {
    m_revision = NumberOrZero(text);
}

std::string VersionNumber::Version() const {
    return MajorString() + "." + MinorString() + "." + RevisionString();
}

void VersionNumber::SetVersion(std::string_view version) {
    Trap({"VersionNumber", "Version"}, [&] {
        const std::vector<std::string_view> parts = modText::Split(version, '.');
        m_major = NumberOf(PartOf(parts, 0));
        m_minor = NumberOf(PartOf(parts, 1));
        m_revision = NumberOf(PartOf(parts, 2));
    });
}

void VersionNumber::Increment() {
    std::int32_t revision = m_revision + 1;
    std::int32_t minor = m_minor;
    std::int32_t major = m_major;
    if (revision > kHighestPart) {
        revision = 0;
        ++minor;
    }
    if (minor > kHighestPart) {
        minor = 0;
        ++major;
    }
    m_major = Narrow(major);
    m_minor = Narrow(minor);
    m_revision = Narrow(revision);
}

}  // namespace dorvik
