#include "Loop.h"

#include "Operands.h"
#include "basic/operations/ErrorRecovery.h"
#include "basic/operations/Operations.h"
#include "basic/program/Superinstructions.h"
#include "basic/values/Coercion.h"
#include "basic/values/RuntimeErrors.h"

#include <cmath>
#include <limits>

// The hot loop: one function with one case for each frequent instruction, the price of speed. Position, frame and
// constants stay in registers only as long as all cases are one function. Every `continue` becomes a jump of its own to
// the next instruction (CMakeLists.txt says how), which the processor predicts by the instruction before. Cases are
// short; what takes more than a few lines, or is rare, is a function of `modOperations`: the instruction's slow path,
// or the whole of it.

// An instruction is found by the address of its lines, without the checks of a switch. The compilers that build this
// know labels as values; the language does not.
// NOLINTBEGIN(bugprone-macro-parentheses,google-build-using-namespace)
// NOLINTBEGIN(readability-braces-around-statements,readability-function-size,readability-function-cognitive-complexity)
#pragma GCC diagnostic ignored "-Wpedantic"

namespace dorvik::basic {

using namespace modOperands;
using namespace modOperations;

void RunInstructions(MachineState& state) {
    const Instruction* pc = state.Next;
    Value* base = state.Frames.Top().Base;
    const Procedure* const procedures = state.Program->Procedures.data();
    const Value* const constants = state.Program->Constants.data();
    Value* const globals = state.Globals.data();
    const Instruction* code = state.Frames.Code();

    static const void* const kLabels[] = {
#define OPCODE(name, operands) &&name,
#define OPERATION(name, operands) &&CarryOutOperation,
#include "basic/program/Opcodes.def"
#undef OPCODE
#undef OPERATION
    };
    static constexpr Operation kOperations[] = {
#define OPCODE(name, operands) nullptr,
#define OPERATION(name, operands) &modOperations::name,
#include "basic/program/Opcodes.def"
#undef OPCODE
#undef OPERATION
    };

    // The names below stand for lines that many cases share. They must be inlined, or else the position
    // and the frame would live in memory and not in registers.
    // An operation outside the loop, which may fail or jump.
    const auto call = [&](auto operation, const Instruction& in) __attribute__((always_inline)) {
        state.At = pc - 1;
        state.Next = pc;
        operation(state, in, base);
        pc = state.Next;
    };
    // Equal texts are read to their ends; the next jump back checks what that has cost.
    const auto sameText = [&](const Value& left, const Value& right) {
        constexpr std::size_t kLongText = 4096;
        const std::size_t size = left.AsText().size();
        if (size > kLongText && size == right.AsText().size()) [[unlikely]] {
            state.Budget.Charge(static_cast<std::int64_t>(size / 64));
        }
        return SameText(left, right);
    };
    const auto jumpWhen = [&](bool condition) __attribute__((always_inline)) {
        pc = condition ? code + pc->Wide() : pc + 1;
    };
    // After an operation that may have gone on in another procedure.
    const auto follow = [&]() __attribute__((always_inline)) {
        pc = state.Next;
        base = state.Frames.Top().Base;
        code = state.Frames.Code();
    };
    const auto coerce = [&](const Instruction& in) __attribute__((always_inline)) {
        call(&modOperations::CoerceKnown, in);
        follow();
    };
    // The case has to end after it.
    const auto fail = [&](std::int32_t number) __attribute__((always_inline)) {
        state.At = pc - 1;
        Fail(state, number);
        follow();
    };
    const auto jumpBack = [&](const Instruction* target) __attribute__((always_inline)) {
        state.Budget.Charge(pc > target ? pc - target : 1);
        pc = target;
        if (state.Budget.IsCheckDue()) [[unlikely]] {
            state.At = pc;
            state.Budget.Check();
        }
    };
    const bool comparesText = state.Program->ComparesText;
    // Two texts compared for equality, character by character.
    const auto areTexts = [&](const Instruction& in, const Value& left, const Value& right)
        __attribute__((always_inline)) {
        return left.Type() == ValueType::String && right.Type() == ValueType::String &&
               RelationOfFlags(in) <= Relation::NotEqual && !comparesText;
    };
    const auto putDouble = [&](Value & target, double number) __attribute__((always_inline)) {
        if (std::isfinite(number)) [[likely]] {
            target.PutDouble(number);
        } else {
            fail(runtimeerror::kOverflow);
        }
    };
    const auto putInteger = [&](Value & target, std::int32_t number)
        __attribute__((always_inline)) {
        const bool fits = FitsInteger(number);
        if (fits) [[likely]] {
            target.PutInteger(static_cast<std::int16_t>(number));
        } else {
            fail(runtimeerror::kOverflow);
        }
        return fits;
    };
    // On whole numbers and Doubles; an operation of its own does the rest.
    const auto arithmetic = [&](const Instruction& in, Value& target, auto operation)
        __attribute__((always_inline)) {
        const Value& left = base[in.B];
        const Value& right = base[in.C];
        if (AreWhole(left, right) &&
            PutWhole(
                target,
                operation(std::int64_t{left.AsLong()}, std::int64_t{right.AsLong()}),
                left,
                right)) [[likely]] {
            return;
        }
        if (HaveDouble(left, right) && !target.HoldsBody()) {
            putDouble(target, operation(RealOf(left), RealOf(right)));
        } else {
            call(&modOperations::SlowOperator, in);
        }
    };
    const auto leave = [&]() __attribute__((always_inline)) {
        pc = state.Frames.Top().ReturnTo;
        state.Frames.Leave();
        if (!state.Frames.IsEmpty()) {
            base = state.Frames.Top().Base;
            code = state.Frames.Code();
        }
    };

    // Short instructions have one line each.
    // clang-format off
    for (;;) {
        const Instruction& in = *pc++;
        Value& a = base[in.A];
        goto *kLabels[static_cast<std::size_t>(in.Code)];

        Move: a = base[in.B]; continue;
        MovePlain: CopyPlain(a, base[in.B]); continue;
        LoadConstant: a = constants[in.Wide()]; continue;
        LoadLong: a.PutLong(in.Wide()); continue;
        Clear: a = Value(); continue;
        LoadGlobal: a = globals[in.Wide()]; continue;
        LoadGlobalPlain: CopyPlain(a, globals[in.Wide()]); continue;
        StoreGlobal: {
            Value& target = globals[in.Wide()];
            if (target.Type() == ValueType::Array && target.AsArray()->IsLocked()) [[unlikely]] {
                fail(runtimeerror::kArrayFixedOrLocked);
                continue;
            }
            target = a;
            continue;
        }
        StoreGlobalPlain: CopyPlain(globals[in.Wide()], a); continue;
        LoadReference: a = *TargetOf(base[in.B]); continue;
        LoadReferencePlain: CopyPlain(a, *TargetOf(base[in.B])); continue;
        StoreReference: *TargetOf(a) = base[in.B]; continue;
        StoreReferencePlain: CopyPlain(*TargetOf(a), base[in.B]); continue;
        MakeReference:
            a = TaggedReference(&base[in.B], static_cast<ReferenceTag>(in.Flags));
            continue;
        AssignVariant: {
            constexpr std::uint64_t kSlow =
                TypeBit(ValueType::Object) | TypeBit(ValueType::Array) |
                TypeBit(ValueType::Record) | TypeBit(ValueType::Error);
            Value& source = base[in.B];
            if (IsOneOf(source, kSlow) || a.Type() == ValueType::Array) [[unlikely]]
                call(&modOperations::AssignVariantSlow, in);
            else if (in.Flags != 0)
                a = std::move(source);  // nothing reads it again
            else
                a = source;
            continue;
        }
        CoerceLong:
            if (IsOneOf(base[in.B], kWholeTypes)) [[likely]]
                a.PutLong(base[in.B].AsLong());
            else
                coerce(in);
            continue;
        CoerceInteger:
            if (IsOneOf(base[in.B], kWholeTypes) && FitsInteger(base[in.B].AsLong())) [[likely]]
                a.PutInteger(base[in.B].AsInteger());
            else
                coerce(in);
            continue;
        CoerceDouble:
            if (base[in.B].Type() == ValueType::Double)
                CopyPlain(a, base[in.B]);
            else if (IsOneOf(base[in.B], kWholeTypes))
                a.PutDouble(base[in.B].AsLong());
            else
                coerce(in);
            continue;
        CoerceBoolean:
            if (base[in.B].Type() == ValueType::Boolean) [[likely]]
                CopyPlain(a, base[in.B]);
            else
                coerce(in);
            continue;
        CoerceString:
            if (base[in.B].Type() == ValueType::String) [[likely]]
                a = base[in.B];
            else
                coerce(in);
            continue;

        AddLong: {
            std::int32_t sum = 0;
            if (__builtin_add_overflow(base[in.B].AsLong(), base[in.C].AsLong(), &sum)) {
                fail(runtimeerror::kOverflow);
                continue;
            }
            a.PutLong(sum);
            continue;
        }
        SubtractLong: {
            std::int32_t difference = 0;
            if (__builtin_sub_overflow(base[in.B].AsLong(), base[in.C].AsLong(), &difference)) {
                fail(runtimeerror::kOverflow);
                continue;
            }
            a.PutLong(difference);
            continue;
        }
        MultiplyLong: {
            std::int32_t product = 0;
            if (__builtin_mul_overflow(base[in.B].AsLong(), base[in.C].AsLong(), &product)) {
                fail(runtimeerror::kOverflow);
                continue;
            }
            a.PutLong(product);
            continue;
        }
        AddLongImmediate: {
            std::int32_t sum = 0;
            if (__builtin_add_overflow(base[in.B].AsLong(), std::int32_t{in.SmallC()}, &sum)) {
                fail(runtimeerror::kOverflow);
                continue;
            }
            a.PutLong(sum);
            continue;
        }
        DivideLong: {
            const std::int32_t divisor = base[in.C].AsLong();
            if (divisor == 0) [[unlikely]] {
                fail(runtimeerror::kDivisionByZero);
                continue;
            }
            if (divisor == -1 && base[in.B].AsLong() == INT32_MIN) [[unlikely]] {
                fail(runtimeerror::kOverflow);
                continue;
            }
            a.PutLong(base[in.B].AsLong() / divisor);
            continue;
        }
        ModuloLong: {
            const std::int32_t divisor = base[in.C].AsLong();
            if (divisor == 0) [[unlikely]] {
                fail(runtimeerror::kDivisionByZero);
                continue;
            }
            a.PutLong(RemainderOf(base[in.B].AsLong(), divisor));
            continue;
        }
        AndLong: a.PutLong(base[in.B].AsLong() & base[in.C].AsLong()); continue;
        OrLong: a.PutLong(base[in.B].AsLong() | base[in.C].AsLong()); continue;
        XorLong: a.PutLong(base[in.B].AsLong() ^ base[in.C].AsLong()); continue;
        AddInteger: putInteger(a, base[in.B].AsLong() + base[in.C].AsLong()); continue;
        SubtractInteger: putInteger(a, base[in.B].AsLong() - base[in.C].AsLong()); continue;
        MultiplyInteger: putInteger(a, base[in.B].AsLong() * base[in.C].AsLong()); continue;
        AddDouble:
            putDouble(a, base[in.B].AsDouble() + base[in.C].AsDouble());
            continue;
        SubtractDouble:
            putDouble(a, base[in.B].AsDouble() - base[in.C].AsDouble());
            continue;
        MultiplyDouble:
            putDouble(a, base[in.B].AsDouble() * base[in.C].AsDouble());
            continue;
        DivideDouble: {
            const double divisor = base[in.C].AsDouble();
            if (divisor == 0) [[unlikely]] {
                fail(
                    base[in.B].AsDouble() == 0 ? runtimeerror::kOverflow
                                               : runtimeerror::kDivisionByZero);
                continue;
            }
            putDouble(a, base[in.B].AsDouble() / divisor);
            continue;
        }
        LongToDouble: a.PutDouble(base[in.B].AsLong()); continue;
        CompareLong:
            a.PutBoolean(Holds(
                static_cast<Relation>(in.Flags), base[in.B].AsLong(), base[in.C].AsLong()));
            continue;
        CompareDouble:
            a.PutBoolean(Holds(
                static_cast<Relation>(in.Flags), base[in.B].AsDouble(), base[in.C].AsDouble()));
            continue;
        CompareText:
            a.PutBoolean(Holds(
                static_cast<Relation>(in.Flags), base[in.B].AsText(), base[in.C].AsText()));
            continue;
        NotBoolean: a.PutBoolean(!base[in.B].AsBoolean()); continue;
        AndBoolean:
            a.PutBoolean(base[in.B].AsBoolean() && base[in.C].AsBoolean());
            continue;
        OrBoolean:
            a.PutBoolean(base[in.B].AsBoolean() || base[in.C].AsBoolean());
            continue;

        Add: arithmetic(in, a, [](auto left, auto right) { return left + right; }); continue;
        Subtract: arithmetic(in, a, [](auto left, auto right) { return left - right; }); continue;
        Multiply: arithmetic(in, a, [](auto left, auto right) { return left * right; }); continue;
        Compare: {
            const Value& left = base[in.B];
            const Value& right = base[in.C];
            if (AreWhole(left, right))
                PutFlag(a, HoldsOfWhole(RelationOfFlags(in), left.AsLong(), right.AsLong()));
            else if (areTexts(in, left, right))
                PutFlag(a, sameText(left, right) == (RelationOfFlags(in) == Relation::Equal));
            else if (AreReal(left, right))
                PutFlag(a, Holds(RelationOfFlags(in), RealOf(left), RealOf(right)));
            else
                call(&modOperations::Operate, in);
            continue;
        }
        CompareConstant: {
            const Value& left = base[in.B];
            const Value& right = constants[in.C];
            if (areTexts(in, left, right))
                PutFlag(a, sameText(left, right) == (RelationOfFlags(in) == Relation::Equal));
            else
                call(&modOperations::CompareConstant, in);
            continue;
        }
        AppendText: call(&modOperations::SlowAppend, in); continue;
        Concatenate: call(&modOperations::SlowOperator, in); continue;
        Operate: {
            const Value& left = base[in.B];
            const Value& right = base[in.C];
            const auto which = static_cast<BinaryOperator>(in.Flags >> kOperatorShift);
            if (AreBooleans(left, right) && which == BinaryOperator::And)
                PutFlag(a, left.AsBoolean() && right.AsBoolean());
            else if (AreBooleans(left, right) && which == BinaryOperator::Or)
                PutFlag(a, left.AsBoolean() || right.AsBoolean());
            else if (!OperateOnWhole(which, a, left, right) && !Quotient(which, a, left, right))
                call(&modOperations::Operate, in);
            continue;
        }

        Jump: pc = code + in.Wide(); continue;
        JumpCounted: jumpBack(code + in.Wide()); continue;
        JumpIf:
            if (a.AsBoolean())
                pc = code + in.Wide();
            continue;
        JumpUnless:
            if (!a.AsBoolean())
                pc = code + in.Wide();
            continue;
        JumpIfTrue:
            state.At = pc - 1;
            if (a.Type() == ValueType::Boolean ? a.AsBoolean() : IsTrue(a))
                pc = code + in.Wide();
            continue;
        JumpUnlessTrue:
            state.At = pc - 1;
            if (!(a.Type() == ValueType::Boolean ? a.AsBoolean() : IsTrue(a)))
                pc = code + in.Wide();
            continue;
        JumpLongEqual: jumpWhen(a.AsLong() == base[in.B].AsLong()); continue;
        JumpLongNotEqual: jumpWhen(a.AsLong() != base[in.B].AsLong()); continue;
        JumpLongLess: jumpWhen(a.AsLong() < base[in.B].AsLong()); continue;
        JumpLongLessOrEqual: jumpWhen(a.AsLong() <= base[in.B].AsLong()); continue;
        JumpLongEqualTo: jumpWhen(a.AsLong() == in.SmallB()); continue;
        JumpLongNotEqualTo: jumpWhen(a.AsLong() != in.SmallB()); continue;
        JumpLongLessThan: jumpWhen(a.AsLong() < in.SmallB()); continue;
        JumpLongAtMost: jumpWhen(a.AsLong() <= in.SmallB()); continue;
        JumpLongGreaterThan: jumpWhen(a.AsLong() > in.SmallB()); continue;
        JumpLongAtLeast: jumpWhen(a.AsLong() >= in.SmallB()); continue;
        JumpDoubleEqual: jumpWhen(a.AsDouble() == base[in.B].AsDouble()); continue;
        JumpDoubleNotEqual: jumpWhen(a.AsDouble() != base[in.B].AsDouble()); continue;
        JumpDoubleLess: jumpWhen(a.AsDouble() < base[in.B].AsDouble()); continue;
        JumpDoubleLessOrEqual:
            jumpWhen(a.AsDouble() <= base[in.B].AsDouble());
            continue;
        JumpTextEqual: jumpWhen(sameText(a, base[in.B])); continue;
        JumpTextNotEqual: jumpWhen(!sameText(a, base[in.B])); continue;
        JumpCompare: {
            const Value& right = base[in.B];
            bool holds = false;
            if (AreWhole(a, right)) {
                holds = HoldsOfWhole(RelationOfFlags(in), a.AsLong(), right.AsLong());
            } else if (areTexts(in, a, right)) {
                holds = sameText(a, right) == (RelationOfFlags(in) == Relation::Equal);
            } else if (AreReal(a, right)) {
                holds = Holds(RelationOfFlags(in), RealOf(a), RealOf(right));
            } else {
                state.At = pc - 1;
                holds = SlowCompare(state, in, base);
            }
            jumpWhen(holds == (in.C != 0));
            continue;
        }
        JumpCompareConstant: {
            const Value& right = constants[in.B];
            bool holds = false;
            if (areTexts(in, a, right)) {
                holds = sameText(a, right) == (RelationOfFlags(in) == Relation::Equal);
            } else {
                state.At = pc - 1;
                holds = SlowCompareConstant(state, in, a);
            }
            jumpWhen(holds == (in.C != 0));
            continue;
        }
        SwitchDense: {
            const SwitchTable& table = state.Program->Switches[static_cast<std::size_t>(in.Wide())];
            const std::int64_t key = std::int64_t{a.AsLong()} - table.First;
            const bool isInside = static_cast<std::uint64_t>(key) <
                                  static_cast<std::uint64_t>(table.Targets.size());
            pc = code + (isInside ? table.Targets[static_cast<std::size_t>(key)] : table.Else);
            continue;
        }
        ForLoopLong: {
            std::int32_t counter = 0;
            if (__builtin_add_overflow(a.AsLong(), std::int32_t{in.SmallC()}, &counter))
                [[unlikely]] {
                fail(runtimeerror::kOverflow);
                continue;
            }
            a.PutLong(counter);
            const std::int32_t limit = base[in.B].AsLong();
            if (in.SmallC() >= 0 ? counter <= limit : counter >= limit)
                jumpBack(code + pc->Wide());
            else
                ++pc;
            continue;
        }
        ForLoopInteger: {
            if (!putInteger(a, a.AsLong() + in.SmallC()))
                continue;
            const std::int32_t limit = base[in.B].AsLong();
            if (in.SmallC() >= 0 ? a.AsLong() <= limit : a.AsLong() >= limit)
                jumpBack(code + pc->Wide());
            else
                ++pc;
            continue;
        }
        ForLoop: {
            const Value& limit = base[in.B];
            const Value& step = base[in.C];
            std::int32_t counter = 0;
            bool goesOn = false;
            if (a.Type() == ValueType::Long && AreWhole(limit, step) &&
                !__builtin_add_overflow(a.AsLong(), step.AsLong(), &counter)) {
                a.PutLong(counter);
                goesOn = step.AsLong() >= 0 ? counter <= limit.AsLong() : counter >= limit.AsLong();
            } else if (
                a.Type() == ValueType::Integer && step.Type() == ValueType::Integer &&
                AreWhole(limit, step) && FitsInteger(a.AsLong() + step.AsLong())) {
                a.PutInteger(static_cast<std::int16_t>(a.AsLong() + step.AsLong()));
                goesOn = step.AsLong() >= 0 ? a.AsLong() <= limit.AsLong()
                                            : a.AsLong() >= limit.AsLong();
            } else {
                state.At = pc - 1;
                goesOn = SlowForLoop(state, in, base);
            }
            if (goesOn)
                jumpBack(code + pc->Wide());
            else
                ++pc;
            continue;
        }
        ForGuard:
            if (a.Type() == ValueType::Empty) [[unlikely]] {
                fail(runtimeerror::kForLoopNotInitialised);
                continue;
            }
            continue;
        ForTest:
            state.At = pc - 1;
            jumpWhen(ForContinues(state, a, base[in.B], base[in.C]));
            continue;
        ForEachNext:
            state.At = pc - 1;
            jumpWhen(!NextElement(state, in, base));
            continue;

        Call: {
            const Procedure& callee = procedures[in.Target()];
            Value* const newBase = base + in.C;
            if (!state.Frames.HasRoomFor(callee, newBase)) [[unlikely]] {
                state.At = pc - 1;
                state.Frames.RaiseFull();
            }
            state.Budget.Charge(callee.CallCost);
            if (state.Budget.IsCheckDue()) [[unlikely]] {
                state.At = pc - 1;
                state.Budget.Check();
            }
            state.Frames.Enter(callee, newBase, in.A == kNoSlot ? nullptr : &a, pc);
            base = newBase;
            pc = code = callee.Code.data();
            continue;
        }
        ReturnPlain:
            if (Value* const target = state.Frames.Top().Result; target != nullptr)
                CopyPlain(*target, a);
            goto Return;
        ReturnValue:
            if (Value* const target = state.Frames.Top().Result; target != nullptr) {
                Value kept = std::move(a);
                leave();
                *target = std::move(kept);
            } else {
                leave();
            }
            if (state.Frames.IsEmpty())
                return;
            continue;
        Return:
            leave();
            if (state.Frames.IsEmpty())
                return;
            continue;
        ItemOfNew: {
            const Instruction& get = ItemOfNewSequence(&in).Item();
            state.At = &get;
            if (const Value* const item = ItemOf(a, base[get.C]); item != nullptr) [[likely]] {
                base[get.A] = *item;
                ++pc;
                continue;
            }
            goto EnsureObject;
        }
        EnsureObject: {
            const Value& variable = in.Flags != 0 ? a : *TargetOf(a);
            if (variable.Type() != ValueType::Object || variable.AsObject() == nullptr) [[unlikely]]
                call(&modOperations::EnsureObject, in);
            continue;
        }
        Invoke: call(&modOperations::Invoke, in); follow(); continue;
        RaiseNumber: call(&modOperations::RaiseNumber, in); follow(); continue;
        CallBuiltin:
            state.At = pc - 1;
            state.Next = in.Flags == kCountInNextWord ? pc + 1 : pc;
            RunBuiltin(state, in, base);
            follow();
            continue;
        CallExtension:
            state.At = pc - 1;
            RunExtension(state, in, base);
            continue;

        ArrayGetPlain: {
            const ArrayBody& array = *base[in.B].AsArray();
            const std::int32_t index = base[in.C].AsLong();
            state.At = pc - 1;
            CopyPlain(a, array.Elements()[array.Offset(&index, 1)]);
            continue;
        }
        ArraySetPlain: {
            ArrayBody& array = *a.AsArray();
            const std::int32_t index = base[in.B].AsLong();
            state.At = pc - 1;
            CopyPlain(array.Elements()[array.Offset(&index, 1)], base[in.C]);
            continue;
        }
        ArrayGet: {
            const Value& index = base[in.C];
            state.At = pc - 1;
            if (base[in.B].Type() == ValueType::Array && IsOneOf(index, kWholeTypes)) {
                const ArrayBody& array = *base[in.B].AsArray();
                const std::int32_t number = index.AsLong();
                a = array.Elements()[array.Offset(&number, 1)];
            } else if (const Value* const item = ItemOf(base[in.B], index); item != nullptr) {
                a = *item;
            } else {
                state.Next = pc;
                SlowIndexGet(state, in, base);
                follow();
            }
            continue;
        }
        ArraySet: {
            const Value& index = base[in.B];
            const Value& value = base[in.C];
            state.At = pc - 1;
            if (a.Type() == ValueType::Array && IsOneOf(index, kWholeTypes) &&
                a.AsArray()->Element().Kind == DeclaredKind::Variant) {
                ArrayBody& array = *a.AsArray();
                const std::int32_t number = index.AsLong();
                Value& element = array.Elements()[array.Offset(&number, 1)];
                if (element.Type() == ValueType::Array) [[unlikely]]
                    SlowIndexSet(state, in, base);
                else
                    element = value;
            } else if (DictionaryObject* const dictionary = DictionaryIn(a);
                       dictionary != nullptr && index.Type() != ValueType::Error &&
                       !IsOneOf(value, kKeptApart)) {
                dictionary->SetItem(index, value);
            } else {
                SlowIndexSet(state, in, base);
            }
            continue;
        }
        ClearError:
            if (state.Error.Number != 0)
                state.Error.Clear();
            continue;
        CarryOutOperation: call(kOperations[static_cast<std::size_t>(in.Code)], in);
    }
    // clang-format on
}

}  // namespace dorvik::basic
// NOLINTEND(readability-braces-around-statements,readability-function-size,readability-function-cognitive-complexity)
// NOLINTEND(bugprone-macro-parentheses,google-build-using-namespace)
