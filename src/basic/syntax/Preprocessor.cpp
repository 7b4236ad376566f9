#include "Preprocessor.h"

#include "base/modTextCase.h"

#include <utility>

namespace dorvik::basic {

Preprocessor::Preprocessor(Lexer& lexer, ErrorList& errors)
    : m_lexer(lexer), m_errors(errors), m_cursor(errors), m_expressions(m_cursor) {
    m_constants.emplace("vba6", Value::Boolean(true));
    m_constants.emplace("win32", Value::Boolean(true));
}

bool Preprocessor::NextLine(std::vector<Token>& tokens) {
    while (m_lexer.HasLine()) {
        if (m_lexer.FirstCharacter() == '#') {
            m_lexer.ReadLine(tokens);
            Obey(tokens);
        } else if (IsLive()) {
            m_lexer.ReadLine(tokens);
            return true;
        } else {
            m_lexer.SkipLine();
        }
    }
    for (const Branch& branch : m_branches) {
        m_errors.Add(parseerror::kExpectedEnd, branch.Place, "'#If' without '#End If'");
    }
    m_branches.clear();
    tokens.assign(1, Token{});
    return false;
}

void Preprocessor::Obey(std::vector<Token>& tokens) {
    m_cursor.Load(std::exchange(tokens, {}));
    const SourcePlace place = m_cursor.Take().Place;
    const Keyword word = m_cursor.Peek().Word;
    if (word == Keyword::If) {
        ObeyIf(place);
    } else if (word == Keyword::ElseIf) {
        ObeyElseIf(place);
    } else if (word == Keyword::Else) {
        ObeyElse(place);
    } else if (
        word == Keyword::EndIf || (word == Keyword::End && m_cursor.Peek(1).Word == Keyword::If)) {
        ObeyEndIf(place);
    } else if (!IsLive()) {
        return;
    } else if (word == Keyword::Const) {
        ObeyConst();
    } else {
        m_cursor.FailText(place, "Expected '#If', '#ElseIf', '#Else', '#End If' or '#Const'");
    }
}

void Preprocessor::ObeyConst() {
    m_cursor.Take();
    const Token name = m_cursor.ExpectName();
    m_cursor.Expect(TokenKind::Equal, parseerror::kExpectedEqual);
    const ExpressionPointer expression = m_expressions.ParseExpression();
    if (!m_cursor.AtEndOfLine()) {
        m_cursor.Fail(parseerror::kExpectedEndOfStatement);
    }
    if (const auto value = Evaluate(expression)) {
        m_constants[modTextCase::ToLower(name.Text)] = *value;
    }
}

/// Reads `condition Then` and says whether it holds; Null and what failed do not.
bool Preprocessor::ReadCondition() {
    const ExpressionPointer expression = m_expressions.ParseExpression();
    m_cursor.Expect(Keyword::Then, parseerror::kExpectedThen);
    if (!m_cursor.AtEndOfLine()) {
        m_cursor.Fail(parseerror::kExpectedEndOfStatement);
    }
    const auto value = Evaluate(expression);
    if (!value || value->Type() == ValueType::Null) {
        return false;
    }
    auto literal = std::make_unique<Expression>();
    literal->Place = expression->Place;
    literal->Node = LiteralNode{*value};
    Diagnostics diagnostics({});
    const auto truth =
        ConstantEvaluator(*this, diagnostics, false).Evaluate(*literal, {DeclaredKind::Boolean});
    for (const CompileError& error : diagnostics.Errors) {
        m_errors.AddText(error.Number, error.Place, error.Text);
    }
    return truth && truth->AsBoolean();
}

std::optional<Value> Preprocessor::Evaluate(const ExpressionPointer& expression) {
    if (m_cursor.HasFailed() || !expression) {
        return std::nullopt;
    }
    Diagnostics diagnostics({});
    auto value = ConstantEvaluator(*this, diagnostics, false).Evaluate(*expression);
    for (const CompileError& error : diagnostics.Errors) {
        m_errors.AddText(error.Number, error.Place, error.Text);
    }
    return value;
}

const Value*
Preprocessor::FindConstant(const std::string& qualifier, const std::string& name, bool&) {
    if (!qualifier.empty()) {
        return nullptr;
    }
    const auto found = m_constants.find(modTextCase::ToLower(name));
    return found == m_constants.end() ? &m_unknown : &found->second;
}

void Preprocessor::ObeyIf(SourcePlace place) {
    m_cursor.Take();
    Branch branch;
    branch.Place = place;
    branch.IsOuterLive = IsLive();
    branch.IsLive = branch.IsOuterLive && ReadCondition();
    branch.WasTaken = branch.IsLive;
    m_branches.push_back(branch);
}

bool Preprocessor::RequireOpen(SourcePlace place, std::string_view directive) {
    if (!m_branches.empty()) {
        return true;
    }
    m_cursor.FailText(place, "'" + std::string(directive) + "' without '#If'");
    return false;
}

void Preprocessor::ObeyElseIf(SourcePlace place) {
    if (!RequireOpen(place, "#ElseIf")) {
        return;
    }
    m_cursor.Take();
    Branch& branch = m_branches.back();
    if (branch.SawElse) {
        m_cursor.FailText(place, "'#ElseIf' after '#Else'");
    }
    branch.IsLive = branch.IsOuterLive && !branch.WasTaken && ReadCondition();
    branch.WasTaken = branch.WasTaken || branch.IsLive;
}

void Preprocessor::ObeyElse(SourcePlace place) {
    if (!RequireOpen(place, "#Else")) {
        return;
    }
    Branch& branch = m_branches.back();
    if (branch.SawElse) {
        m_cursor.FailText(place, "'#Else' after '#Else'");
    }
    branch.IsLive = branch.IsOuterLive && !branch.WasTaken;
    branch.WasTaken = true;
    branch.SawElse = true;
}

void Preprocessor::ObeyEndIf(SourcePlace place) {
    if (RequireOpen(place, "#End If")) {
        m_branches.pop_back();
    }
}

}  // namespace dorvik::basic
