#include "basic/syntax/ConstantEvaluator.h"

#include "base/BasicError.h"
#include "basic/values/Coercion.h"

namespace dorvik::basic {

namespace {

/// Constants that name constants further down are computed inside each other.
constexpr int kDeepestComputation = 3'000;

}  // namespace

std::optional<Value> ConstantEvaluator::Evaluate(const Expression& expression) {
    return Evaluate(expression, {});
}

std::optional<Value>
ConstantEvaluator::Evaluate(const Expression& expression, const DeclaredType& type) {
    try {
        auto value = Compute(expression);
        if (value && type.Kind != DeclaredKind::Variant) {
            value = CoerceTo(*value, type);
        }
        return value;
    } catch (const BasicError& error) {
        m_diagnostics.Error(
            compileerror::kOther,
            expression.Place,
            std::string("This constant cannot be computed: ") + error.what());
        return std::nullopt;
    }
}

std::optional<std::int32_t> ConstantEvaluator::EvaluateLong(const Expression& expression) {
    const auto value = Evaluate(expression, {DeclaredKind::Long});
    return value ? std::optional(value->AsLong()) : std::nullopt;
}

std::optional<Value> ConstantEvaluator::Reject(SourcePlace place) {
    m_diagnostics.Error(
        compileerror::kConstantExpected, place, "A constant expression is expected here");
    return std::nullopt;
}

std::optional<Value> ConstantEvaluator::Compute(const Expression& expression) {
    if (m_depth >= kDeepestComputation) {
        m_diagnostics.Error(
            compileerror::kOther, expression.Place, "Constants refer to each other too deeply");
        return std::nullopt;
    }
    ++m_depth;
    std::optional<Value> value;
    if (const auto* literal = std::get_if<LiteralNode>(&expression.Node)) {
        value = literal->Constant;
    } else if (const auto* name = std::get_if<NameNode>(&expression.Node)) {
        value = ComputeName(expression.Place, {}, name->Name);
    } else if (const auto* member = std::get_if<MemberNode>(&expression.Node)) {
        value = ComputeMember(expression.Place, *member);
    } else if (const auto* inner = std::get_if<ParenthesisNode>(&expression.Node)) {
        value = Compute(*inner->Inner);
    } else if (const auto* unary = std::get_if<UnaryNode>(&expression.Node)) {
        value = ComputeUnary(*unary);
    } else if (const auto* binary = std::get_if<BinaryNode>(&expression.Node)) {
        value = ComputeBinary(*binary);
    } else {
        value = Reject(expression.Place);
    }
    --m_depth;
    return value;
}

std::optional<Value> ConstantEvaluator::ComputeName(
    SourcePlace place, const std::string& qualifier, const std::string& name) {
    bool wasReported = false;
    if (const Value* value = m_names.FindConstant(qualifier, name, wasReported)) {
        return *value;
    }
    return wasReported ? std::nullopt : Reject(place);
}

std::optional<Value> ConstantEvaluator::ComputeMember(SourcePlace place, const MemberNode& member) {
    const auto* qualifier = member.Target ? std::get_if<NameNode>(&member.Target->Node) : nullptr;
    return qualifier ? ComputeName(place, qualifier->Name, member.Name) : Reject(place);
}

std::optional<Value> ConstantEvaluator::ComputeUnary(const UnaryNode& node) {
    const auto operand = Compute(*node.Operand);
    return operand ? std::optional(Apply(node.Operator, *operand, false)) : std::nullopt;
}

std::optional<Value> ConstantEvaluator::ComputeBinary(const BinaryNode& node) {
    const auto left = Compute(*node.Left);
    const auto right = Compute(*node.Right);
    if (!left || !right) {
        return std::nullopt;
    }
    return Apply(node.Operator, *left, *right, {false, false, m_comparesText});
}

}  // namespace dorvik::basic
