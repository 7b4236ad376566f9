#include "workstation/session/modSessionWords.h"

#include "base/modText.h"

#include <cctype>

namespace dorvik::modSessionWords {

namespace {

bool IsBlank(char character) {
    return character == ' ' || character == '\t';
}

/// Takes a quoted word off the front of `rest`. False where it does not end as one should.
bool TakeQuoted(std::string_view& rest, std::string& word) {
    rest.remove_prefix(1);
    while (!rest.empty()) {
        if (rest.front() != '"') {
            word += rest.front();
            rest.remove_prefix(1);
        } else if (rest.starts_with("\"\"")) {
            word += '"';
            rest.remove_prefix(2);
        } else {
            rest.remove_prefix(1);
            return rest.empty() || IsBlank(rest.front());
        }
    }
    return false;
}

void TakePlain(std::string_view& rest, std::string& word) {
    while (!rest.empty() && !IsBlank(rest.front())) {
        word += rest.front();
        rest.remove_prefix(1);
    }
}

bool Fits(const std::string& word, char kind) {
    switch (kind) {
        case 'n': return modText::WholeNumber(word).has_value();
        case 's': return word == "on" || word == "off";
        default: return true;
    }
}

}  // namespace

std::optional<SessionWords> Split(std::string_view line) {
    SessionWords words;
    while (true) {
        while (!line.empty() && IsBlank(line.front())) {
            line.remove_prefix(1);
        }
        if (line.empty() || line.front() == '#') {
            return words;
        }
        std::string word;
        if (line.front() != '"') {
            TakePlain(line, word);
        } else if (!TakeQuoted(line, word)) {
            return std::nullopt;
        }
        words.push_back(std::move(word));
    }
}

bool Fit(const SessionWords& words, std::string_view shape) {
    if (words.size() > shape.size()) {
        return false;
    }
    for (std::size_t index = 0; index < shape.size(); ++index) {
        const bool mayBeMissing = std::isupper(static_cast<unsigned char>(shape[index])) != 0;
        if (index >= words.size()) {
            return mayBeMissing;
        }
        const char kind = static_cast<char>(std::tolower(static_cast<unsigned char>(shape[index])));
        if (!Fits(words[index], kind)) {
            return false;
        }
    }
    return true;
}

bool IsOn(std::string_view word) {
    return word == "on";
}

}  // namespace dorvik::modSessionWords
