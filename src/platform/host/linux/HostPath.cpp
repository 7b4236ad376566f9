#include "platform/host/HostPath.h"

#include <utility>

namespace dorvik {

namespace {

constexpr char kSeparator = '/';

/// The part of the path up to its last separator, with it.
std::string_view Front(std::string_view path) {
    return path.substr(0, path.find_last_of(kSeparator) + 1);
}

}  // namespace

HostPath HostPath::FromBytes(std::string bytes) {
    HostPath path;
    path.m_bytes = std::move(bytes);
    return path;
}

HostPath HostPath::operator/(std::string_view name) const {
    HostPath entry;
    entry.m_bytes.reserve(m_bytes.size() + 1 + name.size());
    entry.m_bytes = m_bytes;
    if (!m_bytes.empty() && m_bytes.back() != kSeparator) {
        entry.m_bytes += kSeparator;
    }
    entry.m_bytes += name;
    return entry;
}

HostPath HostPath::WithEnding(std::string_view ending) const {
    return FromBytes(m_bytes + std::string(ending));
}

HostPath HostPath::Folder() const {
    if (m_bytes.empty()) {
        return {};
    }
    std::string_view front = Front(m_bytes);
    if (front.empty()) {
        return FromBytes(".");
    }
    while (front.size() > 1 && front.back() == kSeparator) {
        front.remove_suffix(1);
    }
    return FromBytes(std::string(front));
}

std::string_view HostPath::Name() const {
    return std::string_view(m_bytes).substr(Front(m_bytes).size());
}

}  // namespace dorvik
