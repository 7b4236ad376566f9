#include "foundation/VersionNumber.h"

#include <limits>
#include <vector>

#include "base/BasicError.h"
#include "base/Variant.h"
#include "base/modText.h"
#include "foundation/Trap.h"

namespace dorvik {

namespace {

constexpr std::int16_t kLargestPart = 9999;
constexpr std::size_t kRevisionDigits = 4;

std::int16_t ToNumber(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    const std::int32_t number = Variant(text).AsLong();
    if (number < std::numeric_limits<std::int16_t>::min() || number > std::numeric_limits<std::int16_t>::max()) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return static_cast<std::int16_t>(number);
}

}  // namespace

std::string VersionNumber::RevisionString() const {
    std::string digits = std::to_string(m_revision);
    if (digits.size() < kRevisionDigits) {
        digits.insert(0, kRevisionDigits - digits.size(), '0');
    }
    return digits;
}

void VersionNumber::SetMajorString(std::string_view text) {
    m_major = ToNumber(text);
}

void VersionNumber::SetMinorString(std::string_view text) {
    m_minor = ToNumber(text);
}

void VersionNumber::SetRevisionString(std::string_view text) {
    m_revision = ToNumber(text);
}

std::string VersionNumber::Version() const {
    return MajorString() + "." + MinorString() + "." + RevisionString();
}

void VersionNumber::SetVersion(std::string_view text) {
    Trap({"VersionNumber", "Version"}, [&] {
        const std::vector<std::string_view> parts = modText::Split(text, '.');
        const auto part = [&parts](std::size_t index) {
            if (index >= parts.size()) {
                RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
            }
            return parts[index];
        };
        SetMajorString(part(0));
        SetMinorString(part(1));
        SetRevisionString(part(2));
    });
}

void VersionNumber::Increment() {
    ++m_revision;
    if (m_revision > kLargestPart) {
        m_revision = 0;
        ++m_minor;
    }
    if (m_minor > kLargestPart) {
        m_minor = 0;
        ++m_major;
    }
}

}  // namespace dorvik
