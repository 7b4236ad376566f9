#include "basic/Coercion.h"
#include "basic/Machine.h"
#include "basic/Operators.h"
#include "basic/RuntimeErrors.h"

#include <cmath>
#include <cstring>
#include <limits>

// One function with one case for each frequent instruction: the price of speed. Cases are short; what takes
// more than a few lines, or is rare, is an operation of its own.

// The loop names only the instructions that it carries out itself; all others share its last case.
#pragma GCC diagnostic ignored "-Wswitch-enum"

namespace dorvik::basic {

namespace {

constexpr std::uint64_t kWholeTypes = TypeBit(ValueType::Integer) | TypeBit(ValueType::Long);

bool IsOneOf(const Value& value, std::uint64_t types) {
    return ((types >> static_cast<unsigned>(value.Type())) & 1) != 0;
}

/// Both are Integer or Long, one of them Long, so that the result is a Long.
bool AreLongs(const Value& left, const Value& right) {
    return IsOneOf(left, kWholeTypes) && IsOneOf(right, kWholeTypes) &&
           (left.Type() == ValueType::Long || right.Type() == ValueType::Long);
}

bool AreWhole(const Value& left, const Value& right) {
    return IsOneOf(left, kWholeTypes) && IsOneOf(right, kWholeTypes);
}

bool AreDoubles(const Value& left, const Value& right) {
    return left.Type() == ValueType::Double && right.Type() == ValueType::Double;
}

template <class Number>
bool Holds(Relation relation, Number left, Number right) {
    switch (relation) {
        case Relation::Equal: return left == right;
        case Relation::NotEqual: return left != right;
        case Relation::Less: return left < right;
        case Relation::Greater: return left > right;
        case Relation::LessOrEqual: return left <= right;
        case Relation::GreaterOrEqual: return left >= right;
    }
    return false;
}

bool SameText(const Value& left, const Value& right) {
    if (left.TextBody() == right.TextBody())
        return true;
    const std::string_view a = left.AsText();
    const std::string_view b = right.AsText();
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size()) == 0;
}

void PutWhole(Value& target, std::int32_t number, bool asLong) {
    if (target.HoldsBody())
        target = Value();
    if (asLong)
        target.PutLong(number);
    else
        target.PutInteger(static_cast<std::int16_t>(number));
}

bool FitsInteger(std::int32_t number) {
    return number == static_cast<std::int16_t>(number);
}

Relation RelationOfFlags(const Instruction& in) {
    return static_cast<Relation>(in.Flags >> kOperatorShift);
}

}  // namespace

void Machine::Loop() {
    const Instruction* pc = m_next;
    Value* base = Top().Base;
    const Operation* const operations = Operations().data();
    const Procedure* const procedures = m_program->Procedures.data();
    const Value* const constants = m_program->Constants.data();
    Value* const globals = m_globals.data();
    const Instruction* code = CodeOfTop();

    // The names below stand for lines that many cases share. They must be inlined, or else the position
    // and the frame would live in memory and not in registers.
    // An operation outside the loop, which may fail or jump.
    const auto call = [&](auto operation, const Instruction& in) __attribute__((always_inline)) {
        m_at = pc - 1;
        m_next = pc;
        (this->*operation)(in, base);
        pc = m_next;
    };
    const auto jumpWhen = [&](bool condition) __attribute__((always_inline)) {
        pc = condition ? code + pc->Wide() : pc + 1;
    };
    const auto fail = [&](std::int32_t number) __attribute__((always_inline)) {
        RaiseAt(pc - 1, number);
    };
    const auto jumpBack = [&](const Instruction* target) __attribute__((always_inline)) {
        m_budget -= pc > target ? pc - target : 1;
        pc = target;
        if (m_budget < 0) [[unlikely]] {
            m_at = pc;
            CheckBudget();
        }
    };
    const bool comparesText = m_program->ComparesText;
    // Two texts compared for equality, character by character.
    const auto areTexts = [&](const Instruction& in, const Value& left, const Value& right)
        __attribute__((always_inline)) {
        return left.Type() == ValueType::String && right.Type() == ValueType::String &&
               RelationOfFlags(in) <= Relation::NotEqual && !comparesText;
    };
    const auto putDouble = [&](Value & target, double number) __attribute__((always_inline)) {
        if (!std::isfinite(number)) [[unlikely]]
            fail(runtimeerror::kOverflow);
        target.PutDouble(number);
    };

    for (;;) {
        const Instruction in = *pc++;
        Value& a = base[in.A];
        switch (in.Code) {
            case Opcode::Move: a = base[in.B]; break;
            case Opcode::MovePlain: CopyPlain(a, base[in.B]); break;
            case Opcode::LoadConstant: a = constants[in.Wide()]; break;
            case Opcode::LoadLong: a.PutLong(in.Wide()); break;
            case Opcode::Clear: a = Value(); break;
            case Opcode::LoadGlobal: a = globals[in.Wide()]; break;
            case Opcode::LoadGlobalPlain: CopyPlain(a, globals[in.Wide()]); break;
            case Opcode::StoreGlobal: globals[in.Wide()] = a; break;
            case Opcode::StoreGlobalPlain: CopyPlain(globals[in.Wide()], a); break;
            case Opcode::LoadReference: a = *TargetOf(base[in.B]); break;
            case Opcode::LoadReferencePlain: CopyPlain(a, *TargetOf(base[in.B])); break;
            case Opcode::StoreReference: *TargetOf(a) = base[in.B]; break;
            case Opcode::StoreReferencePlain: CopyPlain(*TargetOf(a), base[in.B]); break;
            case Opcode::MakeReference:
                a = TaggedReference(&base[in.B], static_cast<ReferenceTag>(in.Flags));
                break;
            case Opcode::AssignVariant: {
                constexpr std::uint64_t kSlow =
                    TypeBit(ValueType::Object) | TypeBit(ValueType::Array) |
                    TypeBit(ValueType::Record) | TypeBit(ValueType::Error);
                const Value& source = base[in.B];
                if (IsOneOf(source, kSlow) || a.Type() == ValueType::Array) [[unlikely]]
                    call(&Machine::AssignVariantSlow, in);
                else
                    a = source;
                break;
            }
            case Opcode::CoerceLong:
                if (IsOneOf(base[in.B], kWholeTypes)) [[likely]]
                    a.PutLong(base[in.B].AsLong());
                else
                    call(&Machine::CoerceKnown, in);
                break;
            case Opcode::CoerceInteger:
                if (IsOneOf(base[in.B], kWholeTypes) && FitsInteger(base[in.B].AsLong())) [[likely]]
                    a.PutInteger(base[in.B].AsInteger());
                else
                    call(&Machine::CoerceKnown, in);
                break;
            case Opcode::CoerceDouble:
                if (base[in.B].Type() == ValueType::Double)
                    CopyPlain(a, base[in.B]);
                else if (IsOneOf(base[in.B], kWholeTypes))
                    a.PutDouble(base[in.B].AsLong());
                else
                    call(&Machine::CoerceKnown, in);
                break;
            case Opcode::CoerceBoolean:
                if (base[in.B].Type() == ValueType::Boolean) [[likely]]
                    CopyPlain(a, base[in.B]);
                else
                    call(&Machine::CoerceKnown, in);
                break;
            case Opcode::CoerceString:
                if (base[in.B].Type() == ValueType::String) [[likely]]
                    a = base[in.B];
                else
                    call(&Machine::CoerceKnown, in);
                break;

            case Opcode::AddLong: {
                std::int32_t sum = 0;
                if (__builtin_add_overflow(base[in.B].AsLong(), base[in.C].AsLong(), &sum))
                    fail(runtimeerror::kOverflow);
                a.PutLong(sum);
                break;
            }
            case Opcode::SubtractLong: {
                std::int32_t difference = 0;
                if (__builtin_sub_overflow(base[in.B].AsLong(), base[in.C].AsLong(), &difference))
                    fail(runtimeerror::kOverflow);
                a.PutLong(difference);
                break;
            }
            case Opcode::MultiplyLong: {
                std::int32_t product = 0;
                if (__builtin_mul_overflow(base[in.B].AsLong(), base[in.C].AsLong(), &product))
                    fail(runtimeerror::kOverflow);
                a.PutLong(product);
                break;
            }
            case Opcode::AddLongImmediate: {
                std::int32_t sum = 0;
                if (__builtin_add_overflow(base[in.B].AsLong(), std::int32_t{in.SmallC()}, &sum))
                    fail(runtimeerror::kOverflow);
                a.PutLong(sum);
                break;
            }
            case Opcode::DivideLong:
            case Opcode::ModuloLong: {
                const std::int32_t dividend = base[in.B].AsLong();
                const std::int32_t divisor = base[in.C].AsLong();
                if (divisor == 0) [[unlikely]]
                    fail(runtimeerror::kDivisionByZero);
                if (divisor == -1) [[unlikely]] {
                    if (in.Code == Opcode::DivideLong && dividend == INT32_MIN)
                        fail(runtimeerror::kOverflow);
                    a.PutLong(in.Code == Opcode::DivideLong ? -dividend : 0);
                    break;
                }
                a.PutLong(in.Code == Opcode::DivideLong ? dividend / divisor : dividend % divisor);
                break;
            }
            case Opcode::AndLong: a.PutLong(base[in.B].AsLong() & base[in.C].AsLong()); break;
            case Opcode::OrLong: a.PutLong(base[in.B].AsLong() | base[in.C].AsLong()); break;
            case Opcode::XorLong: a.PutLong(base[in.B].AsLong() ^ base[in.C].AsLong()); break;
            case Opcode::AddInteger:
            case Opcode::SubtractInteger:
            case Opcode::MultiplyInteger: {
                const std::int32_t left = base[in.B].AsLong();
                const std::int32_t right = base[in.C].AsLong();
                const std::int32_t result = in.Code == Opcode::AddInteger        ? left + right
                                            : in.Code == Opcode::SubtractInteger ? left - right
                                                                                 : left * right;
                if (!FitsInteger(result))
                    fail(runtimeerror::kOverflow);
                a.PutInteger(static_cast<std::int16_t>(result));
                break;
            }
            case Opcode::AddDouble:
                putDouble(a, base[in.B].AsDouble() + base[in.C].AsDouble());
                break;
            case Opcode::SubtractDouble:
                putDouble(a, base[in.B].AsDouble() - base[in.C].AsDouble());
                break;
            case Opcode::MultiplyDouble:
                putDouble(a, base[in.B].AsDouble() * base[in.C].AsDouble());
                break;
            case Opcode::DivideDouble: {
                const double divisor = base[in.C].AsDouble();
                if (divisor == 0) [[unlikely]]
                    fail(
                        base[in.B].AsDouble() == 0 ? runtimeerror::kOverflow
                                                   : runtimeerror::kDivisionByZero);
                putDouble(a, base[in.B].AsDouble() / divisor);
                break;
            }
            case Opcode::LongToDouble: a.PutDouble(base[in.B].AsLong()); break;
            case Opcode::CompareLong:
                a.PutBoolean(Holds(
                    static_cast<Relation>(in.Flags), base[in.B].AsLong(), base[in.C].AsLong()));
                break;
            case Opcode::CompareDouble:
                a.PutBoolean(Holds(
                    static_cast<Relation>(in.Flags), base[in.B].AsDouble(), base[in.C].AsDouble()));
                break;
            case Opcode::CompareText:
                a.PutBoolean(Holds(
                    static_cast<Relation>(in.Flags), base[in.B].AsText(), base[in.C].AsText()));
                break;
            case Opcode::NotBoolean: a.PutBoolean(!base[in.B].AsBoolean()); break;
            case Opcode::AndBoolean:
                a.PutBoolean(base[in.B].AsBoolean() && base[in.C].AsBoolean());
                break;
            case Opcode::OrBoolean:
                a.PutBoolean(base[in.B].AsBoolean() || base[in.C].AsBoolean());
                break;

            case Opcode::Add:
            case Opcode::Subtract: {
                const Value& left = base[in.B];
                const Value& right = base[in.C];
                if (AreWhole(left, right)) {
                    const bool isLong =
                        left.Type() == ValueType::Long || right.Type() == ValueType::Long;
                    const std::int64_t sum = in.Code == Opcode::Add
                                                 ? std::int64_t{left.AsLong()} + right.AsLong()
                                                 : std::int64_t{left.AsLong()} - right.AsLong();
                    const auto number = static_cast<std::int32_t>(sum);
                    if (number == sum && (isLong || FitsInteger(number))) {
                        PutWhole(a, number, isLong);
                        break;
                    }
                } else if (AreDoubles(left, right) && !a.HoldsBody()) {
                    const double sum = in.Code == Opcode::Add ? left.AsDouble() + right.AsDouble()
                                                              : left.AsDouble() - right.AsDouble();
                    putDouble(a, sum);
                    break;
                }
                call(&Machine::SlowOperator, in);
                break;
            }
            case Opcode::Multiply: {
                const Value& left = base[in.B];
                const Value& right = base[in.C];
                std::int32_t product = 0;
                if (AreLongs(left, right) &&
                    !__builtin_mul_overflow(left.AsLong(), right.AsLong(), &product))
                    PutWhole(a, product, true);
                else if (AreDoubles(left, right) && !a.HoldsBody())
                    putDouble(a, left.AsDouble() * right.AsDouble());
                else
                    call(&Machine::SlowOperator, in);
                break;
            }
            case Opcode::Compare: {
                const Value& left = base[in.B];
                const Value& right = base[in.C];
                if (AreWhole(left, right) && !a.HoldsBody())
                    a.PutBoolean(Holds(RelationOfFlags(in), left.AsLong(), right.AsLong()));
                else if (areTexts(in, left, right) && !a.HoldsBody())
                    a.PutBoolean(SameText(left, right) == (RelationOfFlags(in) == Relation::Equal));
                else
                    call(&Machine::Operate, in);
                break;
            }
            case Opcode::AppendText: call(&Machine::SlowAppend, in); break;
            case Opcode::Concatenate: call(&Machine::SlowOperator, in); break;

            case Opcode::Jump: pc = code + in.Wide(); break;
            case Opcode::JumpCounted: jumpBack(code + in.Wide()); break;
            case Opcode::JumpIf:
                if (a.AsBoolean())
                    pc = code + in.Wide();
                break;
            case Opcode::JumpUnless:
                if (!a.AsBoolean())
                    pc = code + in.Wide();
                break;
            case Opcode::JumpIfTrue:
            case Opcode::JumpUnlessTrue: {
                bool condition = false;
                if (a.Type() == ValueType::Boolean) {
                    condition = a.AsBoolean();
                } else {
                    m_at = pc - 1;
                    condition = IsTrue(a);
                }
                if (condition == (in.Code == Opcode::JumpIfTrue))
                    pc = code + in.Wide();
                break;
            }
            case Opcode::JumpLongEqual: jumpWhen(a.AsLong() == base[in.B].AsLong()); break;
            case Opcode::JumpLongNotEqual: jumpWhen(a.AsLong() != base[in.B].AsLong()); break;
            case Opcode::JumpLongLess: jumpWhen(a.AsLong() < base[in.B].AsLong()); break;
            case Opcode::JumpLongLessOrEqual: jumpWhen(a.AsLong() <= base[in.B].AsLong()); break;
            case Opcode::JumpLongEqualTo: jumpWhen(a.AsLong() == in.SmallB()); break;
            case Opcode::JumpLongNotEqualTo: jumpWhen(a.AsLong() != in.SmallB()); break;
            case Opcode::JumpLongLessThan: jumpWhen(a.AsLong() < in.SmallB()); break;
            case Opcode::JumpLongAtMost: jumpWhen(a.AsLong() <= in.SmallB()); break;
            case Opcode::JumpLongGreaterThan: jumpWhen(a.AsLong() > in.SmallB()); break;
            case Opcode::JumpLongAtLeast: jumpWhen(a.AsLong() >= in.SmallB()); break;
            case Opcode::JumpDoubleEqual: jumpWhen(a.AsDouble() == base[in.B].AsDouble()); break;
            case Opcode::JumpDoubleNotEqual: jumpWhen(a.AsDouble() != base[in.B].AsDouble()); break;
            case Opcode::JumpDoubleLess: jumpWhen(a.AsDouble() < base[in.B].AsDouble()); break;
            case Opcode::JumpDoubleLessOrEqual:
                jumpWhen(a.AsDouble() <= base[in.B].AsDouble());
                break;
            case Opcode::JumpTextEqual: jumpWhen(SameText(a, base[in.B])); break;
            case Opcode::JumpTextNotEqual: jumpWhen(!SameText(a, base[in.B])); break;
            case Opcode::JumpCompare: {
                const Value& right = base[in.B];
                bool holds = false;
                if (AreWhole(a, right)) {
                    holds = Holds(RelationOfFlags(in), a.AsLong(), right.AsLong());
                } else if (areTexts(in, a, right)) {
                    holds = SameText(a, right) == (RelationOfFlags(in) == Relation::Equal);
                } else {
                    m_at = pc - 1;
                    holds = SlowCompare(in, base);
                }
                jumpWhen(holds == (in.C != 0));
                break;
            }
            case Opcode::SwitchDense: {
                const SwitchTable& table = m_program->Switches[static_cast<std::size_t>(in.Wide())];
                const std::int64_t key = std::int64_t{a.AsLong()} - table.First;
                const bool isInside = static_cast<std::uint64_t>(key) <
                                      static_cast<std::uint64_t>(table.Targets.size());
                pc = code + (isInside ? table.Targets[static_cast<std::size_t>(key)] : table.Else);
                break;
            }
            case Opcode::ForLoopLong: {
                std::int32_t counter = 0;
                if (__builtin_add_overflow(a.AsLong(), std::int32_t{in.SmallC()}, &counter))
                    fail(runtimeerror::kOverflow);
                a.PutLong(counter);
                const std::int32_t limit = base[in.B].AsLong();
                if (in.SmallC() >= 0 ? counter <= limit : counter >= limit)
                    jumpBack(code + pc->Wide());
                else
                    ++pc;
                break;
            }
            case Opcode::ForLoopInteger: {
                const std::int32_t counter = a.AsLong() + in.SmallC();
                if (!FitsInteger(counter))
                    fail(runtimeerror::kOverflow);
                a.PutInteger(static_cast<std::int16_t>(counter));
                const std::int32_t limit = base[in.B].AsLong();
                if (in.SmallC() >= 0 ? counter <= limit : counter >= limit)
                    jumpBack(code + pc->Wide());
                else
                    ++pc;
                break;
            }
            case Opcode::ForLoop: {
                m_at = pc - 1;
                if (SlowForLoop(in, base))
                    jumpBack(code + pc->Wide());
                else
                    ++pc;
                break;
            }
            case Opcode::ForTest:
                m_at = pc - 1;
                jumpWhen(ForContinues(a, base[in.B], base[in.C]));
                break;
            case Opcode::ForEachNext:
                m_at = pc - 1;
                jumpWhen(!NextElement(in, base));
                break;

            case Opcode::Call: {
                const Procedure& callee = procedures[in.Target()];
                Value* const newBase = base + in.C;
                if (m_depth >= m_frames.size() ||
                    newBase + callee.Slots + callee.ArgumentSlots > m_stackEnd) [[unlikely]] {
                    m_at = pc - 1;
                    StopForDepth();
                }
                m_budget -= static_cast<std::int64_t>(4 + callee.Code.size() / 8);
                if (m_budget < 0) [[unlikely]] {
                    m_at = pc - 1;
                    CheckBudget();
                }
                Enter(callee, newBase, in.A == kNoSlot ? nullptr : &a, pc);
                base = newBase;
                pc = code = callee.Code.data();
                break;
            }
            case Opcode::Return:
            case Opcode::ReturnValue:
            case Opcode::ReturnPlain: {
                Frame& frame = Top();
                if (frame.Result != nullptr && in.Code == Opcode::ReturnPlain)
                    CopyPlain(*frame.Result, a);
                Value kept;
                if (frame.Result != nullptr && in.Code == Opcode::ReturnValue)
                    kept = std::move(a);
                Value* const target = in.Code == Opcode::ReturnValue ? frame.Result : nullptr;
                pc = frame.ReturnTo;
                Leave();
                if (target != nullptr)
                    *target = std::move(kept);
                if (m_depth == 0)
                    return;
                base = Top().Base;
                code = CodeOfTop();
                break;
            }
            case Opcode::CallBuiltin:
                m_at = pc - 1;
                RunBuiltin(in, base);
                if (in.Flags == 255)
                    ++pc;
                break;
            case Opcode::CallExtension:
                m_at = pc - 1;
                RunExtension(in, base);
                break;

            case Opcode::ArrayGetPlain: {
                const ArrayBody& array = *base[in.B].AsArray();
                const std::int32_t index = base[in.C].AsLong();
                m_at = pc - 1;
                CopyPlain(a, array.Elements()[array.Offset(&index, 1)]);
                break;
            }
            case Opcode::ArraySetPlain: {
                ArrayBody& array = *a.AsArray();
                const std::int32_t index = base[in.B].AsLong();
                m_at = pc - 1;
                CopyPlain(array.Elements()[array.Offset(&index, 1)], base[in.C]);
                break;
            }
            case Opcode::ArrayGet: {
                const Value& index = base[in.C];
                m_at = pc - 1;
                if (base[in.B].Type() == ValueType::Array && IsOneOf(index, kWholeTypes)) {
                    const ArrayBody& array = *base[in.B].AsArray();
                    const std::int32_t number = index.AsLong();
                    a = array.Elements()[array.Offset(&number, 1)];
                } else {
                    SlowIndexGet(in, base);
                }
                break;
            }
            case Opcode::ArraySet: {
                const Value& index = base[in.B];
                m_at = pc - 1;
                if (a.Type() == ValueType::Array && IsOneOf(index, kWholeTypes) &&
                    a.AsArray()->Element().Kind == DeclaredKind::Variant) {
                    ArrayBody& array = *a.AsArray();
                    const std::int32_t number = index.AsLong();
                    array.Elements()[array.Offset(&number, 1)] = base[in.C];
                } else {
                    SlowIndexSet(in, base);
                }
                break;
            }
            case Opcode::ClearError:
                if (m_error.Number != 0)
                    m_error.Clear();
                break;
            default: call(operations[static_cast<std::size_t>(in.Code)], in); break;
        }
    }
}

}  // namespace dorvik::basic
