#pragma once

#include "Keywords.h"
#include "basic/syntax/SourcePlace.h"

#include <cstdint>
#include <string_view>

namespace dorvik::basic {

enum class TokenKind : std::uint8_t {
    EndOfLine,  // the last token of every line
    Name,       // an identifier; `Word` names one that means something in certain positions
    Keyword,    // a reserved word, not after `.` or `!`
    Number,
    String,
    Date,
    LeftParenthesis,
    RightParenthesis,
    Comma,
    Dot,
    Bang,
    Colon,
    ColonEqual,
    Semicolon,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual,
    Plus,
    Minus,
    Star,
    Slash,
    Backslash,
    Caret,
    Ampersand,
    Hash,
    Invalid,  // a character that begins nothing
};
inline constexpr std::size_t kTokenKinds = static_cast<std::size_t>(TokenKind::Invalid) + 1;

/// One word or sign of a line. `Text` points into the module's text: a name without its suffix and
/// brackets, a number with its suffix, a string with its quotes, a date without its signs.
struct Token {
    TokenKind Kind = TokenKind::EndOfLine;
    Keyword Word = Keyword::None;
    char Suffix = 0;
    bool BlankBefore = false;
    SourcePlace Place;
    std::string_view Text;
};

}  // namespace dorvik::basic
