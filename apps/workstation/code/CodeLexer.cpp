#include "CodeLexer.h"

#include "workstation/filehost/modLineTokens.h"
#include "workstation/look/modTheme.h"

#include <array>
#include <string_view>

namespace dorvik {

namespace {

using modLineTokens::LineStart;
using modLineTokens::TokenKind;

constexpr int kPlain = 0;
constexpr std::array<const char*, 8> kNames = {
    "Text", "Keyword", "Comment", "String", "Number", "Name", "Operator", "Continuation"};

int StyleOf(TokenKind kind) {
    return static_cast<int>(kind) + 1;
}

QColor ColourOf(int style) {
    const ThemeColours& colours = modTheme::Colours();
    if (style == StyleOf(TokenKind::Keyword)) {
        return colours.Keyword;
    }
    if (style == StyleOf(TokenKind::Comment)) {
        return colours.Comment;
    }
    if (style == StyleOf(TokenKind::Text)) {
        return colours.String;
    }
    if (style == StyleOf(TokenKind::Number)) {
        return colours.Number;
    }
    return style == StyleOf(TokenKind::Continuation) ? colours.MarginText : colours.CodeText;
}

}  // namespace

QString CodeLexer::description(int style) const {
    const bool isKnown = style >= 0 && static_cast<std::size_t>(style) < kNames.size();
    return isKnown ? QString::fromLatin1(kNames[static_cast<std::size_t>(style)]) : QString();
}

void CodeLexer::ShowTheme(const QFont& font) {
    setDefaultFont(font);
    setDefaultColor(modTheme::Colours().CodeText);
    setDefaultPaper(modTheme::Colours().Code);
    setPaper(modTheme::Colours().Code);
    setFont(font);
    for (int style = kPlain; static_cast<std::size_t>(style) < kNames.size(); ++style) {
        setColor(ColourOf(style), style);
    }
}

void CodeLexer::styleText(int start, int end) {
    using Base = QsciScintillaBase;
    const auto* bytes =
        static_cast<const char*>(editor()->SendScintillaPtrResult(Base::SCI_GETCHARACTERPOINTER));
    auto line =
        static_cast<unsigned long>(editor()->SendScintilla(Base::SCI_LINEFROMPOSITION, start));
    auto state =
        line == 0
            ? LineStart::Statement
            : static_cast<LineStart>(editor()->SendScintilla(Base::SCI_GETLINESTATE, line - 1));
    std::vector<char> styles(static_cast<std::size_t>(end - start), kPlain);
    for (int place = start; place < end; ++line) {
        const auto lineEnd =
            static_cast<int>(editor()->SendScintilla(Base::SCI_GETLINEENDPOSITION, line));
        const auto next =
            static_cast<int>(editor()->SendScintilla(Base::SCI_POSITIONFROMLINE, line + 1));
        const std::string_view text(bytes + place, static_cast<std::size_t>(lineEnd - place));
        const modLineTokens::TokenisedLine tokens = modLineTokens::Tokenise(text, state);
        for (const modLineTokens::LineToken& token : tokens.Tokens) {
            const auto from = static_cast<std::size_t>(place - start) + token.Start;
            for (std::size_t i = from; i < from + token.Size && i < styles.size(); ++i) {
                styles[i] = static_cast<char>(StyleOf(token.Kind));
            }
        }
        state = tokens.Next;
        editor()->SendScintilla(Base::SCI_SETLINESTATE, line, static_cast<long>(state));
        place = next > place ? next : end;
    }
    startStyling(start);
    editor()->SendScintilla(
        Base::SCI_SETSTYLINGEX, static_cast<unsigned long>(styles.size()), styles.data());
}

}  // namespace dorvik
