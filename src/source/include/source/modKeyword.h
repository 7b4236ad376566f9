#pragma once

#include "base/modTextCase.h"
#include "base/modUtf8.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Tests of the start of a statement against fixed words, made for the path that every statement
/// takes: the first letters decide nearly always, and a text with an ASCII start is never folded as
/// a whole. Where a letter outside ASCII meets a keyword, `modTextCase` has the word.
namespace dorvik::modKeyword {

constexpr char FoldAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character | 0x20) : character;
}

constexpr bool IsAscii(char character) {
    return static_cast<unsigned char>(character) < 0x80;
}

/// The number of bytes of `text` that make up `prefix` (ASCII) in any case; 0 if it begins otherwise.
inline std::size_t Match(std::string_view text, std::string_view prefix) {
    if (text.size() < prefix.size()) {
        return 0;
    }
    for (std::size_t i = 0; i < prefix.size(); ++i) {
        if (!IsAscii(text[i])) {
            const bool begins = modTextCase::StartsWith(text, prefix);
            return begins ? modUtf8::Left(text, prefix.size()).size() : 0;
        }
        if (FoldAscii(text[i]) != FoldAscii(prefix[i])) {
            return 0;
        }
    }
    return prefix.size();
}

inline bool StartsWith(std::string_view text, std::string_view prefix) {
    return Match(text, prefix) != 0;
}

inline bool Equal(std::string_view text, std::string_view word) {
    return !text.empty() && Match(text, word) == text.size();
}

inline std::string_view WithoutLeading(std::string_view text, char character) {
    std::size_t start = 0;
    while (start < text.size() && text[start] == character) {
        ++start;
    }
    return text.substr(start);
}

/// The text without its leading blanks, the tabs after them and the blanks after those. A tab that
/// follows such a blank stays.
inline std::string_view StatementStart(std::string_view line) {
    const std::string_view text = WithoutLeading(line, ' ');
    if (text.empty() || text.front() != '\t') {
        return text;
    }
    return WithoutLeading(WithoutLeading(text, '\t'), ' ');
}

/// A list of texts, of two characters or more, of which a statement may begin with one.
template <std::size_t Count>
class Table {
public:
    constexpr explicit Table(const std::array<std::string_view, Count>& prefixes)
        : m_prefixes(prefixes) {
        for (const std::string_view prefix : prefixes) {
            m_firstLetters |= Bit(prefix[0]);
            m_secondLetters |= Bit(prefix[1]);
        }
    }

    /// Whether the statement, less its outer white space and its comment, begins with one of the
    /// texts. The comment needs no cutting: no text holds a single quote, and a blank that ends one
    /// is only left by the trimming where something other than a comment follows it.
    bool Begins(std::string_view line) const {
        const std::string_view text = StatementStart(line);
        if (!MayBegin(text)) {
            return false;
        }
        for (const std::string_view prefix : m_prefixes) {
            const std::size_t matched = Match(text, prefix);
            if (matched != 0 && (prefix.back() != ' ' || HasMore(text.substr(matched)))) {
                return true;
            }
        }
        return false;
    }

private:
    static constexpr std::uint32_t Bit(char letter) {
        return std::uint32_t{1} << (static_cast<unsigned char>(letter) & 31U);
    }
    /// A first look at two letters, which turns nearly every statement away.
    bool MayBegin(std::string_view text) const {
        return text.size() > 1 && ((m_firstLetters & Bit(text[0])) != 0 || !IsAscii(text[0])) &&
               ((m_secondLetters & Bit(text[1])) != 0 || !IsAscii(text[1]));
    }
    static bool HasMore(std::string_view behind) {
        const std::string_view text = WithoutLeading(behind, ' ');
        return !text.empty() && text.front() != '\'';
    }

    std::array<std::string_view, Count> m_prefixes;
    std::uint32_t m_firstLetters = 0;
    std::uint32_t m_secondLetters = 0;
};

template <typename... Texts>
constexpr auto MakeTable(Texts... texts) {
    return Table<sizeof...(Texts)>(std::array<std::string_view, sizeof...(Texts)>{texts...});
}

}  // namespace dorvik::modKeyword
