#include "OperatorCompiler.h"

#include "ExpressionCompiler.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "Relations.h"
#include "basic/values/ValueKinds.h"

namespace dorvik::basic {

namespace {

struct TypedRow {
    BinaryOperator Operator;
    Opcode Code;
};
constexpr TypedRow kLongRows[] = {
    {BinaryOperator::Add, Opcode::AddLong},
    {BinaryOperator::Subtract, Opcode::SubtractLong},
    {BinaryOperator::Multiply, Opcode::MultiplyLong},
    {BinaryOperator::IntegerDivide, Opcode::DivideLong},
    {BinaryOperator::Modulo, Opcode::ModuloLong},
    {BinaryOperator::And, Opcode::AndLong},
    {BinaryOperator::Or, Opcode::OrLong},
    {BinaryOperator::Xor, Opcode::XorLong},
};
constexpr TypedRow kIntegerRows[] = {
    {BinaryOperator::Add, Opcode::AddInteger},
    {BinaryOperator::Subtract, Opcode::SubtractInteger},
    {BinaryOperator::Multiply, Opcode::MultiplyInteger},
};
constexpr TypedRow kDoubleRows[] = {
    {BinaryOperator::Add, Opcode::AddDouble},
    {BinaryOperator::Subtract, Opcode::SubtractDouble},
    {BinaryOperator::Multiply, Opcode::MultiplyDouble},
    {BinaryOperator::Divide, Opcode::DivideDouble},
};
constexpr TypedRow kBooleanRows[] = {
    {BinaryOperator::And, Opcode::AndBoolean},
    {BinaryOperator::Or, Opcode::OrBoolean},
};

template <std::size_t Count>
const TypedRow* FindRow(const TypedRow (&rows)[Count], BinaryOperator which) {
    for (const TypedRow& row : rows) {
        if (row.Operator == which) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

Operand OperatorCompiler::EvaluateUnary(const UnaryNode& node) {
    const Operand operand = Expressions().Evaluate(*node.Operand);
    if (operand.Constant != nullptr && node.Operator == UnaryOperator::Negate) {
        const Value& number = *operand.Constant;
        if (number.Type() == ValueType::Integer && number.AsInteger() != INT16_MIN) {
            return Operands().Fold(Value::Integer(static_cast<std::int16_t>(-number.AsInteger())));
        }
        if (number.Type() == ValueType::Long && number.AsLong() != INT32_MIN) {
            return Operands().Fold(Value::Long(-number.AsLong()));
        }
        if (number.Type() == ValueType::Double) {
            return Operands().Fold(Value::Double(-number.AsDouble()));
        }
    }
    Operand result;
    result.IsTyped = operand.IsTyped;
    result.IsScalar = true;
    result.IsFresh = true;
    const Register slot = Operands().SlotOf(operand);
    if (node.Operator == UnaryOperator::Not && IsBoolean(operand.Type)) {
        result.Type = operand.Type;
        result.Slot = m_code.TemporaryPlain();
        m_code.Emit(Opcode::NotBoolean, result.Slot, slot);
        return result;
    }
    result.Slot = m_code.TemporaryGeneric();
    const Opcode code = node.Operator == UnaryOperator::Negate ? Opcode::Negate
                        : node.Operator == UnaryOperator::Plus ? Opcode::Plus
                                                               : Opcode::Not;
    m_code.Emit(code, result.Slot, slot, 0, operand.IsTyped ? 0 : 1);
    return result;
}

Operand OperatorCompiler::TypedOperator(
    Opcode code,
    DeclaredKind kind,
    Register left,
    Register right,
    ResultHint hint,
    std::uint8_t flags) {
    Operand result;
    result.Type.Kind = kind;
    result.IsTyped = true;
    result.IsFresh = true;
    result.Slot = Operands().ResultSlot(kind, hint);
    m_code.Emit(code, result.Slot, left, right, flags);
    return result;
}

Operand OperatorCompiler::LongOperator(
    BinaryOperator which, const Operand& left, const Operand& right, ResultHint hint) {
    const auto rightNumber = Operands().SmallConstant(right);
    const auto leftNumber = Operands().SmallConstant(left);
    if (which == BinaryOperator::Add || which == BinaryOperator::Subtract) {
        const bool isAdd = which == BinaryOperator::Add;
        if (rightNumber && left.Constant == nullptr) {
            const auto number = static_cast<std::int16_t>(isAdd ? *rightNumber : -*rightNumber);
            return TypedOperator(
                Opcode::AddLongImmediate,
                DeclaredKind::Long,
                Operands().SlotOf(left),
                static_cast<Register>(number),
                hint);
        }
        if (leftNumber && isAdd && right.Constant == nullptr) {
            return TypedOperator(
                Opcode::AddLongImmediate,
                DeclaredKind::Long,
                Operands().SlotOf(right),
                static_cast<Register>(*leftNumber),
                hint);
        }
    }
    return TypedOperator(
        FindRow(kLongRows, which)->Code,
        DeclaredKind::Long,
        Operands().LongSlotOf(left),
        Operands().LongSlotOf(right),
        hint);
}

std::optional<Operand>
OperatorCompiler::TryComparison(BinaryOperator which, const Operand& left, const Operand& right) {
    const auto flags = static_cast<std::uint8_t>(RelationOf(which));
    const auto compare = [&](Opcode code, Register first, Register second) {
        return TypedOperator(code, DeclaredKind::Boolean, first, second, {}, flags);
    };
    if (IsWhole(left.Type) && IsWhole(right.Type)) {
        return compare(
            Opcode::CompareLong, Operands().LongSlotOf(left), Operands().LongSlotOf(right));
    }
    if (AreDoubles(left, right)) {
        return compare(
            Opcode::CompareDouble, Operands().DoubleSlotOf(left), Operands().DoubleSlotOf(right));
    }
    if (IsText(left.Type) && IsText(right.Type) && !m_scope.Module.ComparesText) {
        return compare(Opcode::CompareText, Operands().SlotOf(left), Operands().SlotOf(right));
    }
    return std::nullopt;
}

std::optional<Operand> OperatorCompiler::TryTyped(
    BinaryOperator which, const Operand& left, const Operand& right, ResultHint hint) {
    if (IsRelation(which)) {
        return TryComparison(which, left, right);
    }
    if (FindRow(kLongRows, which) != nullptr && AreLongs(left, right)) {
        return LongOperator(which, left, right, hint);
    }
    if (const TypedRow* row = FindRow(kIntegerRows, which); row && AreIntegers(left, right)) {
        return TypedOperator(
            row->Code,
            DeclaredKind::Integer,
            Operands().SlotOf(left),
            Operands().SlotOf(right),
            hint);
    }
    if (const TypedRow* row = FindRow(kDoubleRows, which);
        row && (AreDoubles(left, right) ||
                (which == BinaryOperator::Divide && IsWhole(left.Type) && IsWhole(right.Type)))) {
        return TypedOperator(
            row->Code,
            DeclaredKind::Double,
            Operands().DoubleSlotOf(left),
            Operands().DoubleSlotOf(right),
            hint);
    }
    if (const TypedRow* row = FindRow(kBooleanRows, which);
        row && IsBoolean(left.Type) && IsBoolean(right.Type)) {
        return TypedOperator(
            row->Code,
            DeclaredKind::Boolean,
            Operands().SlotOf(left),
            Operands().SlotOf(right),
            hint);
    }
    return std::nullopt;
}

/// As literals do, they count against no limit. What is long is joined when the script runs, within its limit for
/// texts.
std::optional<Operand>
OperatorCompiler::TryJoin(BinaryOperator which, const Operand& left, const Operand& right) {
    constexpr std::size_t kLongestText = 256;
    const auto isText = [](const Operand& operand) {
        return operand.Constant != nullptr && operand.Constant->Type() == ValueType::String;
    };
    if (which != BinaryOperator::Concatenate || !isText(left) || !isText(right)) {
        return std::nullopt;
    }
    std::string joined(left.Constant->AsText());
    joined += right.Constant->AsText();
    if (joined.size() > kLongestText) {
        return std::nullopt;
    }
    return Operands().Fold(Value::Text(std::move(joined)));
}

Operand OperatorCompiler::GenericOperator(
    BinaryOperator which, const Operand& left, const Operand& right, ResultHint hint) {
    if (const auto joined = TryJoin(which, left, right)) {
        return *joined;
    }
    Operand result;
    result.IsTyped = left.IsTyped && right.IsTyped;
    result.IsScalar = true;
    result.IsFresh = true;
    const Register first = Operands().SlotOf(left);
    std::uint8_t flags = FactsOf(left, right);
    if (const auto text = Operands().TextConstant(right); text && IsRelation(which)) {
        result.Slot = Operands().ResultSlot(result.Type.Kind, hint);
        flags = static_cast<std::uint8_t>(
            flags | static_cast<int>(RelationOf(which)) << kOperatorShift);
        m_code.Emit(Opcode::CompareConstant, result.Slot, first, *text, flags);
        return result;
    }
    const Register second = Operands().SlotOf(right);
    Opcode code = Opcode::Operate;
    if (which == BinaryOperator::Add) {
        code = Opcode::Add;
    } else if (which == BinaryOperator::Subtract) {
        code = Opcode::Subtract;
    } else if (which == BinaryOperator::Multiply) {
        code = Opcode::Multiply;
    } else if (which == BinaryOperator::Concatenate) {
        code = Opcode::Concatenate;
    } else if (IsRelation(which)) {
        code = Opcode::Compare;
    }
    if (code == Opcode::Compare) {
        flags = static_cast<std::uint8_t>(
            flags | static_cast<int>(RelationOf(which)) << kOperatorShift);
    } else if (code == Opcode::Operate) {
        flags = static_cast<std::uint8_t>(flags | static_cast<int>(which) << kOperatorShift);
    }
    // A text joined to something that cannot be Null is a String for sure.
    const auto isNeverNull = [](const Operand& operand) {
        return IsPlain(operand.Type) || IsText(operand.Type);
    };
    if (which == BinaryOperator::Concatenate && (isNeverNull(left) || isNeverNull(right))) {
        result.Type.Kind = DeclaredKind::String;
        result.IsTyped = true;
    }
    result.Slot = Operands().ResultSlot(result.Type.Kind, hint);
    m_code.Emit(code, result.Slot, first, second, flags);
    return result;
}

Operand OperatorCompiler::EvaluateBinary(const BinaryNode& node, ResultHint hint) {
    const std::size_t mark = m_code.TemporaryMark();
    Operand left = Expressions().Evaluate(*node.Left);
    if (left.Constant == nullptr && Expressions().MayRunCode(*node.Right)) {
        left = Operands().Stable(left);
    }
    const Operand right = Expressions().Evaluate(*node.Right);
    auto typed = TryTyped(node.Operator, left, right, hint);
    Operand result = typed ? *typed : GenericOperator(node.Operator, left, right, hint);
    // The parts' slots are free again; the result keeps its own.
    m_code.KeepOnly(mark, result.Slot);
    return result;
}

}  // namespace dorvik::basic
