#include "ModuleParser.h"

#include "Literals.h"
#include "base/modTextCase.h"

#include <iterator>
#include <utility>

namespace dorvik::basic {

namespace {

constexpr std::string_view kOptionNames[] = {
    "Option Explicit",
    "Option Base",
    "Option Compare",
    "Option Private Module",
};

struct DefaultRow {
    std::string_view Word;
    DeclaredKind Kind;
};
constexpr DefaultRow kDefaults[] = {
    {"DefBool", DeclaredKind::Boolean},
    {"DefByte", DeclaredKind::Byte},
    {"DefCur", DeclaredKind::Currency},
    {"DefDate", DeclaredKind::Date},
    {"DefDbl", DeclaredKind::Double},
    {"DefInt", DeclaredKind::Integer},
    {"DefLng", DeclaredKind::Long},
    {"DefObj", DeclaredKind::Object},
    {"DefSng", DeclaredKind::Single},
    {"DefStr", DeclaredKind::String},
    {"DefVar", DeclaredKind::Variant},
};

}  // namespace

ModuleParser::ModuleParser(TokenCursor& cursor, ITokenSource& source, ModuleNode& module)
    : m_cursor(cursor),
      m_source(source),
      m_module(module),
      m_expressions(cursor),
      m_declarations(cursor, m_expressions),
      m_statements(cursor, source, m_expressions, m_declarations) {}

void ModuleParser::Parse() {
    while (m_cursor.NextLine(m_source)) {
        while (!m_cursor.AtEndOfLine()) {
            if (!m_cursor.TakeIf(TokenKind::Colon)) {
                ParseItem();
            }
        }
    }
}

void ModuleParser::ParseItem() {
    const Token first = m_cursor.Peek();
    if (first.Kind == TokenKind::Name) {
        if (!ParseNamedItem(first)) {
            ReportStray();
        }
    } else if (first.Word == Keyword::Option) {
        ParseOption();
    } else if (first.Word == Keyword::DefaultType) {
        ParseDefaultTypes();
    } else if (first.Word == Keyword::Dim) {
        m_cursor.Take();
        ParseVariables();
    } else if (first.Word == Keyword::Const) {
        m_cursor.Take();
        ParseConstants();
    } else if (
        first.Word == Keyword::Public || first.Word == Keyword::Private ||
        first.Word == Keyword::Global || first.Word == Keyword::Friend ||
        first.Word == Keyword::Static || first.Word == Keyword::Sub ||
        first.Word == Keyword::Function || first.Word == Keyword::Enum ||
        first.Word == Keyword::Declare) {
        ParseScoped();
    } else {
        ReportStray();
    }
    FinishItem();
}

bool ModuleParser::ParseNamedItem(const Token& first) {
    const Token& next = m_cursor.Peek(1);
    const bool hasWord = next.Kind == TokenKind::Name || next.Kind == TokenKind::Keyword;
    if (!hasWord) {
        return false;
    }
    if (first.Word == Keyword::Attribute) {
        ParseAttribute();
    } else if (first.Word == Keyword::Property || first.Word == Keyword::Type) {
        ParseScoped();
    } else if (
        first.Word == Keyword::Event || first.Word == Keyword::Implements ||
        first.Word == Keyword::Class) {
        m_sawClass = m_sawClass || first.Word == Keyword::Class;
        m_cursor.FailText(
            first.Place, "'" + std::string(first.Text) + "' is not available in a module");
    } else {
        return false;
    }
    return true;
}

void ModuleParser::FinishItem() {
    if (std::exchange(m_headFollows, false)) {
        return;
    }
    if (!m_cursor.HasFailed() && (!m_cursor.AtEnd() || m_cursor.At(Keyword::Else))) {
        m_cursor.Fail(parseerror::kExpectedEndOfStatement);
    }
    if (m_cursor.HasFailed()) {
        m_cursor.SkipStatement();
    }
}

void ModuleParser::ReportStray() {
    const Token first = m_cursor.Peek();
    const Token second = m_cursor.Peek(1);
    const std::string text(second.Text);
    if (m_sawClass && first.Word == Keyword::End && second.Word == Keyword::Class) {
        m_cursor.SkipStatement();
        return;
    }
    if (!m_reportedStray) {
        const bool isEnd = first.Word == Keyword::End && !text.empty();
        m_cursor.Errors().AddText(
            parseerror::kSyntax,
            first.Place,
            isEnd ? "'End " + text + "' without '" + text + "'"
                  : "A statement must be in a procedure");
    }
    m_reportedStray = true;
    m_cursor.SkipStatement();
}

bool ModuleParser::NoteOption(std::size_t option, SourcePlace place) {
    static_assert(std::size(kOptionNames) == kOptions);
    SourcePlace& earlier = m_optionPlaces[option];
    if (m_sawProcedure) {
        m_cursor.FailText(place, "An 'Option' must come before the first procedure");
    } else if (earlier.Line != 0) {
        m_cursor.FailAt(
            place,
            parseerror::kNameRedefined,
            "'" + std::string(kOptionNames[option]) + "' is in line " +
                std::to_string(earlier.Line) + " already");
    }
    earlier = place;
    return !m_cursor.HasFailed();
}

void ModuleParser::ParseOption() {
    const SourcePlace place = m_cursor.Take().Place;
    const Token word = m_cursor.Take();
    if (word.Word == Keyword::Explicit) {
        m_module.OptionExplicit = NoteOption(0, place);
    } else if (word.Word == Keyword::Base) {
        const Token number = m_cursor.Peek();
        if (number.Kind != TokenKind::Number) {
            m_cursor.Fail(parseerror::kExpectedInteger);
        } else if (number.Text != "0" && number.Text != "1") {
            m_cursor.FailText(number.Place, "'Option Base' must be 0 or 1");
        }
        m_cursor.Take();
        if (NoteOption(1, place)) {
            m_module.OptionBase = number.Text == "1" ? 1 : 0;
        }
    } else if (word.Word == Keyword::Compare) {
        if (!m_cursor.At(Keyword::Binary) && !m_cursor.At(Keyword::Text)) {
            m_cursor.FailText(m_cursor.Place(), "Expected 'Binary' or 'Text'");
        }
        const bool isText = m_cursor.Take().Word == Keyword::Text;
        if (NoteOption(2, place)) {
            m_module.ComparesText = isText;
        }
    } else if (word.Word == Keyword::Private && m_cursor.At(Keyword::Module)) {
        m_cursor.Take();
        NoteOption(3, place);
    } else {
        m_cursor.FailText(word.Place, "Expected 'Explicit', 'Base', 'Compare' or 'Private Module'");
    }
}

/// `Attribute VB_Name = "x"` names the module; other attributes say nothing to the engine.
void ModuleParser::ParseAttribute() {
    m_cursor.Take();
    const bool isName = modTextCase::Equal(m_cursor.Take().Text, "VB_Name");
    if (isName && m_cursor.At(TokenKind::Equal) && m_cursor.Peek(1).Kind == TokenKind::String) {
        m_module.Name = std::string(StringLiteral(m_cursor.Peek(1).Text).AsText());
    }
    m_cursor.TakeToEnd();
}

void ModuleParser::ParseDefaultTypes() {
    const Token word = m_cursor.Take();
    if (m_sawProcedure) {
        m_cursor.FailText(
            word.Place, "'" + std::string(word.Text) + "' must come before the first procedure");
    }
    DeclaredKind kind = DeclaredKind::Variant;
    for (const DefaultRow& row : kDefaults) {
        if (modTextCase::Equal(row.Word, word.Text)) {
            kind = row.Kind;
        }
    }
    const auto letter = [this] {
        const Token token = m_cursor.Peek();
        const char c = token.Text.size() == 1 ? static_cast<char>(token.Text[0] | 0x20) : '\0';
        if (token.Kind != TokenKind::Name || c < 'a' || c > 'z') {
            m_cursor.FailText(token.Place, "Expected a letter");
        }
        m_cursor.Take();
        return m_cursor.HasFailed() ? 'a' : c;
    };
    do {
        const SourcePlace place = m_cursor.Place();
        const char first = letter();
        const char last = m_cursor.TakeIf(TokenKind::Minus) ? letter() : first;
        SetDefault(first, last, kind, place);
    } while (m_cursor.TakeIf(TokenKind::Comma));
}

void ModuleParser::SetDefault(char first, char last, DeclaredKind kind, SourcePlace place) {
    if (first > last) {
        m_cursor.FailText(place, "The letters of a range must be in alphabetical order");
    }
    for (char c = first; c <= last && !m_cursor.HasFailed(); ++c) {
        const auto index = static_cast<std::size_t>(c - 'a');
        if (m_defaultPlaces[index].Line != 0) {
            m_cursor.FailAt(
                place,
                parseerror::kNameRedefined,
                "the letter '" + std::string(1, c) + "' has a type from line " +
                    std::to_string(m_defaultPlaces[index].Line) + " already");
        }
        m_defaultPlaces[index] = place;
        m_module.DefaultKinds[index] = kind;
    }
}

}  // namespace dorvik::basic
