#include "CharacterIndex.h"

#include "basic/values/Characters.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

constexpr std::size_t kStep = 64;  // characters from one start to the next

}  // namespace

CharacterIndex::Place
CharacterIndex::Advance(std::string_view text, Place from, std::size_t characters) {
    const std::size_t end = modCharacters::Skip(text, characters, from.Offset);
    m_bytesRead += end - from.Offset;
    return {from.Character + characters, end};
}

std::size_t CharacterIndex::CharactersOfStarts() const {
    return (m_starts.size() - 1) * kStep;
}

/// REQUIRES: the text has the characters up to there.
void CharacterIndex::AddStart(std::string_view text) {
    const Place next = Advance(text, {CharactersOfStarts(), m_starts.back()}, kStep);
    m_starts.push_back(static_cast<std::uint32_t>(next.Offset));
}

std::size_t
CharacterIndex::OffsetOf(std::string_view text, std::size_t length, std::size_t character) {
    if (character >= length) {
        return text.size();
    }
    Place from = m_last;
    if (character < m_last.Character || character - m_last.Character >= kStep) {
        const std::size_t start = character / kStep;
        while (m_starts.size() <= start) {
            AddStart(text);
        }
        from = {start * kStep, m_starts[start]};
    }
    m_last = Advance(text, from, character - from.Character);
    return m_last.Offset;
}

std::size_t
CharacterIndex::CharactersBefore(std::string_view text, std::size_t length, std::size_t offset) {
    Place from = m_last;
    if (offset < m_last.Offset || offset - m_last.Offset >= kStep) {
        while (m_starts.back() <= offset && CharactersOfStarts() + kStep <= length) {
            AddStart(text);
        }
        const auto behind = std::upper_bound(m_starts.begin(), m_starts.end(), offset);
        const auto start = static_cast<std::size_t>(behind - m_starts.begin()) - 1;
        from = {start * kStep, m_starts[start]};
    }
    m_bytesRead += offset - from.Offset;
    m_last = {
        from.Character + modCharacters::Count(text.substr(from.Offset, offset - from.Offset)),
        offset};
    return m_last.Character;
}

void CharacterIndex::Overwritten(
    std::string_view text, std::size_t first, std::size_t count, std::ptrdiff_t shift) {
    if (m_last.Character > first) {
        m_last = {};
    }
    for (std::size_t start = first / kStep + 1; start < m_starts.size(); ++start) {
        if (start * kStep < first + count) {
            const Place previous{(start - 1) * kStep, m_starts[start - 1]};
            m_starts[start] = static_cast<std::uint32_t>(Advance(text, previous, kStep).Offset);
        } else if (shift == 0) {
            return;
        } else {
            m_starts[start] =
                static_cast<std::uint32_t>(static_cast<std::ptrdiff_t>(m_starts[start]) + shift);
        }
    }
}

}  // namespace dorvik::basic
