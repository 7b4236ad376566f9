#include "LoopCompiler.h"

#include "ConditionCompiler.h"
#include "ExpressionCompiler.h"
#include "JumpCompiler.h"
#include "NameResolver.h"
#include "OperandCompiler.h"
#include "OperandTypes.h"
#include "StatementCompiler.h"
#include "VariableCompiler.h"
#include "base/modTextCase.h"

namespace dorvik::basic {

namespace {

const Value kOne = Value::Integer(1);

}  // namespace

bool LoopCompiler::IsControlVariable(const std::string& lower) const {
    for (const OpenLoop& loop : m_context.Blocks.Loops) {
        if (!lower.empty() && loop.Variable == lower) {
            return true;
        }
    }
    return false;
}

/// The variable of a For, which must be a plain name. False if it is not; that has been reported then.
bool LoopCompiler::FindControlVariable(
    const Expression& expression, Variable& variable, std::string& lower) {
    const auto* name = std::get_if<NameNode>(&expression.Node);
    NameMeaning meaning;
    if (name != nullptr) {
        meaning = Names().VariableOrImplicit(*name, expression.Place);
    }
    if (meaning.What != NameMeaning::Kind::Variable || meaning.Variable.Type.IsArray ||
        meaning.Variable.Type.Kind == DeclaredKind::Record) {
        Error(
            compileerror::kControlVariable,
            expression.Place,
            "The variable of a For must be a single variable");
        return false;
    }
    variable = meaning.Variable;
    lower = modTextCase::ToLower(name->Name);
    if (IsControlVariable(lower)) {
        Error(
            compileerror::kControlVariable,
            expression.Place,
            "'" + name->Name + "' is the variable of a For around this one already");
        return false;
    }
    return true;
}

void LoopCompiler::Compile(const ForStatement& node, SourcePlace place) {
    Variable variable;
    std::string name;
    if (!FindControlVariable(*node.Variable, variable, name)) {
        Statements().CompileBlock(node.Body);
        return;
    }
    std::optional<std::int16_t> step = 1;
    if (node.Step) {
        const auto number = Expressions().LongConstantOf(*node.Step);
        step.reset();
        if (number && IsSmall(*number)) {
            step = static_cast<std::int16_t>(*number);
        }
    }
    m_context.Blocks.Loops.push_back({ExitKind::For, m_code.NewLabel(), name});
    const DeclaredKind kind = variable.Type.Kind;
    const bool isTyped = kind == DeclaredKind::Long || kind == DeclaredKind::Integer;
    if (variable.Where == Storage::Local && isTyped && step) {
        CompileTypedFor(node, variable, *step, place);
    } else {
        CompileAnyFor(node, variable, place);
    }
    m_context.Blocks.Loops.pop_back();
}

void LoopCompiler::CompileTypedFor(
    const ForStatement& node, const Variable& variable, std::int16_t step, SourcePlace place) {
    const auto counter = static_cast<Register>(variable.Index);
    const bool isLong = variable.Type.Kind == DeclaredKind::Long;
    const Register limit = m_code.NewPlain();
    const Label exit = m_context.Blocks.Loops.back().Exit;
    const Label body = m_code.NewLabel();
    const Label next = m_code.NewLabel();
    const std::size_t mark = m_code.TemporaryMark();
    m_code.Mark(place.Line, m_code.Here(), body);
    const Register start = m_code.TemporaryPlain();
    Expressions().EvaluateInto(*node.From, start, variable.Type);
    Expressions().EvaluateInto(*node.To, limit, variable.Type);
    m_code.Emit(Opcode::MovePlain, counter, start);
    m_code.Emit(Opcode::JumpLongLess, step >= 0 ? limit : counter, step >= 0 ? counter : limit);
    m_code.EmitJump(Opcode::Jump, exit);
    m_code.ReleaseTemporaries(mark);
    m_code.Bind(body);
    Statements().CompileBlock(node.Body);
    m_code.Bind(next);
    m_code.Mark(node.NextPlace.Line, next, exit);
    if (Jumps().MayEnterBlocks()) {
        m_code.Emit(Opcode::ForGuard, limit);
    }
    m_code.Emit(
        isLong ? Opcode::ForLoopLong : Opcode::ForLoopInteger,
        counter,
        limit,
        static_cast<Register>(step));
    m_code.EmitJump(Opcode::Jump, body);
    m_code.Bind(exit);
    if (Jumps().MayEnterBlocks()) {
        m_code.Emit(Opcode::MovePlain, limit, m_code.ConstantSlot(Value()));
    }
}

void LoopCompiler::CompileAnyFor(
    const ForStatement& node, const Variable& variable, SourcePlace place) {
    const Register limit = m_code.NewGeneric();
    const Register step = m_code.NewGeneric();
    const Label exit = m_context.Blocks.Loops.back().Exit;
    const Label body = m_code.NewLabel();
    const Label next = m_code.NewLabel();
    const DeclaredType& type = variable.Type;
    const auto flags = static_cast<std::uint8_t>(
        type.Kind == DeclaredKind::Variant ? kLeftIsVariant | kRightIsVariant : 0);
    const std::size_t mark = m_code.TemporaryMark();
    m_code.Mark(place.Line, m_code.Here(), body);
    const Operand start =
        Operands().Stable(Operands().Converted(Expressions().Evaluate(*node.From), type, false));
    const Operand end =
        Operands().Stable(Operands().Converted(Expressions().Evaluate(*node.To), type, false));
    const Operand by =
        node.Step ? Expressions().Evaluate(*node.Step) : Operands().ConstantOperand(&kOne);
    const Register bySlot = Operands().SlotOf(Operands().Converted(by, type, false));
    m_code.Emit(Opcode::Move, step, bySlot);
    m_code.Emit(Opcode::Move, limit, Operands().SlotOf(end));
    const auto mayBeNull = [](const Operand& operand) {
        return operand.Type.Kind == DeclaredKind::Variant;
    };
    if (mayBeNull(start) || mayBeNull(end) || mayBeNull(by)) {
        m_code.Emit(Opcode::ForBounds, limit, Operands().SlotOf(start), step);
    }
    Variables().Store(variable, start, false);
    m_code.Emit(Opcode::ForTest, Operands().SlotOf(Variables().Load(variable)), limit, step);
    m_code.EmitJump(Opcode::Jump, body);
    m_code.EmitJump(Opcode::Jump, exit);
    m_code.ReleaseTemporaries(mark);
    m_code.Bind(body);
    Statements().CompileBlock(node.Body);
    m_code.Bind(next);
    m_code.Mark(node.NextPlace.Line, next, exit);
    if (variable.Where == Storage::Local) {
        m_code.Emit(Opcode::ForLoop, static_cast<Register>(variable.Index), limit, step, flags);
        m_code.EmitJump(Opcode::Jump, body);
    } else {
        m_code.Emit(Opcode::ForGuard, limit);
        Operand sum;
        sum.Slot = m_code.TemporaryGeneric();
        sum.IsTyped = true;
        m_code.Emit(
            Opcode::Add, sum.Slot, Operands().SlotOf(Variables().Load(variable)), step, flags);
        Variables().Store(variable, sum, false);
        const Register counter = Operands().SlotOf(Variables().Load(variable));
        const Label end2 = m_code.NewLabel();
        m_code.Emit(Opcode::ForTest, counter, limit, step);
        m_code.EmitJump(Opcode::Jump, end2);
        m_code.EmitJump(Opcode::Jump, exit);
        m_code.Bind(end2);
        JumpBack(body);
        m_code.ReleaseTemporaries(mark);
    }
    m_code.Bind(exit);
    m_code.Emit(Opcode::Clear, limit);
}

void LoopCompiler::Compile(const ForEachStatement& node, SourcePlace place) {
    Variable variable;
    std::string name;
    const bool isFound = FindControlVariable(*node.Variable, variable, name);
    const bool isObject = variable.Type.Kind == DeclaredKind::Object;
    if (isFound && !isObject && variable.Type.Kind != DeclaredKind::Variant) {
        Error(
            compileerror::kControlVariable,
            node.Variable->Place,
            "The variable of a For Each must be a Variant or an Object");
    }
    const Register state = m_code.NewGeneric();
    const Label exit = m_code.NewLabel();
    const Label body = m_code.NewLabel();
    const std::size_t mark = m_code.TemporaryMark();
    m_code.Mark(place.Line, m_code.Here(), body);
    HeldBlock held{&node, state, m_context.Blocks.Loops.size()};
    if (const auto* array = std::get_if<NameNode>(&node.Collection->Node)) {
        const NameMeaning meaning = Names().VariableOrImplicit(*array, node.Collection->Place);
        if (meaning.What == NameMeaning::Kind::Variable &&
            meaning.Variable.Where == Storage::Local && !meaning.Variable.Type.IsArray &&
            meaning.Variable.Type.Kind == DeclaredKind::Variant) {
            held.Variable = static_cast<Register>(meaning.Variable.Index);
        }
    }
    const Operand collection = Expressions().Evaluate(*node.Collection);
    m_code.Emit(Opcode::ForEachBegin, state, Operands().SlotOf(collection));
    m_code.ReleaseTemporaries(mark);
    const Label top = m_code.Here();
    m_code.Mark(place.Line, top, exit);
    Operand element;
    element.Slot = m_code.TemporaryGeneric();
    element.IsFresh = true;
    element.IsTyped = true;
    m_code.Emit(Opcode::ForEachNext, element.Slot, state);
    m_code.EmitJump(Opcode::Jump, exit);
    if (isFound) {
        Variables().Store(variable, element, isObject);
    }
    m_code.ReleaseTemporaries(mark);
    m_code.Bind(body);
    m_context.Blocks.Held.push_back(held);
    m_context.Blocks.Loops.push_back({ExitKind::For, exit, name});
    Statements().CompileBlock(node.Body);
    m_context.Blocks.Loops.pop_back();
    m_context.Blocks.Held.pop_back();
    // After an error in the header the loop was entered without a state: then the Next is an error.
    const Label next = m_code.Here();
    m_code.Mark(node.NextPlace.Line, next, exit);
    m_code.Emit(Opcode::ForGuard, state);
    JumpBack(top);
    m_code.Bind(exit);
    m_code.Emit(Opcode::Clear, state);
}

void LoopCompiler::Compile(const LoopStatement& node, SourcePlace place) {
    const Label exit = m_code.NewLabel();
    const Label body = m_code.NewLabel();
    const Label top = m_code.Here();
    if (node.TestBefore != LoopTest::None) {
        m_code.Mark(place.Line, top, body);
        Conditions().JumpOn(*node.Condition, node.TestBefore == LoopTest::Until, exit);
    }
    m_code.Bind(body);
    m_context.Blocks.Loops.push_back({node.IsWhileWend ? ExitKind::Sub : ExitKind::Do, exit, {}});
    Statements().CompileBlock(node.Body);
    m_context.Blocks.Loops.pop_back();
    m_code.Mark(node.LoopPlace.Line, m_code.Here(), exit);
    m_context.Place = node.LoopPlace;
    if (node.TestAfter != LoopTest::None) {
        Conditions().JumpOn(*node.Condition, node.TestAfter == LoopTest::Until, exit);
    }
    JumpBack(top);
    m_code.Bind(exit);
}

}  // namespace dorvik::basic
