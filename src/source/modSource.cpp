#include "source/modSource.h"

#include "base/modText.h"
#include "modQuotedText.h"
#include "source/modKeyword.h"

#include <algorithm>

namespace dorvik::modSource {

namespace {

constexpr std::string_view kRemComment = ": Rem ";

/// The two flags with which a text is traversed character by character. A string counts as closed only
/// at the first character after its closing quote, since that may be a doubled quote.
class QuoteScanner {
public:
    bool InString() const { return m_inString; }
    void Quote() {
        if (m_inString) {
            m_closePending = !m_closePending;
        } else {
            m_inString = true;
        }
    }
    /// Any other character, before it is judged.
    void Other() {
        if (m_closePending) {
            m_inString = false;
            m_closePending = false;
        }
    }

private:
    bool m_inString = false;
    bool m_closePending = false;
};

/// Byte offset of the first `character` outside a string, or npos. REQUIRES: it is case-folded.
std::size_t FindOutsideStrings(std::string_view text, char character) {
    QuoteScanner scanner;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') {
            scanner.Quote();
            continue;
        }
        scanner.Other();
        if (!scanner.InString() && modKeyword::FoldAscii(text[i]) == character) {
            return i;
        }
    }
    return std::string_view::npos;
}

std::size_t FindRemComment(std::string_view text) {
    std::size_t colon = text.find(':');
    while (colon != std::string_view::npos &&
           !modKeyword::StartsWith(text.substr(colon), kRemComment)) {
        colon = text.find(':', colon + 1);
    }
    return colon;
}

/// Drops line numbers, colons and tabs, and the blanks around them, from the start of a line.
std::string_view DropLineNumber(std::string_view line) {
    const auto isDropped = [](char character) {
        return character == ' ' || character == '\t' || (character >= '0' && character <= ':');
    };
    const auto start = std::find_if_not(line.begin(), line.end(), isDropped);
    return line.substr(static_cast<std::size_t>(start - line.begin()));
}

/// Whether the text after a colon makes the line one of several statements.
bool IsFurtherStatement(std::string_view behind) {
    const std::string_view text = modText::TrimLeft(behind);
    if (text.empty() || text.front() == '=' || text.front() == '\'') {
        return false;
    }
    // Required: three characters, so that a statement like `Remove x` passes for a comment.
    return !modKeyword::StartsWith(text, "Rem");
}

}  // namespace

LineType SourceLineType(std::string_view line) {
    if (IsBlankLine(line)) {
        return LineType::Blank;
    }
    if (IsCommentOnlyLine(line)) {
        return LineType::CommentOnly;
    }
    // Required: tested before the in-line comment, so a comment after code may "continue" the line.
    if (modText::TrimRight(line).ends_with('_')) {
        return LineType::Continued;
    }
    return HasInLineComment(line) ? LineType::CodeWithComment : LineType::Code;
}

bool IsBlankLine(std::string_view line) {
    return std::all_of(line.begin(), line.end(), [](char character) {
        return character == ' ' || character == '\t';
    });
}

bool IsCommentOnlyLine(std::string_view line) {
    const std::string_view text = DropLineNumber(line);
    if (text.empty()) {
        return false;
    }
    if (text.front() == '\'') {
        return true;
    }
    // Required: the trimmed text must hold the blank, so `Rem` alone is not a comment.
    return modKeyword::StartsWith(text, "Rem ") && !modText::TrimLeft(text.substr(4)).empty();
}

bool HasInLineComment(std::string_view line) {
    const std::string_view text = DropLineNumber(modText::TrimRight(line));
    if (text.find('\'') == std::string_view::npos && text.find(':') == std::string_view::npos) {
        return false;
    }
    bool found = false;
    modQuotedText::ForEachPartAround(text, [&](std::string_view part) {
        found = found || part.find('\'') != std::string_view::npos ||
                FindRemComment(part) != std::string_view::npos;
    });
    return found;
}

bool IsMultiStatementLine(std::string_view line) noexcept {
    if (line.find(':') == std::string_view::npos) {
        return false;
    }
    QuoteScanner scanner;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"') {
            scanner.Quote();
        } else if (line[i] == '\'') {
            // Required: a single quote directly after a string is skipped and doesn't close it.
            if (!scanner.InString()) {
                return false;
            }
        } else {
            scanner.Other();
            if (line[i] == ':' && !scanner.InString()) {
                return IsFurtherStatement(line.substr(i + 1));
            }
        }
    }
    return false;
}

bool IsLineLabel(std::string_view line) noexcept {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos || colon == 0) {
        return false;
    }
    return line.substr(0, colon).find_first_of("( ") == std::string_view::npos;
}

bool IsOCXObjectDefinition(std::string_view line) {
    return modKeyword::StartsWith(line, "Object = ");
}

std::string_view NextStatementFromSourceLine(std::string_view& rest, bool& more) noexcept {
    const bool hasColon = rest.find(':') != std::string_view::npos;
    // Required: no stop at a single quote; a comment with colons reaches the parser as statements.
    const std::size_t colon = hasColon ? FindOutsideStrings(rest, ':') : std::string_view::npos;
    if (colon == std::string_view::npos) {
        const std::string_view statement = rest;
        rest = {};
        more = !statement.empty();
        return statement;
    }
    const std::string_view statement = modText::Trim(rest.substr(0, colon));
    rest = modText::Trim(rest.substr(colon + 1));
    if (rest.starts_with('\'') || modKeyword::StartsWith(rest, "Rem")) {
        rest = {};
    }
    more = true;
    return statement;
}

std::size_t IntelligentSeek(std::string_view text, char character, bool stripComment) noexcept {
    const std::string_view searched = stripComment ? StripInLineComment(text) : text;
    const char folded = modKeyword::FoldAscii(character);
    const bool isLetter = folded >= 'a' && folded <= 'z';
    if (!isLetter && searched.find(folded) == std::string_view::npos) {
        return 0;
    }
    const std::size_t found = FindOutsideStrings(searched, folded);
    return found == std::string_view::npos ? 0 : found + 1;
}

std::string_view StripInLineComment(std::string_view line) noexcept {
    // Required: a plain search, which also cuts at ": Rem " inside a string.
    std::size_t cut = FindRemComment(line);
    if (cut == std::string_view::npos) {
        const std::size_t position = IntelligentSeek(line, '\'', false);
        if (position == 0) {
            return line;
        }
        cut = position - 1;
    }
    std::string_view kept = modText::TrimRight(line.substr(0, cut));
    if (kept.ends_with(':')) {
        kept = modText::TrimRight(kept.substr(0, kept.size() - 1));
    }
    return kept;
}

std::string StripQuotedText(std::string_view line) {
    std::string result;
    modQuotedText::ForEachPartAround(line, [&](std::string_view part) { result += part; });
    return result;
}

std::string_view StripQuotedText(std::string_view line, std::string& buffer) {
    if (line.find('"') == std::string_view::npos) {
        return line;
    }
    buffer.clear();
    modQuotedText::ForEachPartAround(line, [&](std::string_view part) { buffer += part; });
    return buffer;
}

std::string StripSourceLine(std::string_view line) {
    std::string buffer;
    const std::string_view unquoted = StripQuotedText(line, buffer);
    return std::string(StripTabsAndComment(StripInLineComment(unquoted)));
}

std::string_view StripTabsAndSpaces(std::string_view line) {
    return modText::TrimRight(modKeyword::StatementStart(line));
}

std::string_view StripTabsAndComment(std::string_view line) {
    const std::string_view text = StripTabsAndSpaces(line);
    // Required: a single quote inside a string cuts as well.
    const std::size_t quote = text.find('\'');
    return quote == std::string_view::npos ? text : modText::Trim(text.substr(0, quote));
}

std::string_view RemoveQuotes(std::string_view text) {
    if (text.starts_with('"')) {
        text.remove_prefix(1);
    }
    if (text.ends_with('"')) {
        text.remove_suffix(1);
    }
    return text;
}

}  // namespace dorvik::modSource
