#include "ArrayStatementCompiler.h"

#include "ArgumentCompiler.h"
#include "ExpressionCompiler.h"
#include "LValueCompiler.h"
#include "NameResolver.h"
#include "OperandTypes.h"

namespace dorvik::basic {

void ArrayStatementCompiler::Compile(const RedimStatement& node, SourcePlace place) {
    for (const RedimTarget& target : node.Targets) {
        Redimension(target, node.Preserve, place);
    }
}

void ArrayStatementCompiler::Redimension(
    const RedimTarget& target, bool preserve, SourcePlace place) {
    Names().DeclareRedimensioned(target);
    const LValue lvalue = LValues().LValueOf(*target.Target);
    const bool isVariant = IsVariant(lvalue.Type);
    if (!lvalue.IsAssignable || lvalue.IsFixedArray || (!lvalue.Type.IsArray && !isVariant)) {
        Error(
            compileerror::kOther,
            place,
            lvalue.IsFixedArray ? "A fixed array cannot be redimensioned"
                                : "ReDim needs a dynamic array or a Variant");
        return;
    }
    DeclaredType type = lvalue.Type;
    if (!target.Type.Name.empty()) {
        const DeclaredType said = m_scope.ResolveType(target.Type, 0, {});
        if (lvalue.Type.IsArray && said.Kind != lvalue.Type.Kind) {
            Error(compileerror::kOther, place, "ReDim cannot change the type of the array");
        }
        type = said;
    }
    type.IsArray = false;
    std::vector<AfterCall> after;
    const Register reference = m_code.TemporaryGeneric();
    LValues().ReferTo(*target.Target, lvalue, reference, after);
    const std::size_t count = target.Bounds.size();
    const Register first = m_code.PushArguments(2 * count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto lower = static_cast<Register>(first + 2 * i);
        const DeclaredType asLong{DeclaredKind::Long};
        if (target.Bounds[i].Lower) {
            Expressions().EvaluateInto(*target.Bounds[i].Lower, lower, asLong);
        } else {
            m_code.EmitWide(Opcode::LoadLong, lower, m_scope.Module.OptionBase);
        }
        if (target.Bounds[i].Upper) {
            Expressions().EvaluateInto(
                *target.Bounds[i].Upper, static_cast<Register>(lower + 1), asLong);
        }
    }
    m_code.Emit(
        Opcode::DimensionArray,
        reference,
        static_cast<Register>(m_scope.AddType(type)),
        first,
        static_cast<std::uint8_t>(count * 2 + (preserve ? 1 : 0)));
    m_code.PopArguments(2 * count);
    Arguments().Finish(after);
}

void ArrayStatementCompiler::Compile(const EraseStatement& node, SourcePlace place) {
    for (const ExpressionPointer& written : node.Targets) {
        const Expression& target = LValues().WithoutEmptyParentheses(*written);
        const LValue lvalue = LValues().LValueOf(target);
        const bool isVariant = IsVariant(lvalue.Type);
        if (!lvalue.IsAssignable || (!lvalue.Type.IsArray && !isVariant)) {
            Error(compileerror::kOther, place, "Erase needs an array");
            continue;
        }
        std::vector<AfterCall> after;
        const Register reference = m_code.TemporaryGeneric();
        LValues().ReferTo(target, lvalue, reference, after);
        m_code.Emit(Opcode::EraseArray, reference);
        Arguments().Finish(after);
    }
}

}  // namespace dorvik::basic
