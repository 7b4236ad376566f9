#include "DeclarationTokens.h"

#include "source/modSource.h"

namespace dorvik {

bool DeclarationTokens::Next(Token& token) {
    if (AtEnd()) {
        return false;
    }
    const std::size_t end = EndOfToken(m_next);
    token.Start = m_next;
    token.Written = m_text.substr(m_next, end - m_next);
    token.Text = m_strings == Strings::Emptied ? modSource::StripQuotedText(token.Written, m_buffer)
                                               : token.Written;
    m_next = end + 1;
    return true;
}

void DeclarationTokens::GoOnFrom(std::size_t position) {
    m_next = position < m_text.size() ? position : m_text.size() + 1;
}

std::size_t DeclarationTokens::EndOfToken(std::size_t from) const {
    for (std::size_t i = from; i < m_text.size(); ++i) {
        if (m_text[i] == ' ') {
            return i;
        }
        if (m_text[i] == '"' && m_strings == Strings::Emptied) {
            // A quote without a partner is an ordinary character, and blanks after it divide again.
            const std::size_t closing = m_text.find('"', i + 1);
            i = closing == std::string_view::npos ? i : closing;
        }
    }
    return m_text.size();
}

bool DropTrailingComma(std::string_view& text) {
    const bool hasComma = text.ends_with(',');
    if (hasComma) {
        text.remove_suffix(1);
    }
    return hasComma;
}

std::string_view TypeSuffix(std::string_view name) {
    constexpr std::string_view kSuffixes = "!$#%&@";
    if (name.empty() || kSuffixes.find(name.back()) == std::string_view::npos) {
        return {};
    }
    return name.substr(name.size() - 1);
}

}  // namespace dorvik
