#include "ProcedureCompiler.h"

#include <limits>
#include <utility>

namespace dorvik::basic {

namespace {

bool IsRelation(BinaryOperator which) {
    return which >= BinaryOperator::Equal && which <= BinaryOperator::GreaterOrEqual;
}

Relation RelationOf(BinaryOperator which) {
    return static_cast<Relation>(static_cast<int>(which) - static_cast<int>(BinaryOperator::Equal));
}

bool IsScalarText(const DeclaredType& type) {
    return !type.IsArray &&
           (type.Kind == DeclaredKind::String || type.Kind == DeclaredKind::FixedString);
}

bool IsWhole(const DeclaredType& type) {
    return !type.IsArray && IsWholeKind(type.Kind);
}

bool IsDouble(const DeclaredType& type) {
    return !type.IsArray && type.Kind == DeclaredKind::Double;
}

bool IsBoolean(const DeclaredType& type) {
    return !type.IsArray && type.Kind == DeclaredKind::Boolean;
}

/// One is a Double, the other can become one without loss.
bool AreDoubles(const Operand& left, const Operand& right) {
    return (IsDouble(left.Type) && (IsDouble(right.Type) || IsWhole(right.Type))) ||
           (IsDouble(right.Type) && IsWhole(left.Type));
}

bool AreLongs(const Operand& left, const Operand& right) {
    return IsWhole(left.Type) && IsWhole(right.Type) &&
           (left.Type.Kind == DeclaredKind::Long || right.Type.Kind == DeclaredKind::Long);
}

bool AreIntegers(const Operand& left, const Operand& right) {
    return left.Type.Kind == DeclaredKind::Integer && right.Type.Kind == DeclaredKind::Integer &&
           !left.Type.IsArray && !right.Type.IsArray;
}

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

Relation Swapped(Relation relation) {
    switch (relation) {
        case Relation::Less: return Relation::Greater;
        case Relation::Greater: return Relation::Less;
        case Relation::LessOrEqual: return Relation::GreaterOrEqual;
        case Relation::GreaterOrEqual: return Relation::LessOrEqual;
        case Relation::Equal:
        case Relation::NotEqual: return relation;
    }
    return relation;
}

Relation Inverted(Relation relation) {
    switch (relation) {
        case Relation::Less: return Relation::GreaterOrEqual;
        case Relation::Greater: return Relation::LessOrEqual;
        case Relation::LessOrEqual: return Relation::Greater;
        case Relation::GreaterOrEqual: return Relation::Less;
        case Relation::Equal: return Relation::NotEqual;
        case Relation::NotEqual: return Relation::Equal;
    }
    return relation;
}

constexpr Opcode kLongImmediateJumps[] = {
    Opcode::JumpLongEqualTo,
    Opcode::JumpLongNotEqualTo,
    Opcode::JumpLongLessThan,
    Opcode::JumpLongGreaterThan,
    Opcode::JumpLongAtMost,
    Opcode::JumpLongAtLeast,
};

}  // namespace

std::uint8_t ProcedureCompiler::FactsOf(const Operand& left, const Operand& right) const {
    return static_cast<std::uint8_t>(
        (left.IsTyped ? 0 : kLeftIsVariant) | (right.IsTyped ? 0 : kRightIsVariant));
}

Operand ProcedureCompiler::EvaluateUnary(const UnaryNode& node, SourcePlace) {
    const Operand operand = Evaluate(*node.Operand);
    if (operand.Constant != nullptr && node.Operator == UnaryOperator::Negate) {
        const Value& number = *operand.Constant;
        if (number.Type() == ValueType::Integer && number.AsInteger() != INT16_MIN) {
            return Fold(Value::Integer(static_cast<std::int16_t>(-number.AsInteger())));
        }
        if (number.Type() == ValueType::Long && number.AsLong() != INT32_MIN) {
            return Fold(Value::Long(-number.AsLong()));
        }
        if (number.Type() == ValueType::Double) {
            return Fold(Value::Double(-number.AsDouble()));
        }
    }
    Operand result;
    result.IsTyped = operand.IsTyped;
    result.IsScalar = true;
    result.IsFresh = true;
    const Register slot = SlotOf(operand);
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

Operand ProcedureCompiler::TypedOperator(
    Opcode code,
    DeclaredKind kind,
    Register left,
    Register right,
    Register hint,
    DeclaredKind hintKind,
    std::uint8_t flags) {
    Operand result;
    result.Type.Kind = kind;
    result.IsTyped = true;
    result.IsFresh = true;
    result.Slot = ResultSlot(kind, hint, hintKind);
    m_code.Emit(code, result.Slot, left, right, flags);
    return result;
}

Operand ProcedureCompiler::LongOperator(
    BinaryOperator which,
    const Operand& left,
    const Operand& right,
    Register hint,
    DeclaredKind hintKind) {
    const auto rightNumber = SmallConstant(right);
    const auto leftNumber = SmallConstant(left);
    if (which == BinaryOperator::Add || which == BinaryOperator::Subtract) {
        const bool isAdd = which == BinaryOperator::Add;
        if (rightNumber && left.Constant == nullptr) {
            const auto number = static_cast<std::int16_t>(isAdd ? *rightNumber : -*rightNumber);
            return TypedOperator(
                Opcode::AddLongImmediate,
                DeclaredKind::Long,
                SlotOf(left),
                static_cast<Register>(number),
                hint,
                hintKind);
        }
        if (leftNumber && isAdd && right.Constant == nullptr) {
            return TypedOperator(
                Opcode::AddLongImmediate,
                DeclaredKind::Long,
                SlotOf(right),
                static_cast<Register>(*leftNumber),
                hint,
                hintKind);
        }
    }
    return TypedOperator(
        FindRow(kLongRows, which)->Code,
        DeclaredKind::Long,
        LongSlotOf(left),
        LongSlotOf(right),
        hint,
        hintKind);
}

std::optional<Operand>
ProcedureCompiler::TryComparison(BinaryOperator which, const Operand& left, const Operand& right) {
    const auto flags = static_cast<std::uint8_t>(RelationOf(which));
    const auto compare = [&](Opcode code, Register first, Register second) {
        return TypedOperator(
            code, DeclaredKind::Boolean, first, second, kNoSlot, DeclaredKind::Variant, flags);
    };
    if (IsWhole(left.Type) && IsWhole(right.Type)) {
        return compare(Opcode::CompareLong, LongSlotOf(left), LongSlotOf(right));
    }
    if (AreDoubles(left, right)) {
        return compare(Opcode::CompareDouble, DoubleSlotOf(left), DoubleSlotOf(right));
    }
    if (IsScalarText(left.Type) && IsScalarText(right.Type) && !m_scope.Module.ComparesText) {
        return compare(Opcode::CompareText, SlotOf(left), SlotOf(right));
    }
    return std::nullopt;
}

std::optional<Operand> ProcedureCompiler::TryTyped(
    BinaryOperator which,
    const Operand& left,
    const Operand& right,
    Register hint,
    DeclaredKind hintKind) {
    if (IsRelation(which)) {
        return TryComparison(which, left, right);
    }
    if (FindRow(kLongRows, which) != nullptr && AreLongs(left, right)) {
        return LongOperator(which, left, right, hint, hintKind);
    }
    if (const TypedRow* row = FindRow(kIntegerRows, which); row && AreIntegers(left, right)) {
        return TypedOperator(
            row->Code, DeclaredKind::Integer, SlotOf(left), SlotOf(right), hint, hintKind);
    }
    if (const TypedRow* row = FindRow(kDoubleRows, which);
        row && (AreDoubles(left, right) ||
                (which == BinaryOperator::Divide && IsWhole(left.Type) && IsWhole(right.Type)))) {
        return TypedOperator(
            row->Code,
            DeclaredKind::Double,
            DoubleSlotOf(left),
            DoubleSlotOf(right),
            hint,
            hintKind);
    }
    if (const TypedRow* row = FindRow(kBooleanRows, which);
        row && IsBoolean(left.Type) && IsBoolean(right.Type)) {
        return TypedOperator(
            row->Code, DeclaredKind::Boolean, SlotOf(left), SlotOf(right), hint, hintKind);
    }
    return std::nullopt;
}

/// The index of a text that stands in the module, where an instruction can name it.
std::optional<std::uint16_t> ProcedureCompiler::TextConstant(const Operand& operand) {
    if (operand.Constant == nullptr || operand.Constant->Type() != ValueType::String) {
        return std::nullopt;
    }
    const auto index = m_scope.AddConstant(*operand.Constant);
    if (static_cast<std::int64_t>(index) > UINT16_MAX) {
        return std::nullopt;
    }
    return static_cast<std::uint16_t>(index);
}

Operand ProcedureCompiler::GenericOperator(
    BinaryOperator which,
    const Operand& left,
    const Operand& right,
    Register hint,
    DeclaredKind hintKind) {
    Operand result;
    result.IsTyped = left.IsTyped && right.IsTyped;
    result.IsScalar = true;
    result.IsFresh = true;
    const Register first = SlotOf(left);
    std::uint8_t flags = FactsOf(left, right);
    if (const auto text = TextConstant(right); text && IsRelation(which)) {
        result.Slot = ResultSlot(result.Type.Kind, hint, hintKind);
        flags = static_cast<std::uint8_t>(
            flags | static_cast<int>(RelationOf(which)) << kOperatorShift);
        m_code.Emit(Opcode::CompareConstant, result.Slot, first, *text, flags);
        return result;
    }
    const Register second = SlotOf(right);
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
        return IsPlain(operand.Type) || IsScalarText(operand.Type);
    };
    if (which == BinaryOperator::Concatenate && (isNeverNull(left) || isNeverNull(right))) {
        result.Type.Kind = DeclaredKind::String;
        result.IsTyped = true;
    }
    result.Slot = ResultSlot(result.Type.Kind, hint, hintKind);
    m_code.Emit(code, result.Slot, first, second, flags);
    return result;
}

Operand
ProcedureCompiler::EvaluateBinary(const BinaryNode& node, Register hint, DeclaredKind hintKind) {
    const std::size_t mark = m_code.TemporaryMark();
    Operand left = Evaluate(*node.Left);
    if (left.Constant == nullptr && MayRunCode(*node.Right)) {
        left = Stable(left);
    }
    const Operand right = Evaluate(*node.Right);
    auto typed = TryTyped(node.Operator, left, right, hint, hintKind);
    Operand result = typed ? *typed : GenericOperator(node.Operator, left, right, hint, hintKind);
    // The parts' slots are free again; the result keeps its own.
    m_code.KeepOnly(mark, result.Slot);
    return result;
}

bool ProcedureCompiler::JumpOnLongs(
    Relation relation, const Operand& left, const Operand& right, Label target) {
    if (const auto number = SmallConstant(right); number && left.Constant == nullptr) {
        m_code.Emit(
            kLongImmediateJumps[static_cast<std::size_t>(relation)],
            SlotOf(left),
            static_cast<Register>(*number));
    } else if (const auto first = SmallConstant(left); first && right.Constant == nullptr) {
        return JumpOnLongs(Swapped(relation), right, left, target);
    } else {
        Register a = LongSlotOf(left);
        Register b = LongSlotOf(right);
        if (relation == Relation::Greater || relation == Relation::GreaterOrEqual) {
            std::swap(a, b);
            relation = Swapped(relation);
        }
        const Opcode code = relation == Relation::Equal      ? Opcode::JumpLongEqual
                            : relation == Relation::NotEqual ? Opcode::JumpLongNotEqual
                            : relation == Relation::Less     ? Opcode::JumpLongLess
                                                             : Opcode::JumpLongLessOrEqual;
        m_code.Emit(code, a, b);
    }
    m_code.EmitJump(Opcode::Jump, target);
    return true;
}

void ProcedureCompiler::JumpOnRelation(
    Relation relation, const Operand& left, const Operand& right, bool when, Label target) {
    const Relation wanted = when ? relation : Inverted(relation);
    if (IsWhole(left.Type) && IsWhole(right.Type)) {
        JumpOnLongs(wanted, left, right, target);
        return;
    }
    if (AreDoubles(left, right)) {
        Register a = DoubleSlotOf(left);
        Register b = DoubleSlotOf(right);
        const bool swaps = wanted == Relation::Greater || wanted == Relation::GreaterOrEqual;
        if (swaps) {
            std::swap(a, b);
        }
        const Relation used = swaps ? Swapped(wanted) : wanted;
        const Opcode code = used == Relation::Equal      ? Opcode::JumpDoubleEqual
                            : used == Relation::NotEqual ? Opcode::JumpDoubleNotEqual
                            : used == Relation::Less     ? Opcode::JumpDoubleLess
                                                         : Opcode::JumpDoubleLessOrEqual;
        m_code.Emit(code, a, b);
    } else if (
        IsScalarText(left.Type) && IsScalarText(right.Type) && !m_scope.Module.ComparesText &&
        (relation == Relation::Equal || relation == Relation::NotEqual)) {
        const Register a = SlotOf(left);
        const Register b = SlotOf(right);
        m_code.Emit(
            wanted == Relation::Equal ? Opcode::JumpTextEqual : Opcode::JumpTextNotEqual, a, b);
    } else {
        const Register a = SlotOf(left);
        const int flags = FactsOf(left, right) | static_cast<int>(relation) << kOperatorShift;
        if (const auto text = TextConstant(right)) {
            m_code.Emit(
                Opcode::JumpCompareConstant,
                a,
                *text,
                when ? 1 : 0,
                static_cast<std::uint8_t>(flags));
            m_code.EmitJump(Opcode::Jump, target);
            return;
        }
        const Register b = SlotOf(right);
        m_code.Emit(Opcode::JumpCompare, a, b, when ? 1 : 0, static_cast<std::uint8_t>(flags));
    }
    m_code.EmitJump(Opcode::Jump, target);
}

bool ProcedureCompiler::JumpOnComparison(const BinaryNode& node, bool when, Label target) {
    if (!IsRelation(node.Operator)) {
        return false;
    }
    Operand left = Evaluate(*node.Left);
    if (left.Constant == nullptr && MayRunCode(*node.Right)) {
        left = Stable(left);
    }
    const Operand right = Evaluate(*node.Right);
    JumpOnRelation(RelationOf(node.Operator), left, right, when, target);
    return true;
}

void ProcedureCompiler::JumpOn(const Expression& condition, bool when, Label target) {
    const std::size_t mark = m_code.TemporaryMark();
    if (const auto* inner = std::get_if<ParenthesisNode>(&condition.Node)) {
        JumpOn(*inner->Inner, when, target);
        return;
    }
    const auto* binary = std::get_if<BinaryNode>(&condition.Node);
    if (binary == nullptr || !JumpOnComparison(*binary, when, target)) {
        const Operand value = Evaluate(condition);
        const Register slot = SlotOf(value);
        if (IsBoolean(value.Type)) {
            m_code.EmitJump(when ? Opcode::JumpIf : Opcode::JumpUnless, target, slot);
        } else {
            m_code.EmitJump(when ? Opcode::JumpIfTrue : Opcode::JumpUnlessTrue, target, slot);
        }
    }
    m_code.ReleaseTemporaries(mark);
}

}  // namespace dorvik::basic
