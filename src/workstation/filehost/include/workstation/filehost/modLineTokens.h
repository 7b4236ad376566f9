#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// The parts of a line of code, for a screen that shows them in colours.
namespace dorvik::modLineTokens {

enum class TokenKind {
    Keyword,
    Comment,
    Text,
    Number,  // a date as well
    Name,
    Operator,     // and all other characters but blanks
    Continuation  // the underscore at the end of a line
};

/// A part of a line, in bytes from 0. Blanks belong to no part.
struct LineToken {
    TokenKind Kind = TokenKind::Name;
    std::size_t Start = 0;
    std::size_t Size = 0;

    friend bool operator==(const LineToken&, const LineToken&) = default;
};

/// What a line is the continuation of.
enum class LineStart { Statement, ContinuedStatement, ContinuedComment };

struct TokenisedLine {
    std::vector<LineToken> Tokens;
    LineStart Next = LineStart::Statement;  // of the line after it
};

/// As the environment has it, in which a comment may be continued as well. Takes time in proportion to the line.
TokenisedLine Tokenise(std::string_view line, LineStart start = LineStart::Statement);

}  // namespace dorvik::modLineTokens
