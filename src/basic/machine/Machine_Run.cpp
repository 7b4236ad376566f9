#include "LoopState.h"
#include "base/BasicError.h"
#include "basic/library/ContainerObject.h"
#include "basic/library/ErrObject.h"
#include "basic/machine/Machine.h"
#include "basic/values/Coercion.h"
#include "basic/values/MemoryMeter.h"
#include "basic/values/RuntimeErrors.h"
#include "basic/values/ValueKinds.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <stdexcept>

namespace dorvik::basic {

namespace {

constexpr std::size_t kStackSlots = std::size_t{1} << 20;
/// Behind the stack: an instruction may name a slot that it does not use.
constexpr std::size_t kBeyond = std::size_t{1} << 16;
constexpr std::int32_t kMostFrames = 100'000;
constexpr std::size_t kMemoryWorthASearch = std::size_t{16} << 20;  // for cycles of containers

/// The limits of a script hold while it runs; whoever ran it gets his own back.
class MeterLimits {
public:
    explicit MeterLimits(const ScriptLimits& limits) {
        m_meter.SetLimit(limits.MemoryBytes);
        m_meter.SetStringLimit(limits.StringBytes);
    }
    MeterLimits(const MeterLimits&) = delete;
    MeterLimits& operator=(const MeterLimits&) = delete;
    ~MeterLimits() {
        m_meter.SetLimit(m_memory);
        m_meter.SetStringLimit(m_string);
    }

private:
    MemoryMeter& m_meter = MemoryMeter::Current();
    std::size_t m_memory = m_meter.Limit();
    std::size_t m_string = m_meter.StringLimit();
};

bool IsClear(const ErrorState& state) {
    return state.Number == 0 && state.HelpContext == 0 && state.Description.empty() &&
           state.Source.empty() && state.HelpFile.empty();
}

bool TakesOneLong(const Procedure& procedure) {
    return procedure.Parameters.size() == 1 && procedure.Parameters[0].IsByVal &&
           procedure.Parameters[0].Type.Kind == DeclaredKind::Long &&
           !procedure.Parameters[0].Type.IsArray;
}

}  // namespace

Machine::Machine(IScriptHost& host) : m_host(host) {
    // Zeroed memory is a row of Empty values; the system gives pages only as they are used.
    m_stack = static_cast<Value*>(std::calloc(kStackSlots + kBeyond, sizeof(Value)));
    if (m_stack == nullptr) {
        throw std::bad_alloc();
    }
    m_stackEnd = m_stack + kStackSlots;
    SetLimits({});
}

Machine::~Machine() {
    Load(nullptr);
    std::free(m_stack);
}

void Machine::SetLimits(const ScriptLimits& limits) {
    m_limits = limits;
    const std::int32_t depth =
        limits.CallDepth > 0 ? std::min(limits.CallDepth, kMostFrames) : kMostFrames;
    m_frames.resize(static_cast<std::size_t>(depth));
}

/// A search costs as much as there are values, so it waits until their memory has doubled.
void Machine::SetCycleSearch() {
    const MemoryMeter& meter = MemoryMeter::Current();
    m_searchCyclesAt =
        std::max(2 * meter.Used(), std::min(kMemoryWorthASearch, m_limits.MemoryBytes / 2));
}

void Machine::Load(const Program* program) {
    m_globals.clear();
    m_hostArguments.clear();
    m_errObject = Value();
    m_error.Clear();
    ContainerObject::ReleaseCycles();
    SetCycleSearch();
    m_program = program;
    m_hasGlobals = false;
    m_lineNumber = 0;
    m_random = 327'680;
}

void Machine::MakeGlobals() {
    m_globals.resize(m_program->Globals.size());
    for (std::size_t i = 0; i < m_globals.size(); ++i) {
        m_globals[i] = InitialOf(m_program->Shapes[m_program->Globals[i]]);
    }
    m_hasGlobals = true;
}

bool Machine::Run(std::size_t procedure, std::span<const Value> arguments) {
    const MeterLimits limits(m_limits);
    const RunningScope scope(*this);
    m_isRunning = true;
    if (!IsClear(m_error)) {
        m_error.Clear();
    }
    m_goSubs.clear();
    m_depth = 0;
    StartClock();
    const bool isDone = Guarded(procedure, arguments);
    while (m_depth > 0) {
        Unwind();
    }
    m_hostArguments.clear();
    if (!m_printLine.empty()) {
        PrintEnd({}, nullptr);
    }
    m_isRunning = false;
    if (MemoryMeter::Current().Used() > m_searchCyclesAt) {
        ContainerObject::ReleaseCycles();
        SetCycleSearch();
    }
    return isDone;
}

/// The one place where the errors of scripts are caught. An error that a procedure handles goes on in the
/// loop; every other ends here.
bool Machine::Guarded(std::size_t procedure, std::span<const Value> arguments) {
    bool isBegun = false;
    for (;;) {
        try {
            if (!isBegun) {
                Begin(procedure, arguments);
            }
            isBegun = true;
            Loop();
            return true;
        } catch (const ScriptStop& stop) {
            const std::int32_t line =
                m_depth > 0 && m_at != nullptr ? Top().Procedure->MarkOf(Position()).Line : 0;
            m_alert = {{}, m_program->Name, line, stop.Number, stop.Text, stop.IsLimit};
            return stop.Number == 0;
        } catch (const BasicError& error) {
            ErrorState state{error.Number(), error.what(), error.Source(), {}, 0};
            if (const auto* raised = dynamic_cast<const RaisedError*>(&error)) {
                state.HelpFile = raised->HelpFile;
                state.HelpContext = raised->HelpContext;
            }
            if (!Recover(std::move(state))) {
                m_alert.IsLimit = dynamic_cast<const LimitError*>(&error) != nullptr;
                return false;
            }
        } catch (const std::bad_alloc&) {
            const std::int32_t number = runtimeerror::kOutOfMemory;
            if (!Recover({number, RuntimeErrorText(number), {}, {}, 0})) {
                m_alert.IsLimit = true;
                return false;
            }
        } catch (const std::exception& error) {
            if (!Recover({runtimeerror::kInternalError, error.what(), {}, {}, 0})) {
                return false;
            }
        }
    }
}

void Machine::Begin(std::size_t index, std::span<const Value> arguments) {
    const Procedure& procedure = m_program->Procedures[index];
    m_at = nullptr;
    if (!m_hasGlobals) {
        MakeGlobals();
    }
    Value* const base = m_stack;
    if (base + procedure.Slots + procedure.ArgumentSlots > m_stackEnd) {
        StopForDepth();
    }
    if (TakesOneLong(procedure) && arguments[0].Type() == ValueType::Long) {
        // The dispatcher of rules: nothing to convert, and nothing that could fail.
        Enter(procedure, base, nullptr, nullptr);
        base[0] = arguments[0];
    } else {
        TakeArguments(procedure, arguments);
    }
    m_at = m_next = procedure.Code.data();
}

void Machine::TakeArguments(const Procedure& procedure, std::span<const Value> arguments) {
    Value* const base = m_stack;
    m_hostArguments.reserve(arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        m_hostArguments.push_back(CoerceTo(arguments[i], procedure.Parameters[i].Type));
    }
    Enter(procedure, base, nullptr, nullptr);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool isVariant = procedure.Parameters[i].Type.Kind == DeclaredKind::Variant;
        base[i] =
            procedure.Parameters[i].IsByVal
                ? m_hostArguments[i]
                : TaggedReference(
                      &m_hostArguments[i], isVariant ? ReferenceTag::Variant : ReferenceTag::Typed);
    }
}

void Machine::StopForDepth() {
    RaiseLimit(
        runtimeerror::kOutOfStackSpace,
        m_depth >= m_frames.size()
            ? "the limit of " + std::to_string(m_frames.size()) + " procedure calls was reached"
            : "the limit of " + std::to_string(kStackSlots) + " variables of calls was reached");
}

bool Machine::HasHandler() const {
    return std::any_of(m_frames.begin(), m_frames.begin() + m_depth, [](const Frame& frame) {
        return frame.Handler != kNoHandler && !frame.IsHandling;
    });
}

/// An error of the instruction at `m_at`. Where a procedure handles it, the loop goes on there, at `m_next`,
/// without an exception, which takes as long as a hundred instructions.
void Machine::Fail(ErrorState error) {
    if (!HasHandler()) {
        RaisedError raised(error.Number, error.Description, error.Source);
        raised.HelpFile = error.HelpFile;
        raised.HelpContext = error.HelpContext;
        throw raised;
    }
    Recover(std::move(error));
}

void Machine::Fail(std::int32_t number) {
    Fail({number, RuntimeErrorText(number), {}, {}, 0});
}

void Machine::ClearArguments(const Frame& frame) {
    Value* const first = frame.Base + frame.Procedure->Slots;
    for (Value* slot = first; slot != first + frame.Procedure->ArgumentSlots; ++slot) {
        *slot = Value();
    }
}

/// References of the failed statement are gone, so arrays need not stay locked for them.
void Machine::ClearPins(const Frame& frame) {
    for (Value* slot = frame.Base; slot != frame.Base + frame.Procedure->GenericSlots; ++slot) {
        if (slot->Type() == ValueType::Object && slot->AsObject() != nullptr &&
            slot->AsObject()->Class() == ObjectClass::Any &&
            dynamic_cast<const ArrayPin*>(slot->AsObject()) != nullptr) {
            *slot = Value();
        }
    }
}

/// What a procedure did to its arguments before it failed stays done, as it does where a reference went in.
void Machine::CopyBackAfterError() {
    if (m_at == nullptr) {
        return;
    }
    const Frame& frame = Top();
    const std::uint32_t position = Position();
    const auto& all = frame.Procedure->CopyBacks;
    auto entry = std::lower_bound(
        all.begin(), all.end(), position, [](const ArgumentCopy& left, std::uint32_t right) {
            return left.Call < right;
        });
    for (; entry != all.end() && entry->Call == position; ++entry) {
        try {
            if (entry->Element != ArgumentCopy::kNoElement) {
                CopyBack(
                    {Opcode::CopyBack, 0, entry->Reference, entry->Slot, entry->Element},
                    frame.Base);
            } else {
                StoreThrough(frame.Base[entry->Reference], frame.Base[entry->Slot]);
            }
        } catch (const BasicError&) {
            continue;  // the first error is the one to tell
        }
    }
}

void Machine::Unwind() {
    ClearArguments(Top());
    m_at = Top().ReturnTo == nullptr ? nullptr : Top().ReturnTo - 1;
    Leave();
}

/// Finds who handles an error at `m_at`: false if nobody does; all frames are gone then.
bool Machine::Recover(ErrorState error) {
    constexpr std::int64_t kCost = 50;
    m_budget -= kCost;  // looked at by the next jump
    m_error = std::move(error);
    if (m_error.Source.empty()) {
        m_error.Source = m_program->Name;
    }
    const std::int32_t line =
        m_depth > 0 && m_at != nullptr ? Top().Procedure->MarkOf(Position()).Line : 0;
    for (bool isCaller = false; m_depth > 0;) {
        Frame& frame = Top();
        if (isCaller) {
            CopyBackAfterError();
        }
        isCaller = true;
        ClearArguments(frame);
        ClearPins(frame);
        if (frame.Handler != kNoHandler && !frame.IsHandling && m_at != nullptr) {
            frame.ErrorPosition = Position();
            const Instruction* const code = CodeOfTop();
            frame.IsHandling = frame.Handler != kResumeNext;
            m_next = frame.IsHandling ? code + frame.Handler
                                      : code + frame.Procedure->MarkOf(frame.ErrorPosition).Next;
            return true;
        }
        Unwind();
    }
    m_alert = {{}, m_error.Source, line, m_error.Number, m_error.Description, false};
    return false;
}

}  // namespace dorvik::basic
