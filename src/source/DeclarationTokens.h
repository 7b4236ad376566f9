#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dorvik {

/// Traverses the parts of a declaration between its blanks, one after the other, without a list of them.
/// Two blanks in a row have an empty part between them.
/// REQUIRES: the text outlives the walk.
class DeclarationTokens {
public:
    enum class Strings {
        Kept,    ///< quotes mean nothing; blanks in a string divide it
        Emptied  ///< a string is part of one token, and its `Text` shows the two quotes only
    };

    struct Token {
        std::string_view Text;     ///< lives until the next token is taken
        std::string_view Written;  ///< as it is written in the declaration
        std::size_t Start = 0;     ///< byte offset of `Written`
    };

    DeclarationTokens(std::string_view text, Strings strings) : m_text(text), m_strings(strings) {}

    bool AtEnd() const { return m_next > m_text.size(); }
    /// False after the last token.
    bool Next(Token& token);
    /// Continues from that byte offset of the text; at its end, none is left.
    void GoOnFrom(std::size_t position);

private:
    std::size_t EndOfToken(std::size_t from) const;

    std::string_view m_text;
    Strings m_strings;
    std::size_t m_next = 0;
    std::string m_buffer;
};

/// Drops a comma at the end; false if there is none.
bool DropTrailingComma(std::string_view& text);

/// The last character if it is a type suffix, else empty.
std::string_view TypeSuffix(std::string_view name);

}  // namespace dorvik
