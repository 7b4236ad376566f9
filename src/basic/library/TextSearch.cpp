#include "basic/library/TextSearch.h"

#include "base/modByteSearch.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "basic/values/Characters.h"
#include "basic/values/ScriptContext.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
/// The longest text that is sought by trying every place.
constexpr std::size_t kLongestTried = 32;
/// How much is searched before the host is polled.
constexpr std::size_t kWindow = 16 * 1024;

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

std::string Reversed(std::string_view text) {
    return {text.rbegin(), text.rend()};
}

}  // namespace

TextSearch::TextSearch(
    ScriptContext& context, std::string_view text, std::string_view sought, bool ignoreCase)
    : m_context(context), m_text(text), m_sought(sought), m_ignoreCase(ignoreCase) {
    if (sought.size() <= kLongestTried) {
        return;
    }
    if (ignoreCase) {
        m_loweredText = modTextCase::ToLower(text);
        m_loweredSought = modTextCase::ToLower(sought);
    }
    MakeTable(ignoreCase ? m_loweredSought : sought);
}

void TextSearch::MakeTable(std::string_view sought) {
    m_table.assign(sought.size() + 1, 0);
    std::uint32_t length = 0;
    for (std::size_t end = 1; end < sought.size(); ++end) {
        while (length > 0 && sought[length] != sought[end]) {
            length = m_table[length];
        }
        length += sought[length] == sought[end] ? 1 : 0;
        m_table[end + 1] = length;
    }
}

TextSearch::Match TextSearch::Next(std::size_t from) {
    if (!m_ignoreCase) {
        const std::size_t start = FindExact(m_text, m_sought, from);
        return {start, m_sought.size()};
    }
    return m_loweredSought.empty() ? FindShort(from) : FindLowered(from);
}

std::size_t
TextSearch::FindByTable(std::string_view text, std::string_view sought, std::size_t from) {
    std::size_t matched = 0;
    for (std::size_t position = from; position < text.size(); ++position) {
        while (matched > 0 && sought[matched] != text[position]) {
            matched = m_table[matched];
        }
        matched += sought[matched] == text[position] ? 1 : 0;
        if (matched == sought.size()) {
            return position + 1 - matched;
        }
        if (position % kWindow == 0) {
            m_context.Breathe();
        }
    }
    return kNone;
}

std::size_t
TextSearch::FindExact(std::string_view text, std::string_view sought, std::size_t from) {
    if (!m_table.empty()) {
        return FindByTable(text, sought, from);
    }
    while (from < text.size()) {
        const std::size_t end = std::min(text.size(), from + kWindow + sought.size() - 1);
        const std::size_t found = modByteSearch::Find(text.substr(0, end), sought, from);
        if (found != kNone || end == text.size()) {
            return found;
        }
        m_context.Breathe();
        from += kWindow;
    }
    return kNone;
}

TextSearch::Match TextSearch::FindShort(std::size_t from) {
    const std::size_t overlap = m_sought.size() * 4;  // no form of a character has more bytes
    while (from < m_text.size()) {
        std::size_t next = std::min(m_text.size(), from + kWindow);
        while (next < m_text.size() && ContinuesCharacter(m_text[next])) {
            ++next;
        }
        const std::size_t end = std::min(m_text.size(), next + overlap);
        const std::size_t found = modTextCase::Find(m_text.substr(0, end), m_sought, from);
        if (found != kNone) {
            const std::size_t characters = modCharacters::Count(m_sought);
            return {found, modCharacters::Skip(m_text, characters, found) - found};
        }
        if (next < m_text.size()) {
            m_context.Breathe();
        }
        from = next;
    }
    return {};
}

TextSearch::Match TextSearch::FindLowered(std::size_t from) {
    const auto advance = [this](auto reached) {
        while (!reached()) {
            m_textAt = modCharacters::Skip(m_text, 1, m_textAt);
            m_loweredAt = modCharacters::Skip(m_loweredText, 1, m_loweredAt);
        }
    };
    advance([&] { return m_textAt >= from; });
    const std::size_t found = FindExact(m_loweredText, m_loweredSought, m_loweredAt);
    if (found == kNone) {
        return {};
    }
    advance([&] { return m_loweredAt >= found; });
    const std::size_t characters = modCharacters::Count(m_loweredSought);
    return {m_textAt, modCharacters::Skip(m_text, characters, m_textAt) - m_textAt};
}

TextSearch::Match TextSearch::First(
    ScriptContext& context,
    std::string_view text,
    std::string_view sought,
    bool ignoreCase,
    std::size_t from) {
    if (sought.size() > kLongestTried || text.size() - from > kWindow) {
        return TextSearch(context, text, sought, ignoreCase).Next(from);
    }
    if (!ignoreCase) {
        return {modByteSearch::Find(text, sought, from), sought.size()};
    }
    const bool hasOneForm = modUtf8::IsAscii(sought) && modUtf8::IsAscii(text.substr(from));
    return hasOneForm ? Match{modTextCase::Find(text, sought, from), sought.size()}
                      : TextSearch(context, text, sought, ignoreCase).Next(from);
}

TextSearch::Match TextSearch::Last(
    ScriptContext& context,
    std::string_view text,
    std::string_view sought,
    bool ignoreCase,
    std::size_t end) {
    text = text.substr(0, end);
    if (!ignoreCase && sought.size() <= kLongestTried) {
        return {text.rfind(sought), sought.size()};
    }
    const std::string backward = Reversed(ignoreCase ? modTextCase::ToLower(text) : text);
    const std::string soughtBackward = Reversed(ignoreCase ? modTextCase::ToLower(sought) : sought);
    TextSearch search(context, backward, soughtBackward, false);
    const Match match = search.Next(0);
    if (!match.IsFound()) {
        return {};
    }
    // The characters after the match are as many as in the text itself.
    const std::string_view behind = std::string_view(backward).substr(0, match.Start);
    std::size_t start = text.size();
    for (std::size_t left = modCharacters::Count(behind) + modCharacters::Count(sought); left > 0;
         --left) {
        start = modCharacters::Previous(text, start);
    }
    return {start, modCharacters::Skip(text, modCharacters::Count(sought), start) - start};
}

}  // namespace dorvik::basic
