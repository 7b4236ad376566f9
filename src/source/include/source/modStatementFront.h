#pragma once

#include <string>
#include <string_view>

/// Characters that print as a blank, or not at all, in front of a statement: NUL, form feed (the page
/// breaks of old listings) and no-break space. Every test for a keyword looks at the begin of a statement
/// and skips blanks and tabs alone, so that one of these would hide the statement from all of them.
///
/// They are made blanks before a line is analysed, one for one, so that columns stay. The tests themselves
/// are as they were: blanks and tabs keep their meaning, and so do these characters in any other place.
namespace dorvik::modStatementFront {

/// Whether a line of the text may hold one of the characters.
template <typename Text>
bool MayNeedBlanks(const Text& text) {
    using namespace std::string_view_literals;
    return text.Contains("\0"sv) || text.Contains("\f"sv) || text.Contains("\xC2\xA0"sv);
}

/// The line with blanks for those of the characters that are in front of a statement: at its begin,
/// after a line number in its first column, and after a colon outside strings and comments. A view of
/// `line` where there are none, otherwise of `buffer`.
std::string_view WithBlanks(std::string_view line, std::string& buffer);

}  // namespace dorvik::modStatementFront
