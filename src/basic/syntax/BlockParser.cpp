#include "BlockParser.h"

#include <utility>

namespace dorvik::basic {

void BlockParser::ParseIf() {
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
    m_context.Open(kind, place, std::move(statement));
    if (kind == BlockKind::LineIf) {
        TakeLineJump();
    }
}

/// After an error in the condition: a block has begun unless something follows a `Then`.
void BlockParser::RecoverIf(SourcePlace place) {
    if (m_cursor.LastOfLine().Word != Keyword::Then && m_cursor.LineContains(Keyword::Then)) {
        m_cursor.SkipLine();
        return;
    }
    IfStatement statement;
    statement.Branches.emplace_back();
    m_context.Open(BlockKind::If, place, std::move(statement));
}

/// After the Then or Else of a single line a statement follows at once, or the number of a line.
void BlockParser::TakeLineJump() {
    m_context.Body.NeedsNoSeparator = true;
    if (!m_cursor.At(TokenKind::Number)) {
        return;
    }
    const SourcePlace place = m_cursor.Place();
    std::string label = m_context.ParseLabelName();
    m_context.Labels.Refer(label, place);
    m_context.Add(place, GoToStatement{std::move(label)});
    m_context.Body.NeedsNoSeparator = false;
}

void BlockParser::ParseElse() {
    const SourcePlace place = m_cursor.Take().Place;
    const bool isInLine = m_context.Blocks.Contains(BlockKind::LineIf);
    while (m_context.Blocks.Contains(BlockKind::LineIf)) {
        m_context.Blocks.Expose(BlockKind::LineIf, BlockKind::LineIf, "Else", place);
        if (!m_context.Blocks.Top().SawElse) {
            m_context.Blocks.Top().SawElse = true;
            m_context.UpdateWith();
            TakeLineJump();
            return;
        }
        m_context.Blocks.Pop();
    }
    m_context.Body.NeedsNoSeparator = true;
    if (isInLine) {
        m_cursor.FailAt(place, parseerror::kExpectedEndOfStatement);
    } else if (!m_context.Blocks.Expose(BlockKind::If, BlockKind::If, "Else", place)) {
        if (!m_context.Blocks.HasOrphan(BlockKind::If)) {
            m_cursor.FailText(place, "'Else' without 'If'");
        }
    } else if (m_context.Blocks.Top().SawElse) {
        m_cursor.FailText(place, "'Else' after 'Else'");
    } else {
        if (!m_context.IsFirstOnLine()) {
            m_cursor.FailAt(place, parseerror::kMustBeFirst);
        }
        m_context.Blocks.Top().SawElse = true;
    }
    m_context.UpdateWith();
}

void BlockParser::ParseElseIf() {
    const SourcePlace place = m_cursor.Take().Place;
    if (m_context.Blocks.Contains(BlockKind::LineIf)) {
        m_cursor.FailText(place, "'ElseIf' belongs to an 'If' with lines of its own");
        return;
    }
    if (!m_context.Blocks.Expose(BlockKind::If, BlockKind::If, "ElseIf", place)) {
        if (!m_context.Blocks.HasOrphan(BlockKind::If)) {
            m_cursor.FailText(place, "'ElseIf' without 'If'");
        }
        m_cursor.TakeToEnd();
        return;
    }
    m_context.UpdateWith();
    if (!m_context.IsFirstOnLine()) {
        m_cursor.FailAt(place, parseerror::kMustBeFirst);
    } else if (m_context.Blocks.Top().SawElse) {
        m_cursor.FailText(place, "'ElseIf' after 'Else'");
    }
    IfBranch branch;
    branch.Place = place;
    branch.Condition = m_expressions.ParseExpression();
    m_cursor.Expect(Keyword::Then, parseerror::kExpectedThen);
    if (!m_context.Blocks.Top().SawElse) {
        std::get<IfStatement>(m_context.Blocks.Top().Node.Node)
            .Branches.push_back(std::move(branch));
    }
    m_context.Body.NeedsNoSeparator = true;
}

void BlockParser::ParseEndIf() {
    CloseIf(m_cursor.Take().Place);
}

void BlockParser::CloseIf(SourcePlace place) {
    if (m_context.Blocks.Contains(BlockKind::LineIf)) {
        m_cursor.FailText(place, "'End If' cannot end a single-line 'If'");
        return;
    }
    const bool isOpen = m_context.Blocks.Contains(BlockKind::If);
    m_context.CloseSimple(BlockKind::If, "End If", "If", place);
    if (isOpen && !m_context.IsFirstOnLine()) {
        m_cursor.FailAt(place, parseerror::kMustBeFirst);
    }
}

void BlockParser::ParseSelect() {
    const SourcePlace place = m_cursor.Take().Place;
    m_cursor.Expect(Keyword::Case, parseerror::kExpectedCase);
    SelectStatement statement;
    statement.Subject = m_expressions.ParseExpression();
    m_context.Open(BlockKind::Select, place, std::move(statement));
}

void BlockParser::ParseCase() {
    const SourcePlace place = m_cursor.Take().Place;
    if (!m_context.Blocks.Expose(BlockKind::Select, BlockKind::Select, "Case", place)) {
        if (!m_context.Blocks.HasOrphan(BlockKind::Select)) {
            m_cursor.FailText(place, "'Case' without 'Select Case'");
        }
        m_cursor.TakeToEnd();
        m_cursor.TakeIf(Keyword::Else);
        return;
    }
    m_context.UpdateWith();
    const bool sawElse = m_context.Blocks.Top().SawElse;
    if (sawElse) {
        m_cursor.FailText(place, "'Case' after 'Case Else'");
    }
    CaseClause clause;
    clause.Place = place;
    if (m_cursor.TakeIf(Keyword::Else)) {
        m_context.Blocks.Top().SawElse = true;
    } else {
        do {
            clause.Tests.push_back(ParseCaseTest());
        } while (m_cursor.TakeIf(TokenKind::Comma));
    }
    std::get<SelectStatement>(m_context.Blocks.Top().Node.Node)
        .Clauses.push_back(std::move(clause));
}

CaseTest BlockParser::ParseCaseTest() {
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

void BlockParser::ParseWith() {
    const SourcePlace place = m_cursor.Take().Place;
    WithStatement statement;
    statement.Target = m_expressions.ParseExpression();
    m_context.Open(BlockKind::With, place, std::move(statement));
}

void BlockParser::ParseEnd() {
    const SourcePlace place = m_cursor.Take().Place;
    const Token word = m_cursor.Peek();
    if (word.Word == Keyword::If) {
        m_cursor.Take();
        CloseIf(place);
    } else if (word.Word == Keyword::Select) {
        m_cursor.Take();
        m_context.CloseSimple(BlockKind::Select, "End Select", "Select Case", place);
    } else if (word.Word == Keyword::With) {
        m_cursor.Take();
        m_context.CloseSimple(BlockKind::With, "End With", "With", place);
    } else if (word.Word == Keyword::Try && m_context.Body.SawTry) {
        m_cursor.Take();
    } else if (
        word.Kind == TokenKind::Name || word.Word == Keyword::Enum || word.Word == Keyword::While) {
        m_cursor.FailText(place, "'End " + std::string(word.Text) + "' ends nothing here");
    } else {
        m_context.RequireCase();
        m_context.Add(place, EndStatement{});
    }
}

}  // namespace dorvik::basic
