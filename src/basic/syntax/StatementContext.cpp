#include "StatementContext.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

void ClockNames::Note(std::string_view name) {
    const Keyword word = FindKeyword(name);
    Date = Date || word == Keyword::Date;
    Time = Time || word == Keyword::Time;
}

StatementContext::StatementContext(
    TokenCursor& cursor,
    ITokenSource& source,
    ExpressionParser& expressions,
    DeclarationParser& declarations)
    : Cursor(cursor),
      Source(source),
      Expressions(expressions),
      Declarations(declarations),
      Blocks(cursor.Errors()),
      Labels(cursor.Errors()) {}

bool StatementContext::AtProcedureHead() const {
    std::size_t ahead = 0;
    while (Cursor.Peek(ahead).Kind == TokenKind::Keyword &&
           (Cursor.Peek(ahead).Word == Keyword::Public ||
            Cursor.Peek(ahead).Word == Keyword::Private ||
            Cursor.Peek(ahead).Word == Keyword::Friend ||
            Cursor.Peek(ahead).Word == Keyword::Static)) {
        ++ahead;
    }
    const Token& token = Cursor.Peek(ahead);
    if (token.Kind == TokenKind::Keyword) {
        return token.Word == Keyword::Sub || token.Word == Keyword::Function;
    }
    const Keyword next = Cursor.Peek(ahead + 1).Word;
    const bool isKind = next == Keyword::Get || next == Keyword::Let || next == Keyword::Set;
    return token.Word == Keyword::Property && isKind &&
           Cursor.Peek(ahead + 2).Kind == TokenKind::Name;
}

void StatementContext::Add(SourcePlace place, decltype(Statement::Node) node) {
    if (!Cursor.HasFailed()) {
        Blocks.Append({place, std::move(node)});
    }
}

void StatementContext::UpdateWith() {
    Expressions.SetInWith(Blocks.Contains(BlockKind::With));
}

void StatementContext::Open(BlockKind kind, SourcePlace place, decltype(Statement::Node) node) {
    Blocks.Push({kind, place, {place, std::move(node)}, false, {}});
    UpdateWith();
}

void StatementContext::CloseSimple(
    BlockKind kind, std::string_view closing, std::string_view opening, SourcePlace place) {
    if (Blocks.Expose(kind, kind, closing, place)) {
        Blocks.Pop();
    } else if (!Blocks.TakeOrphan(kind)) {
        Cursor.FailText(
            place, "'" + std::string(closing) + "' without '" + std::string(opening) + "'");
    }
    UpdateWith();
}

void StatementContext::RequireCase() {
    if (!Blocks.TopIs(BlockKind::Select)) {
        return;
    }
    auto& clauses = std::get<SelectStatement>(Blocks.Top().Node.Node).Clauses;
    if (!clauses.empty()) {
        return;
    }
    Cursor.Errors().Add(
        parseerror::kExpectedCase, Cursor.Place(), "no statement can come before the first one");
    clauses.emplace_back();
}

std::string StatementContext::ParseLabelName() {
    constexpr std::string_view kLargest = "2147483647";
    const Token token = Cursor.Peek();
    if (token.Kind == TokenKind::Name && token.Suffix == 0) {
        return std::string(Cursor.Take().Text);
    }
    const bool isWhole = token.Kind == TokenKind::Number &&
                         token.Text.find_first_not_of("0123456789") == std::string_view::npos;
    if (!isWhole) {
        Cursor.Fail(parseerror::kExpectedIdentifier, "the name or number of a label");
        return {};
    }
    const std::size_t zeros = std::min(token.Text.find_first_not_of('0'), token.Text.size() - 1);
    const std::string_view digits = token.Text.substr(zeros);
    if (digits.size() > kLargest.size() ||
        (digits.size() == kLargest.size() && digits > kLargest)) {
        Cursor.Fail(parseerror::kInvalidNumber, "a line number is at most 2147483647");
        return {};
    }
    Cursor.Take();
    return std::string(digits);
}

std::string StatementContext::ParseLabelReference() {
    const SourcePlace place = Cursor.Place();
    std::string label = ParseLabelName();
    if (!Cursor.HasFailed()) {
        Labels.Refer(label, place);
    }
    return label;
}

void StatementContext::SkipLinesTo(const Token& first, Keyword word, std::string text) {
    Cursor.FailText(first.Place, std::move(text));
    while (Cursor.NextLine(Source)) {
        if (Cursor.At(Keyword::End) && Cursor.Peek(1).Word == word) {
            Cursor.SkipLine();
            return;
        }
        const Keyword ended = Cursor.At(Keyword::End) ? Cursor.Peek(1).Word : Keyword::None;
        const bool isProcedureEnd =
            ended == Keyword::Sub || ended == Keyword::Function || ended == Keyword::Property;
        if (isProcedureEnd || AtProcedureHead()) {
            Body.NeedsNoSeparator = true;
            return;
        }
    }
}

}  // namespace dorvik::basic
