#include "StatementParser.h"
#include "base/modTextCase.h"

#include <utility>

// If, Select Case, With and End.
namespace dorvik::basic {

void StatementParser::UpdateWith() {
    m_expressions.SetInWith(m_blocks.Contains(BlockKind::With));
}

void StatementParser::Open(BlockKind kind, SourcePlace place, decltype(Statement::Node) node) {
    m_blocks.Push({kind, place, {place, std::move(node)}, false, {}});
    UpdateWith();
}

void StatementParser::CloseSimple(
    BlockKind kind, std::string_view closing, std::string_view opening, SourcePlace place) {
    if (m_blocks.Expose(kind, kind, closing, place)) {
        m_blocks.Pop();
    } else if (!m_blocks.TakeOrphan(kind)) {
        m_cursor.FailText(
            place, "'" + std::string(closing) + "' without '" + std::string(opening) + "'");
    }
    UpdateWith();
}

void StatementParser::ParseIf() {
    const SourcePlace place = m_cursor.Take().Place;
    IfStatement statement;
    IfBranch& branch = statement.Branches.emplace_back();
    branch.Place = place;
    branch.Condition = m_expressions.ParseExpression();
    if (!m_cursor.Expect(Keyword::Then, parseerror::kExpectedThen)) {
        RecoverIf(place);
        return;
    }
    statement.IsSingleLine = !m_cursor.AtEndOfLine();
    const BlockKind kind = statement.IsSingleLine ? BlockKind::LineIf : BlockKind::If;
    Open(kind, place, std::move(statement));
    if (kind == BlockKind::LineIf) {
        TakeLineJump();
    }
}

/// After an error in the condition: a block has begun unless something follows a `Then`.
void StatementParser::RecoverIf(SourcePlace place) {
    if (m_cursor.LastOfLine().Word != Keyword::Then && m_cursor.LineContains(Keyword::Then)) {
        m_cursor.SkipLine();
        return;
    }
    IfStatement statement;
    statement.Branches.emplace_back();
    Open(BlockKind::If, place, std::move(statement));
}

/// Behind the Then or Else of a single line a statement follows at once, or the number of a line.
void StatementParser::TakeLineJump() {
    m_body.NeedsNoSeparator = true;
    if (!m_cursor.At(TokenKind::Number)) {
        return;
    }
    const SourcePlace place = m_cursor.Place();
    std::string label = ParseLabelName();
    m_labels.Refer(label, place);
    Add(place, GoToStatement{std::move(label)});
    m_body.NeedsNoSeparator = false;
}

void StatementParser::ParseElse() {
    const SourcePlace place = m_cursor.Take().Place;
    const bool isInLine = m_blocks.Contains(BlockKind::LineIf);
    while (m_blocks.Contains(BlockKind::LineIf)) {
        m_blocks.Expose(BlockKind::LineIf, BlockKind::LineIf, "Else", place);
        if (!m_blocks.Top().SawElse) {
            m_blocks.Top().SawElse = true;
            UpdateWith();
            TakeLineJump();
            return;
        }
        m_blocks.Pop();
    }
    m_body.NeedsNoSeparator = true;
    if (isInLine) {
        m_cursor.FailAt(place, parseerror::kExpectedEndOfStatement);
    } else if (!m_blocks.Expose(BlockKind::If, BlockKind::If, "Else", place)) {
        if (!m_blocks.HasOrphan(BlockKind::If)) {
            m_cursor.FailText(place, "'Else' without 'If'");
        }
    } else if (m_blocks.Top().SawElse) {
        m_cursor.FailText(place, "'Else' behind 'Else'");
    } else {
        if (!IsFirstOnLine()) {
            m_cursor.FailAt(place, parseerror::kMustBeFirst);
        }
        m_blocks.Top().SawElse = true;
    }
    UpdateWith();
}

void StatementParser::ParseElseIf() {
    const SourcePlace place = m_cursor.Take().Place;
    if (m_blocks.Contains(BlockKind::LineIf)) {
        m_cursor.FailText(place, "'ElseIf' belongs to an 'If' with lines of its own");
        return;
    }
    if (!m_blocks.Expose(BlockKind::If, BlockKind::If, "ElseIf", place)) {
        if (!m_blocks.HasOrphan(BlockKind::If)) {
            m_cursor.FailText(place, "'ElseIf' without 'If'");
        }
        m_cursor.TakeToEnd();
        return;
    }
    UpdateWith();
    if (!IsFirstOnLine()) {
        m_cursor.FailAt(place, parseerror::kMustBeFirst);
    } else if (m_blocks.Top().SawElse) {
        m_cursor.FailText(place, "'ElseIf' behind 'Else'");
    }
    IfBranch branch;
    branch.Place = place;
    branch.Condition = m_expressions.ParseExpression();
    m_cursor.Expect(Keyword::Then, parseerror::kExpectedThen);
    if (!m_blocks.Top().SawElse) {
        std::get<IfStatement>(m_blocks.Top().Node.Node).Branches.push_back(std::move(branch));
    }
    m_body.NeedsNoSeparator = true;
}

void StatementParser::ParseEndIf() {
    CloseIf(m_cursor.Take().Place);
}

void StatementParser::CloseIf(SourcePlace place) {
    if (m_blocks.Contains(BlockKind::LineIf)) {
        m_cursor.FailText(place, "'End If' cannot end a single-line 'If'");
        return;
    }
    const bool isOpen = m_blocks.Contains(BlockKind::If);
    CloseSimple(BlockKind::If, "End If", "If", place);
    if (isOpen && !IsFirstOnLine()) {
        m_cursor.FailAt(place, parseerror::kMustBeFirst);
    }
}

void StatementParser::ParseSelect() {
    const SourcePlace place = m_cursor.Take().Place;
    m_cursor.Expect(Keyword::Case, parseerror::kExpectedCase);
    SelectStatement statement;
    statement.Subject = m_expressions.ParseExpression();
    Open(BlockKind::Select, place, std::move(statement));
}

/// Between `Select Case` and the first `Case` no statement may stand.
void StatementParser::RequireCase() {
    if (!m_blocks.TopIs(BlockKind::Select)) {
        return;
    }
    auto& clauses = std::get<SelectStatement>(m_blocks.Top().Node.Node).Clauses;
    if (!clauses.empty()) {
        return;
    }
    m_cursor.Errors().Add(
        parseerror::kExpectedCase, m_cursor.Place(), "no statement can stand before the first one");
    clauses.emplace_back();
}

void StatementParser::ParseCase() {
    const SourcePlace place = m_cursor.Take().Place;
    if (!m_blocks.Expose(BlockKind::Select, BlockKind::Select, "Case", place)) {
        if (!m_blocks.HasOrphan(BlockKind::Select)) {
            m_cursor.FailText(place, "'Case' without 'Select Case'");
        }
        m_cursor.TakeToEnd();
        m_cursor.TakeIf(Keyword::Else);
        return;
    }
    UpdateWith();
    const bool sawElse = m_blocks.Top().SawElse;
    if (sawElse) {
        m_cursor.FailText(place, "'Case' behind 'Case Else'");
    }
    CaseClause clause;
    clause.Place = place;
    if (m_cursor.TakeIf(Keyword::Else)) {
        m_blocks.Top().SawElse = true;
    } else {
        do {
            clause.Tests.push_back(ParseCaseTest());
        } while (m_cursor.TakeIf(TokenKind::Comma));
    }
    std::get<SelectStatement>(m_blocks.Top().Node.Node).Clauses.push_back(std::move(clause));
}

CaseTest StatementParser::ParseCaseTest() {
    CaseTest test{CaseTestKind::Value, BinaryOperator::Equal, nullptr, nullptr};
    const bool hasIs = m_cursor.At(TokenKind::Keyword) && m_cursor.TakeIf(Keyword::Is);
    if (m_expressions.TakeComparison(test.Comparison)) {
        test.Kind = CaseTestKind::Comparison;
    } else if (hasIs) {
        m_cursor.Fail(parseerror::kSyntax, "'Case Is' is followed by a comparison operator");
    }
    test.Value = m_expressions.ParseExpression();
    if (test.Kind == CaseTestKind::Value && m_cursor.At(TokenKind::Keyword) &&
        m_cursor.TakeIf(Keyword::To)) {
        test.Kind = CaseTestKind::Range;
        test.Upper = m_expressions.ParseExpression();
    }
    return test;
}

void StatementParser::ParseWith() {
    const SourcePlace place = m_cursor.Take().Place;
    WithStatement statement;
    statement.Target = m_expressions.ParseExpression();
    Open(BlockKind::With, place, std::move(statement));
}

void StatementParser::ParseEnd() {
    const SourcePlace place = m_cursor.Take().Place;
    const Token word = m_cursor.Peek();
    if (word.Word == Keyword::If) {
        m_cursor.Take();
        CloseIf(place);
    } else if (word.Word == Keyword::Select) {
        m_cursor.Take();
        CloseSimple(BlockKind::Select, "End Select", "Select Case", place);
    } else if (word.Word == Keyword::With) {
        m_cursor.Take();
        CloseSimple(BlockKind::With, "End With", "With", place);
    } else if (word.Word == Keyword::Try && m_body.SawTry) {
        m_cursor.Take();
    } else if (
        word.Kind == TokenKind::Name || word.Word == Keyword::Enum || word.Word == Keyword::While) {
        m_cursor.FailText(place, "'End " + std::string(word.Text) + "' ends nothing here");
    } else {
        RequireCase();
        Add(place, EndStatement{});
    }
}

}  // namespace dorvik::basic
