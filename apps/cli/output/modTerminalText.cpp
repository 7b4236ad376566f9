#include "cli/output/modTerminalText.h"

#include "base/modUtf8.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace dorvik::modTerminalText {

namespace {

struct ShadeRow {
    Shade Of;
    std::string_view Start;
};

constexpr ShadeRow kShades[] = {
    {Shade::Heading, "\x1b[1m"},
    {Shade::Dim, "\x1b[2m"},
    {Shade::Good, "\x1b[32m"},
    {Shade::Caution, "\x1b[33m"},
    {Shade::Bad, "\x1b[31m"},
};
constexpr std::string_view kShadeEnd = "\x1b[0m";

constexpr char32_t kLastOfOneByte = 0xFF;

struct CharacterRange {
    char32_t First;
    char32_t Last;
};

/// What moves the cursor, changes colours or modes, or turns the direction of what is around it.
constexpr CharacterRange kSteering[] = {
    {0x00, 0x1F},
    {0x7F, 0x9F},
    {0x061C, 0x061C},
    {0x200E, 0x200F},
    {0x2028, 0x202E},
    {0x2066, 0x2069},
};

bool Steers(const modUtf8::Character& character) {
    return character.Valid &&
           std::any_of(
               std::begin(kSteering), std::end(kSteering), [&](const CharacterRange& range) {
                   return character.CodePoint >= range.First && character.CodePoint <= range.Last;
               });
}

/// True if no byte of the text can be part of anything but a printable ASCII character.
bool IsPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char character) {
        return character >= ' ' && character < '\x7F';
    });
}

enum class EscapeForm { Shown, Json };

std::string Escaped(char32_t codePoint, EscapeForm form) {
    const bool isShort = form == EscapeForm::Shown && codePoint <= kLastOfOneByte;
    std::array<char, 16> text{};
    std::snprintf(
        text.data(),
        text.size(),
        isShort ? "\\x%02X" : "\\u%04X",
        static_cast<unsigned>(codePoint));
    return text.data();
}

/// The length of a colour of the program's own that begins at `position`; 0 if none does.
std::size_t ShadeAt(std::string_view text, std::size_t position) {
    const std::string_view rest = text.substr(position);
    if (rest.starts_with(kShadeEnd)) {
        return kShadeEnd.size();
    }
    for (const ShadeRow& row : kShades) {
        if (rest.starts_with(row.Start)) {
            return row.Start.size();
        }
    }
    return 0;
}

/// How many bytes at `position` belong to the layout of a text and stay; 0 if none.
std::size_t LayoutAt(std::string_view text, std::size_t position, bool coloured) {
    switch (text[position]) {
        case '\n':
        case '\t': return 1;
        case '\r': return text.substr(position).starts_with("\r\n") ? 2 : 0;
        case '\x1B': return coloured ? ShadeAt(text, position) : 0;
        default: return 0;
    }
}

/// Appends one character, made visible if need be, and returns its size in the text.
std::size_t
AppendVisible(std::string& result, std::string_view text, std::size_t position, EscapeForm form) {
    const modUtf8::Character character = modUtf8::Decode(text, position);
    if (Steers(character)) {
        result += Escaped(character.CodePoint, form);
    } else {
        modUtf8::Append(result, character.CodePoint);
    }
    return character.Size;
}

/// Where to cut a word that fills the line: after the last character that joins names, else at the end.
std::size_t PlaceInWord(std::string_view head, std::size_t start) {
    const std::size_t sign = head.find_last_of("._:/\\");
    return sign == std::string_view::npos || sign <= start ? head.size() : sign + 1;
}

/// One line of text, without line ends, in lines of `width`.
void WrapLine(std::string_view line, std::size_t width, std::vector<std::string>& lines) {
    while (modUtf8::Length(line) > width) {
        const std::string_view head = modUtf8::Left(line, width);
        // A blank right after the head is as good a place as one in it.
        std::size_t cut = line.at(head.size()) == ' ' ? head.size() : head.rfind(' ');
        const std::size_t indent = head.find_first_not_of(' ');
        if (cut == std::string_view::npos || indent >= cut) {
            cut = PlaceInWord(head, indent);
        }
        lines.emplace_back(line.substr(0, cut));
        lines.back().erase(lines.back().find_last_not_of(' ') + 1);
        line.remove_prefix(cut);
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        if (line.empty()) {
            return;
        }
    }
    lines.emplace_back(line);
}

}  // namespace

std::string Harmless(std::string_view text) {
    std::string result;
    if (IsPlain(text)) {
        return result.append(text);
    }
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        if (text[position] == '\t') {
            result += ' ';
            ++position;
        } else {
            position += AppendVisible(result, text, position, EscapeForm::Shown);
        }
    }
    return result;
}

std::string HarmlessLines(std::string_view text, bool coloured) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        if (const std::size_t layout = LayoutAt(text, position, coloured); layout > 0) {
            result += text.substr(position, layout);
            position += layout;
        } else {
            position += AppendVisible(result, text, position, EscapeForm::Shown);
        }
    }
    return result;
}

std::string HarmlessJson(std::string_view json) {
    std::string result;
    result.reserve(json.size());
    for (std::size_t position = 0; position < json.size();) {
        if (json[position] == '\n') {
            result += '\n';
            ++position;
        } else {
            position += AppendVisible(result, json, position, EscapeForm::Json);
        }
    }
    return result;
}

std::vector<std::string> Wrap(std::string_view text, std::size_t width) {
    std::vector<std::string> lines;
    while (true) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        WrapLine(Harmless(line), std::max<std::size_t>(width, 1), lines);
        if (end == std::string_view::npos) {
            return lines;
        }
        text.remove_prefix(end + 1);
    }
}

std::string Shaded(std::string_view text, Shade shade, bool coloured) {
    if (coloured && !text.empty()) {
        for (const ShadeRow& row : kShades) {
            if (row.Of == shade) {
                return std::string(row.Start).append(text).append(kShadeEnd);
            }
        }
    }
    return std::string(text);
}

}  // namespace dorvik::modTerminalText
