#include "DeclarationParser.h"

#include "base/modTextCase.h"
#include "basic/syntax/Parser.h"

#include <utility>

namespace dorvik::basic {

std::vector<VariableNode> DeclarationParser::ParseVariables() {
    std::vector<VariableNode> variables;
    do {
        variables.push_back(ParseVariable());
    } while (m_cursor.TakeIf(TokenKind::Comma));
    RejectValue();
    return variables;
}

void DeclarationParser::RejectValue() {
    if (m_cursor.At(TokenKind::Equal)) {
        m_cursor.Fail(
            parseerror::kExpectedEndOfStatement,
            "a declaration gives no value; assign it in a statement of its own");
    }
}

VariableNode DeclarationParser::ParseVariable() {
    VariableNode variable;
    if (m_cursor.At(Keyword::WithEvents) && m_cursor.Peek(1).Kind == TokenKind::Name) {
        m_cursor.FailText(m_cursor.Place(), "'WithEvents' is not available in a module");
    }
    BeginVariable(m_cursor.ExpectName(), variable);
    variable.Type = ParseTypeClause(variable.Suffix);
    return variable;
}

void DeclarationParser::BeginVariable(const Token& name, VariableNode& variable) {
    variable.Place = name.Place;
    variable.Name = std::string(name.Text);
    variable.Suffix = name.Suffix;
    if (m_cursor.TakeIf(TokenKind::LeftParenthesis)) {
        variable.IsArray = true;
        if (!m_cursor.TakeIf(TokenKind::RightParenthesis)) {
            variable.Bounds = ParseBounds();
        }
    }
}

VariableNode DeclarationParser::ParseRecordMember() {
    const Token name = m_cursor.Take();
    VariableNode member;
    if (name.Kind != TokenKind::Name && name.Kind != TokenKind::Keyword) {
        m_cursor.FailAt(name.Place, parseerror::kExpectedIdentifier);
    }
    BeginVariable(name, member);
    if (!m_cursor.At(Keyword::As) && member.Suffix == 0) {
        m_cursor.FailText(m_cursor.Place(), "Expected 'As': a member of a Type needs one");
    }
    member.Type = ParseTypeClause(member.Suffix);
    if (member.Type.IsNew) {
        m_cursor.FailText(member.Type.Place, "A member of a Type cannot be declared with 'New'");
    }
    return member;
}

std::vector<ConstantNode> DeclarationParser::ParseConstants() {
    std::vector<ConstantNode> constants;
    do {
        constants.push_back(ParseConstant());
    } while (m_cursor.TakeIf(TokenKind::Comma));
    return constants;
}

ConstantNode DeclarationParser::ParseConstant() {
    ConstantNode constant;
    const Token name = m_cursor.ExpectName();
    constant.Place = name.Place;
    constant.Name = std::string(name.Text);
    constant.Suffix = name.Suffix;
    constant.Type = ParseTypeClause(name.Suffix);
    m_cursor.Expect(TokenKind::Equal, parseerror::kExpectedEqual);
    constant.Value = m_expressions.ParseExpression();
    return constant;
}

TypeName DeclarationParser::ParseTypeClause(char suffix) {
    TypeName type;
    if (!m_cursor.At(TokenKind::Keyword) || !m_cursor.At(Keyword::As)) {
        return type;
    }
    if (suffix != 0) {
        m_cursor.FailText(m_cursor.Place(), "A name with a type suffix takes no 'As'");
    }
    m_cursor.Take();
    type.IsNew = m_cursor.At(TokenKind::Keyword) && m_cursor.TakeIf(Keyword::New);
    type.Place = m_cursor.Place();
    type.Name = m_expressions.ParseTypeName();
    if (m_cursor.At(TokenKind::Star) && modTextCase::Equal(type.Name, "String")) {
        m_cursor.Take();
        type.FixedLength = m_expressions.ParsePrimary();
    }
    return type;
}

TypeName DeclarationParser::ParseResultType(char suffix) {
    TypeName type = ParseTypeClause(suffix);
    if (type.IsNew) {
        m_cursor.FailText(type.Place, "The result of a function cannot be declared with 'New'");
    }
    if (type.FixedLength) {
        m_cursor.FailText(type.Place, "The result of a function cannot have a fixed length");
    }
    if (!type.Name.empty()) {
        type.IsArray = TakeEmptyParentheses();
    }
    return type;
}

bool DeclarationParser::TakeEmptyParentheses() {
    if (!m_cursor.TakeIf(TokenKind::LeftParenthesis)) {
        return false;
    }
    m_cursor.Expect(TokenKind::RightParenthesis, parseerror::kExpectedRightParenthesis);
    return true;
}

std::vector<BoundsNode> DeclarationParser::ParseBounds() {
    std::vector<BoundsNode> bounds;
    do {
        if (bounds.size() == static_cast<std::size_t>(kMostDimensions)) {
            m_cursor.FailText(
                m_cursor.Place(),
                "An array has at most " + std::to_string(kMostDimensions) + " dimensions");
        }
        bounds.push_back(ParseBound());
    } while (m_cursor.TakeIf(TokenKind::Comma));
    m_cursor.Expect(TokenKind::RightParenthesis, parseerror::kExpectedRightParenthesis);
    return bounds;
}

BoundsNode DeclarationParser::ParseBound() {
    BoundsNode bound;
    bound.Upper = m_expressions.ParseExpression();
    if (!m_cursor.At(TokenKind::Keyword) || !m_cursor.TakeIf(Keyword::To)) {
        return bound;
    }
    bound.Lower = std::move(bound.Upper);
    bound.Upper = m_expressions.ParseExpression();
    return bound;
}

RedimStatement DeclarationParser::ParseRedim() {
    RedimStatement statement;
    statement.Preserve = m_cursor.At(TokenKind::Keyword) && m_cursor.TakeIf(Keyword::Preserve);
    do {
        statement.Targets.push_back(ParseRedimTarget());
    } while (m_cursor.TakeIf(TokenKind::Comma));
    RejectValue();
    return statement;
}

/// The bounds are the last parentheses of the target, so it is read twice: once to find out where
/// they begin.
RedimTarget DeclarationParser::ParseRedimTarget() {
    RedimTarget target;
    const std::size_t start = m_cursor.Position();
    std::size_t open = start;
    int depth = 0;
    for (bool goesOn = true; goesOn && !m_cursor.AtEndOfLine();) {
        if (m_cursor.At(TokenKind::LeftParenthesis) && depth++ == 0) {
            open = m_cursor.Position();
        } else if (m_cursor.At(TokenKind::RightParenthesis)) {
            --depth;
        }
        m_cursor.Take();
        const TokenKind next = m_cursor.Peek().Kind;
        goesOn = depth > 0 || next == TokenKind::LeftParenthesis || next == TokenKind::Dot ||
                 next == TokenKind::Bang || next == TokenKind::Name;
    }
    m_cursor.Rewind(start);
    if (open == start) {
        m_expressions.ParseTarget();
        m_cursor.Fail(parseerror::kExpectedLeftParenthesis);
        return target;
    }
    target.Target = m_expressions.ParseTargetBefore(open);
    m_cursor.Expect(TokenKind::LeftParenthesis, parseerror::kExpectedLeftParenthesis);
    target.Bounds = ParseBounds();
    target.Type = ParseTypeClause(0);
    return target;
}

std::vector<ParameterNode> DeclarationParser::ParseParameters() {
    std::vector<ParameterNode> parameters;
    if (!m_cursor.TakeIf(TokenKind::LeftParenthesis) ||
        m_cursor.TakeIf(TokenKind::RightParenthesis)) {
        return parameters;
    }
    do {
        parameters.push_back(ParseParameter());
        CheckParameterOrder(parameters);
    } while (m_cursor.TakeIf(TokenKind::Comma));
    m_cursor.Expect(TokenKind::RightParenthesis, parseerror::kExpectedRightParenthesis);
    return parameters;
}

void DeclarationParser::ParseParameterWords(ParameterNode& parameter) {
    bool hasPassing = false;
    while (m_cursor.At(TokenKind::Keyword)) {
        const bool isPassing = m_cursor.At(Keyword::ByVal) || m_cursor.At(Keyword::ByRef);
        if (m_cursor.At(Keyword::Optional) && !parameter.IsOptional && !hasPassing) {
            parameter.IsOptional = true;
        } else if (m_cursor.At(Keyword::ParamArray) && !parameter.IsParamArray && !hasPassing) {
            parameter.IsParamArray = true;
        } else if (isPassing && !hasPassing) {
            parameter.IsByVal = m_cursor.At(Keyword::ByVal);
        } else {
            return;
        }
        hasPassing = hasPassing || isPassing;
        m_cursor.Take();
    }
}

ParameterNode DeclarationParser::ParseParameter() {
    ParameterNode parameter;
    ParseParameterWords(parameter);
    const Token name = m_cursor.ExpectName();
    parameter.Place = name.Place;
    parameter.Name = std::string(name.Text);
    parameter.Suffix = name.Suffix;
    parameter.IsArray = TakeEmptyParentheses();
    parameter.Type = ParseTypeClause(name.Suffix);
    if (m_cursor.At(TokenKind::Equal)) {
        if (!parameter.IsOptional) {
            m_cursor.FailText(m_cursor.Place(), "Only an optional parameter has a default value");
        }
        m_cursor.Take();
        parameter.Default = m_expressions.ParseExpression();
    }
    CheckParameter(parameter);
    return parameter;
}

void DeclarationParser::CheckParameter(const ParameterNode& parameter) {
    const TypeName& type = parameter.Type;
    const SourcePlace place = parameter.Place;
    if (type.IsNew) {
        m_cursor.FailText(type.Place, "A parameter cannot be declared with 'New'");
    }
    if (type.FixedLength) {
        m_cursor.FailText(type.Place, "A parameter cannot have a fixed length");
    }
    if (parameter.IsArray && parameter.IsByVal && !parameter.IsParamArray) {
        m_cursor.FailText(place, "An array parameter cannot be 'ByVal'");
    }
    if (!parameter.IsParamArray) {
        return;
    }
    if (parameter.IsOptional || parameter.IsByVal) {
        m_cursor.FailText(place, "A 'ParamArray' is neither 'Optional' nor 'ByVal'");
    }
    const bool isVariant = type.Name.empty() || modTextCase::Equal(type.Name, "Variant");
    if (!parameter.IsArray || !isVariant || parameter.Suffix != 0) {
        m_cursor.FailText(place, "A 'ParamArray' is written 'ParamArray name() As Variant'");
    }
}

void DeclarationParser::CheckParameterOrder(const std::vector<ParameterNode>& parameters) {
    if (parameters.size() < 2) {
        return;
    }
    const ParameterNode& last = parameters.back();
    const ParameterNode& before = parameters[parameters.size() - 2];
    if (before.IsParamArray) {
        m_cursor.FailText(last.Place, "A 'ParamArray' must be the last parameter");
    }
    if (before.IsOptional && last.IsParamArray) {
        m_cursor.FailText(last.Place, "A 'ParamArray' cannot follow an optional parameter");
    }
    if (before.IsOptional && !last.IsOptional) {
        m_cursor.FailText(last.Place, "A required parameter follows an optional one");
    }
}

}  // namespace dorvik::basic
