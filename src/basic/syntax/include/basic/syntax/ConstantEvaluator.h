#pragma once

#include "basic/syntax/Ast.h"
#include "basic/syntax/Diagnostics.h"

#include <optional>

namespace dorvik::basic {

/// Resolves the names in a constant expression.
class IConstantNames {
public:
    virtual ~IConstantNames() = default;
    /// The value of a constant, or of an enum's member if `qualifier` is the enum. Null if the name is
    /// none, or has no value because of an error that has been reported: then `wasReported` is set.
    virtual const Value*
    FindConstant(const std::string& qualifier, const std::string& name, bool& wasReported) = 0;
};

/// Computes what a constant, a bound, an enum's member or a default stands for. Every failure, run-time
/// errors of the operators too, becomes a compile error.
class ConstantEvaluator {
public:
    ConstantEvaluator(IConstantNames& names, Diagnostics& diagnostics, bool comparesText)
        : m_names(names), m_diagnostics(diagnostics), m_comparesText(comparesText) {}

    std::optional<Value> Evaluate(const Expression& expression);
    std::optional<Value> Evaluate(const Expression& expression, const DeclaredType& type);
    std::optional<std::int32_t> EvaluateLong(const Expression& expression);

private:
    std::optional<Value> Compute(const Expression& expression);
    std::optional<Value>
    ComputeName(SourcePlace place, const std::string& qualifier, const std::string& name);
    std::optional<Value> ComputeMember(SourcePlace place, const MemberNode& member);
    std::optional<Value> ComputeUnary(const UnaryNode& node);
    std::optional<Value> ComputeBinary(const BinaryNode& node);
    std::optional<Value> Reject(SourcePlace place);

    IConstantNames& m_names;
    Diagnostics& m_diagnostics;
    bool m_comparesText;
    int m_depth = 0;
};

}  // namespace dorvik::basic
