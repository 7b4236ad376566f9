#include "reports/format/CommonEnds.h"

#include <algorithm>
#include <cstddef>

namespace dorvik {

namespace {

bool ContinuesCharacter(char byte) {
    constexpr unsigned kMask = 0xC0;
    constexpr unsigned kContinuation = 0x80;
    return (static_cast<unsigned char>(byte) & kMask) == kContinuation;
}

std::size_t CommonHead(std::string_view left, std::string_view right) {
    const std::size_t limit = std::min(left.size(), right.size());
    std::size_t size = 0;
    while (size < limit && left[size] == right[size]) {
        ++size;
    }
    while (size > 0 && size < left.size() && ContinuesCharacter(left[size])) {
        --size;
    }
    return size;
}

std::size_t CommonTail(std::string_view left, std::string_view right) {
    const std::size_t limit = std::min(left.size(), right.size());
    std::size_t size = 0;
    while (size < limit && left[left.size() - 1 - size] == right[right.size() - 1 - size]) {
        ++size;
    }
    while (size > 0 && ContinuesCharacter(left[left.size() - size])) {
        --size;
    }
    return size;
}

}  // namespace

void CommonEnds::Add(std::string_view text) {
    if (!m_any) {
        m_any = true;
        m_head = text;
        return;
    }
    if (m_alike) {
        if (text == m_head) {
            return;
        }
        m_alike = false;
        m_tail = m_head.substr(CommonHead(m_head, text));
    }
    m_head.erase(CommonHead(m_head, text));
    // The two ends never overlap, since the tail is searched for after the head only.
    m_tail.erase(0, m_tail.size() - CommonTail(m_tail, text.substr(m_head.size())));
}

std::string_view CommonEnds::MiddleOf(std::string_view text) const {
    return text.substr(m_head.size(), text.size() - m_head.size() - m_tail.size());
}

}  // namespace dorvik
