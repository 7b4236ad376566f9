#pragma once

#include "basic/program/Program.h"
#include "basic/values/ScriptContext.h"

#include <array>
#include <chrono>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {
class BasicError;
}

namespace dorvik::basic {

/// Runs compiled procedures. A register machine: a procedure's frame is a row of slots on one stack, and
/// instructions name slots. Arguments are built behind the caller's frame, where the callee's frame
/// begins, so that a call copies nothing and takes no memory; the machine has its own frames, so that no
/// script can exhaust the program's stack by recursion.
///
/// The frequent instructions, and those on slots whose type the compiler knows, are carried out in the
/// loop (`MachineLoop.cpp`); all others by an operation each, grouped in files by topic. Whatever may fail
/// first notes where it is (`m_at`), so that an error finds its statement.
///
/// What keeps references safe: a reference points to a slot of a frame further down (which outlives the
/// call), to a module variable (which lives as long as the program), or into an array or record; then a
/// slot of the caller holds the array, locked, or the record until the call is over.
class Machine final : public ScriptContext {
public:
    explicit Machine(IScriptHost& host);
    ~Machine() override;
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    void SetLimits(const ScriptLimits& limits);
    /// Takes a program, which must outlive its use here, or none; module variables get their initial values.
    void Load(const Program* program);
    /// Runs a procedure to its end. False if an error ended it: `TakeAlert` has all but the file then.
    /// REQUIRES: a program; as many arguments as the procedure has parameters; not running.
    bool Run(std::size_t procedure, std::span<const Value> arguments);
    ErrorAlert TakeAlert() { return std::exchange(m_alert, {}); }
    bool IsRunning() const { return m_isRunning; }

    bool ComparesText() const override { return m_program->ComparesText; }
    ErrorState& CurrentError() override { return m_error; }
    void Breathe() override;
    void CountText(std::size_t bytes) override;
    std::uint32_t& RandomState() override { return m_random; }
    double NowInDays() override;
    std::int32_t LastLineNumber() const override { return m_lineNumber; }
    [[noreturn]] void Refuse(std::string_view what) override;

private:
    /// A procedure that runs.
    struct Frame {
        const basic::Procedure* Procedure = nullptr;
        Value* Base = nullptr;
        Value* Result = nullptr;                // where the caller wants the value, or null
        const Instruction* ReturnTo = nullptr;  // in the caller
        std::int32_t Handler = kNoHandler;      // where On Error jumps
        bool IsHandling = false;                // an error is being handled
        std::uint32_t ErrorPosition = 0;        // of that error
        std::uint32_t GoSubs = 0;               // of m_goSubs, that belong to the callers
    };
    static constexpr std::int32_t kNoHandler = -1;
    static constexpr std::int32_t kResumeNext = -2;

    /// An operation that the loop leaves to others.
    using Operation = void (Machine::*)(Instruction in, Value* base);
    static const std::array<Operation, 256>& Operations();

    // MachineLoop.cpp
    void Loop();

    // MachineRun.cpp
    bool Guarded(std::size_t procedure, std::span<const Value> arguments);
    void MakeGlobals();
    void Begin(std::size_t procedure, std::span<const Value> arguments);
    void TakeArguments(const Procedure& procedure, std::span<const Value> arguments);
    void SetCycleSearch();
    void Enter(const Procedure& procedure, Value* base, Value* result, const Instruction* returnTo);
    void Leave();
    [[noreturn]] void StopForDepth();
    void Fail(std::int32_t number);
    void Fail(ErrorState error);
    bool HasHandler() const;
    bool Recover(ErrorState error);
    void CopyBackAfterError();
    void Unwind();
    void ClearArguments(const Frame& frame);
    void ClearPins(const Frame& frame);
    Frame& Top() { return m_frames[m_depth - 1]; }
    const Instruction* CodeOfTop() { return Top().Procedure->Code.data(); }
    std::uint32_t Position() { return static_cast<std::uint32_t>(m_at - CodeOfTop()); }

    // MachineLimits.cpp
    void CheckBudget();
    void AskHost();
    void StartClock();
    void Spend(std::size_t units) {
        m_budget -= static_cast<std::int64_t>(units);
        if (m_budget < 0) {
            CheckBudget();
        }
    }

    // Slow halves of instructions of the loop
    void SlowOperator(Instruction in, Value* base);
    bool SlowCompare(Instruction in, Value* base);
    bool SlowCompareConstant(Instruction in, const Value& left);
    void CompareConstant(Instruction in, Value* base);
    void SlowIndexGet(Instruction in, Value* base);
    void SlowIndexSet(Instruction in, Value* base);
    bool SlowForLoop(Instruction in, Value* base);
    bool ForContinues(const Value& counter, const Value& limit, const Value& step);
    void SlowAppend(Instruction in, Value* base);
    void RaiseOfErr(
        const ScriptObject& err, int member, const CallSite& site, std::span<const Value> given);
    void RunBuiltin(Instruction in, Value* base);
    void RunExtension(Instruction in, Value* base);
    bool NextElement(Instruction in, Value* base);

    // Operations, by topic; Opcodes.def tells what each does
    void MakeGlobalReference(Instruction in, Value* base);
    void StoreReferenceVariant(Instruction in, Value* base);
    void AssignVariantSlow(Instruction in, Value* base);
    void SetVariant(Instruction in, Value* base);
    void CoerceKnown(Instruction in, Value* base);
    void Coerce(Instruction in, Value* base);
    void DeepCopy(Instruction in, Value* base);
    void MakeVariable(Instruction in, Value* base);
    void Operate(Instruction in, Value* base);
    void OperateUnary(Instruction in, Value* base);
    void CompareKnown(Instruction in, Value* base);
    void ForBounds(Instruction in, Value* base);
    void ForEachBegin(Instruction in, Value* base);
    void HoldArray(Instruction in, Value* base);
    void LeaveBlock(Instruction in, Value* base);
    void RefuseLocked(Instruction in, Value* base);
    void ReleaseArguments(Instruction in, Value* base);
    void ArgumentsToArray(Instruction in, Value* base);
    void CopyBack(Instruction in, Value* base);
    void Raise(Instruction in, Value* base);
    void RefuseStatement(Instruction in, Value* base);
    void ReferenceElement(Instruction in, Value* base);
    void ReferenceMember(Instruction in, Value* base);
    void CopyGiven(Instruction in, Value* base);
    void DimensionArray(Instruction in, Value* base);
    void EraseArray(Instruction in, Value* base);
    void AssignArray(Instruction in, Value* base);
    void RecordGet(Instruction in, Value* base);
    void RecordSet(Instruction in, Value* base);
    void AssignRecord(Instruction in, Value* base);
    void CopyRecordBytes(Instruction in, Value* base);
    void Invoke(Instruction in, Value* base);
    void NewObject(Instruction in, Value* base);
    void EnsureObject(Instruction in, Value* base);
    void TypeOf(Instruction in, Value* base);
    void WithObject(Instruction in, Value* base);
    void LoadErr(Instruction in, Value* base);
    void PropertyRow(Instruction in, Value* base);
    void LeftRow(Instruction in, Value* base);
    void LeftCasesRow(Instruction in, Value* base);
    void InStrRow(Instruction in, Value* base);
    void LenRow(Instruction in, Value* base);
    void LikeRow(Instruction in, Value* base);
    void MidAssign(Instruction in, Value* base);
    void AlignText(Instruction in, Value* base);
    void SetHandler(Instruction in, Value* base);
    void ClearHandledError(Instruction in, Value* base);
    void Resume(Instruction in, Value* base);
    void RaiseNumber(Instruction in, Value* base);
    void LineNumber(Instruction in, Value* base);
    void GoSub(Instruction in, Value* base);
    void ReturnFromGoSub(Instruction in, Value* base);
    void JumpByTable(Instruction in, Value* base);
    void End(Instruction in, Value* base);
    void PrintValue(Instruction in, Value* base);
    void PrintPlace(Instruction in, Value* base);
    void PrintEnd(Instruction in, Value* base);
    void Yield(Instruction in, Value* base);

    Value InitialOf(const VariableShape& shape);
    Value InitialElement(const DeclaredType& type);
    Value InitialRecord(std::int32_t type);
    Value ElementFrom(const Value& array, std::span<const Value> indices);
    void StoreElement(ArrayBody& array, std::size_t place, const Value& value, bool isSet);
    std::size_t OffsetOf(const ArrayBody& array, std::span<const Value> indices);
    void StoreThrough(Value& reference, const Value& value);
    void PushGoSub(const Instruction* returnTo);
    void PrintText(std::string_view text);

    IScriptHost& m_host;
    ScriptLimits m_limits;
    const Program* m_program = nullptr;
    Value* m_stack = nullptr;
    Value* m_stackEnd = nullptr;
    std::vector<Frame> m_frames;
    std::size_t m_depth = 0;
    std::vector<Value> m_globals;
    std::vector<Value> m_hostArguments;  // what ByRef parameters of the first procedure refer to
    std::vector<const Instruction*> m_goSubs;
    const Instruction* m_at = nullptr;  // the instruction being carried out, where that may matter
    const Instruction* m_next = nullptr;  // where the loop goes on
    std::int64_t m_budget = 0;            // until the next look at limits and host
    std::int64_t m_spent = 0;
    bool m_hasStarted = false;
    std::chrono::steady_clock::time_point m_started;
    ErrorState m_error;
    ErrorAlert m_alert;  // of the error that ended the last run
    Value m_errObject;
    std::size_t m_searchCyclesAt = 0;  // bytes in use; beyond it, lost containers are looked for
    std::uint32_t m_random = 327'680;
    std::int32_t m_lineNumber = 0;
    std::string m_printLine;
    std::size_t m_printColumn = 0;  // characters
    bool m_hasGlobals = false;
    bool m_isRunning = false;
};

/// The number of a value goes into a slot that holds no body, type and all.
inline void CopyPlain(Value& target, const Value& source) {
    std::memcpy(static_cast<void*>(&target), &source, sizeof(Value));
}

inline void Machine::Enter(
    const Procedure& procedure, Value* base, Value* result, const Instruction* returnTo) {
    m_frames[m_depth++] = {
        &procedure,
        base,
        result,
        returnTo,
        kNoHandler,
        false,
        0,
        static_cast<std::uint32_t>(m_goSubs.size())};
    // No slot from here on holds a body, nor do the initial values, so that they can be copied as bytes.
    Value* target = base + procedure.ParameterCount;
    for (const Value& value : procedure.Initial) {
        CopyPlain(*target++, value);
    }
}

/// Takes the frame off; what its slots held is released.
inline void Machine::Leave() {
    const Frame& frame = m_frames[--m_depth];
    for (Value *slot = frame.Base, *end = slot + frame.Procedure->GenericSlots; slot != end;
         ++slot) {
        if (slot->HoldsBody()) {
            *slot = Value();
        }
    }
    if (m_goSubs.size() != frame.GoSubs) {
        m_goSubs.resize(frame.GoSubs);
    }
}

/// Ends a script for good; nothing in it can trap this.
struct ScriptStop {
    std::int32_t Number = 0;  // 0: the script ended itself
    std::string Text;
    bool IsLimit = false;
};

/// The lowest bits of a reference are a `ReferenceTag`.
inline Value* TargetOf(const Value& reference) {
    constexpr std::uintptr_t kTagBits = 3;
    return reinterpret_cast<Value*>(
        reinterpret_cast<std::uintptr_t>(reference.AsReference()) & ~kTagBits);
}
inline ReferenceTag TagOf(const Value& reference) {
    constexpr std::uintptr_t kTagBits = 3;
    return static_cast<ReferenceTag>(
        reinterpret_cast<std::uintptr_t>(reference.AsReference()) & kTagBits);
}
inline Value TaggedReference(Value* target, ReferenceTag tag) {
    const auto bits = reinterpret_cast<std::uintptr_t>(target) | static_cast<std::uintptr_t>(tag);
    return Value::Reference(reinterpret_cast<Value*>(bits));
}

/// Copies the members of one record into those of another of the same type.
void CopyRecord(RecordBody& target, const RecordBody& source);

}  // namespace dorvik::basic
