#include "ExpressionParser.h"

#include "Literals.h"
#include "OperatorTable.h"
#include "base/modTextCase.h"
#include "basic/syntax/Parser.h"
#include "basic/values/ScriptObject.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

namespace {

std::int32_t HeightOf(const ExpressionPointer& expression) {
    return expression ? expression->Height : 0;
}

struct ForeignRow {
    Keyword Word;
    std::string_view Advice;
};
constexpr ForeignRow kForeignOperators[] = {
    {Keyword::AndAlso, "'AndAlso' is not an operator of this language; write 'And'"},
    {Keyword::OrElse, "'OrElse' is not an operator of this language; write 'Or'"},
    {Keyword::IsNot, "'IsNot' is not an operator of this language; write 'Not a Is b'"},
};

/// The parts of the language's library, which may be written between `VBA.` and a name.
constexpr std::string_view kLanguageParts[] = {
    "ColorConstants", "Constants",        "Conversion",
    "DateTime",       "FileSystem",       "Information",
    "Interaction",    "KeyCodeConstants", "Math",
    "Strings",        "VbAppWinStyle",    "VbCalendar",
    "VbCallType",     "VbCompareMethod",  "VbDateTimeFormat",
    "VbDayOfWeek",    "VbFileAttribute",  "VbFirstWeekOfYear",
    "VbMsgBoxResult", "VbMsgBoxStyle",    "VbStrConv",
    "VbTriState",     "VbVarType",
};

/// `VBA`, or `VBA.` and a part of it.
bool IsLanguage(const Expression* target) {
    const auto* node = target != nullptr ? std::get_if<NameNode>(&target->Node) : nullptr;
    if (node == nullptr || node->Suffix != 0) {
        return false;
    }
    const std::string_view name = node->Name;
    const std::string_view library = kLanguagePrefix.substr(0, kLanguagePrefix.size() - 1);
    return modTextCase::Equal(name, library) ||
           (name.starts_with(kLanguagePrefix) &&
            std::any_of(
                std::begin(kLanguageParts), std::end(kLanguageParts), [&](std::string_view part) {
                    return modTextCase::Equal(name.substr(kLanguagePrefix.size()), part);
                }));
}

}  // namespace

/// Counts a level of parentheses, arguments or prefix operators as long as it lives.
class ExpressionParser::NestingGuard {
public:
    explicit NestingGuard(ExpressionParser& parser) : m_parser(parser) { ++parser.m_nesting; }
    ~NestingGuard() { --m_parser.m_nesting; }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;

private:
    ExpressionParser& m_parser;
};

bool ExpressionParser::EnterNesting() {
    if (m_nesting < kDeepestNesting) {
        return true;
    }
    m_cursor.FailText(
        m_cursor.Place(),
        "The expression is nested more than " + std::to_string(kDeepestNesting) + " levels deep");
    return false;
}

ExpressionPointer ExpressionParser::Make(
    SourcePlace place, std::int32_t heightBelow, decltype(Expression::Node) node) {
    if (m_cursor.HasFailed()) {
        return nullptr;
    }
    if (heightBelow >= kTallestExpression) {
        m_cursor.FailText(
            place,
            "The expression has more than " + std::to_string(kTallestExpression) +
                " terms in one chain");
        return nullptr;
    }
    auto expression = std::make_unique<Expression>();
    expression->Place = place;
    expression->Node = std::move(node);
    expression->Height = heightBelow + 1;
    return expression;
}

ExpressionPointer ExpressionParser::ParseExpression() {
    return ParseBinary(precedence::kImp);
}

ExpressionPointer ExpressionParser::ParseBinary(int leastLevel) {
    ExpressionPointer left = ParseUnary();
    while (!m_cursor.HasFailed()) {
        const OperatorRow row = BinaryOperatorOf(m_cursor.Peek());
        if (row.Level < leastLevel || row.Level == 0) {
            break;
        }
        const SourcePlace place = m_cursor.Take().Place;
        // Equal ones go from left to right: what is on the right binds tighter.
        ExpressionPointer right = ParseBinary(row.Level + 1);
        const std::int32_t height = std::max(HeightOf(left), HeightOf(right));
        left = Make(place, height, BinaryNode{row.Operator, std::move(left), std::move(right)});
    }
    RejectForeignOperator();
    return left;
}

void ExpressionParser::RejectForeignOperator() {
    if (!m_cursor.At(TokenKind::Name)) {
        return;
    }
    for (const ForeignRow& row : kForeignOperators) {
        if (m_cursor.At(row.Word)) {
            m_cursor.FailText(m_cursor.Place(), std::string(row.Advice));
        }
    }
}

ExpressionPointer ExpressionParser::ParseUnary() {
    UnaryOperator operation = UnaryOperator::Not;
    if (m_cursor.At(TokenKind::Minus)) {
        operation = UnaryOperator::Negate;
    } else if (m_cursor.At(TokenKind::Plus)) {
        operation = UnaryOperator::Plus;
    } else if (!m_cursor.At(TokenKind::Keyword) || !m_cursor.At(Keyword::Not)) {
        return ParsePostfix(ParseOperand(), false);
    }
    const SourcePlace place = m_cursor.Take().Place;
    if (!EnterNesting()) {
        return nullptr;
    }
    const NestingGuard guard(*this);
    const bool isNot = operation == UnaryOperator::Not;
    ExpressionPointer operand = ParseBinary(isNot ? precedence::kNot : precedence::kSign);
    const std::int32_t height = HeightOf(operand);
    return Make(place, height, UnaryNode{operation, std::move(operand)});
}

bool ExpressionParser::ContinuesTarget(bool stopsAtBlank) const {
    const Token& token = m_cursor.Peek();
    return !stopsAtBlank || !token.BlankBefore;
}

ExpressionPointer ExpressionParser::ParsePostfix(ExpressionPointer left, bool stopsAtBlank) {
    while (left && !m_cursor.HasFailed() && m_cursor.Position() < m_targetEnd) {
        const bool isLiteral = std::holds_alternative<LiteralNode>(left->Node);
        const bool isNamed = !isLiteral && !std::holds_alternative<ParenthesisNode>(left->Node) &&
                             !std::holds_alternative<NewNode>(left->Node) &&
                             !std::holds_alternative<TypeOfNode>(left->Node);
        if (m_cursor.At(TokenKind::LeftParenthesis) && isNamed) {
            left = ParseIndex(std::move(left));
        } else if (m_cursor.At(TokenKind::Dot) && !isLiteral && ContinuesTarget(stopsAtBlank)) {
            left = ParseMember(std::move(left));
        } else if (m_cursor.At(TokenKind::Bang) && !isLiteral && ContinuesTarget(stopsAtBlank)) {
            left = ParseMember(std::move(left));
        } else {
            break;
        }
    }
    return left;
}

ExpressionPointer ExpressionParser::ParseTarget() {
    if (!m_cursor.At(TokenKind::Name) && !m_cursor.At(TokenKind::Dot) &&
        !m_cursor.At(TokenKind::Bang) && !m_cursor.At(Keyword::Me)) {
        m_cursor.ExpectName();
        return nullptr;
    }
    return ParsePostfix(ParseOperand(), true);
}

ExpressionPointer ExpressionParser::ParseTargetBefore(std::size_t position) {
    const std::size_t end = std::exchange(m_targetEnd, position);
    ExpressionPointer target = ParseTarget();
    m_targetEnd = end;
    return target;
}

ExpressionPointer ExpressionParser::ParsePrimary() {
    return ParseOperand();
}

ExpressionPointer ExpressionParser::ParseMember(ExpressionPointer target) {
    const Token sign = m_cursor.Take();
    const bool isBang = sign.Kind == TokenKind::Bang;
    const Token name = m_cursor.ExpectName();
    if (!target && !m_isInWith) {
        m_cursor.FailText(
            sign.Place,
            "'" + std::string(sign.Text) + std::string(name.Text) + "' is not in a 'With'");
        return nullptr;
    }
    if (!isBang && IsLanguage(target.get())) {
        return Make(
            name.Place,
            0,
            NameNode{std::string(kLanguagePrefix) + std::string(name.Text), name.Suffix});
    }
    const std::int32_t height = HeightOf(target);
    if (isBang) {
        return Make(name.Place, height, BangNode{std::move(target), std::string(name.Text)});
    }
    return Make(
        name.Place, height, MemberNode{std::move(target), std::string(name.Text), name.Suffix});
}

ExpressionPointer ExpressionParser::ParseIndex(ExpressionPointer target) {
    m_cursor.Take();
    if (!EnterNesting()) {
        return nullptr;
    }
    const NestingGuard guard(*this);
    IndexNode node;
    ParseArguments(node.Arguments);
    std::int32_t height = HeightOf(target);
    for (const Argument& argument : node.Arguments) {
        height = std::max(height, HeightOf(argument.Value));
    }
    const SourcePlace place = target->Place;
    node.Target = std::move(target);
    return Make(place, height, std::move(node));
}

ExpressionPointer ExpressionParser::ParseOperand() {
    const Token& token = m_cursor.Peek();
    if (token.Kind == TokenKind::Name) {
        const Token name = m_cursor.Take();
        return Make(name.Place, 0, NameNode{std::string(name.Text), name.Suffix});
    }
    if (token.Kind == TokenKind::Keyword) {
        return ParseWord();
    }
    if (token.Kind == TokenKind::Dot || token.Kind == TokenKind::Bang) {
        return ParseMember(nullptr);
    }
    if (token.Kind != TokenKind::LeftParenthesis) {
        return ParseLiteral();
    }
    m_cursor.Take();
    if (!EnterNesting()) {
        return nullptr;
    }
    const NestingGuard guard(*this);
    ExpressionPointer inner = ParseExpression();
    m_cursor.Expect(TokenKind::RightParenthesis, parseerror::kExpectedRightParenthesis);
    return MakeParenthesis(std::move(inner));
}

ExpressionPointer ExpressionParser::MakeParenthesis(ExpressionPointer inner) {
    const SourcePlace place = inner ? inner->Place : m_cursor.Place();
    const std::int32_t height = HeightOf(inner);
    return Make(place, height, ParenthesisNode{std::move(inner)});
}

ExpressionPointer ExpressionParser::ParseLiteral() {
    const Token token = m_cursor.Peek();
    if (token.Kind == TokenKind::String) {
        m_cursor.Take();
        return Make(token.Place, 0, LiteralNode{StringLiteral(token.Text)});
    }
    if (token.Kind == TokenKind::Number) {
        std::string problem;
        const auto number = NumberLiteral(token.Text, token.Suffix, problem);
        if (!number) {
            m_cursor.Fail(parseerror::kInvalidNumber, problem);
            return nullptr;
        }
        m_cursor.Take();
        return Make(token.Place, 0, LiteralNode{*number});
    }
    if (token.Kind == TokenKind::Date) {
        const auto date = DateLiteral(token.Text);
        if (!date) {
            m_cursor.FailText(token.Place, "'#" + std::string(token.Text) + "#' is not a date");
        }
        m_cursor.Take();
        return Make(token.Place, 0, LiteralNode{date.value_or(Value())});
    }
    m_cursor.Fail(parseerror::kExpectedExpression);
    return nullptr;
}

ExpressionPointer ExpressionParser::ParseWord() {
    struct LiteralRow {
        Keyword Word;
        Value (*Make)();
    };
    static constexpr LiteralRow kLiterals[] = {
        {Keyword::True,
         [] {
             return Value::Boolean(true);
         }},
        {Keyword::False,
         [] {
             return Value::Boolean(false);
         }},
        {Keyword::Null,
         [] {
             return Value::Null();
         }},
        {Keyword::Empty,
         [] {
             return Value();
         }},
        {Keyword::Nothing,
         [] {
             return Value::Object({});
         }},
    };
    const Token token = m_cursor.Peek();
    for (const LiteralRow& row : kLiterals) {
        if (token.Word != row.Word) {
            continue;
        }
        m_cursor.Take();
        return Make(token.Place, 0, LiteralNode{row.Make()});
    }
    if (token.Word == Keyword::New) {
        m_cursor.Take();
        std::string name = ParseTypeName();
        return Make(token.Place, 0, NewNode{std::move(name)});
    }
    if (token.Word == Keyword::TypeOf) {
        return ParseTypeOf();
    }
    if (token.Word == Keyword::Me) {
        m_cursor.FailText(token.Place, "'Me' is not available in a module");
    } else if (token.Word == Keyword::AddressOf) {
        m_cursor.FailText(token.Place, "'AddressOf' is not available");
    } else {
        m_cursor.Fail(parseerror::kExpectedExpression);
    }
    return nullptr;
}

ExpressionPointer ExpressionParser::ParseTypeOf() {
    const SourcePlace place = m_cursor.Take().Place;
    ExpressionPointer operand = ParsePostfix(ParseOperand(), false);
    if (!m_cursor.TakeIf(Keyword::Is)) {
        m_cursor.Fail(
            parseerror::kSyntax, "'TypeOf x' is followed by 'Is' and the name of a class");
    }
    std::string name = ParseTypeName();
    const std::int32_t height = HeightOf(operand);
    return Make(place, height, TypeOfNode{std::move(operand), std::move(name)});
}

std::string ExpressionParser::ParseTypeName() {
    const bool isTypeWord = m_cursor.At(TokenKind::Keyword) && m_cursor.At(Keyword::TypeWord);
    const Token first = isTypeWord ? m_cursor.Take() : m_cursor.ExpectName();
    std::string name(first.Text);
    while (m_cursor.TakeIf(TokenKind::Dot)) {
        name.append(".").append(m_cursor.ExpectName().Text);
    }
    return name;
}

}  // namespace dorvik::basic
