#include "basic/machine/Machine.h"

#include "Loop.h"
#include "base/BasicError.h"
#include "basic/library/ContainerObject.h"
#include "basic/library/ErrObject.h"
#include "basic/operations/ErrorRecovery.h"
#include "basic/operations/ScriptStop.h"
#include "basic/operations/Variables.h"
#include "basic/values/Coercion.h"
#include "basic/values/DateSerial.h"
#include "basic/values/MemoryMeter.h"
#include "basic/values/RuntimeErrors.h"
#include "platform/host/modHost.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <stdexcept>

namespace dorvik::basic {

namespace {

/// What a step of a built-in function's long work counts for.
constexpr std::size_t kStepCost = 200;
constexpr std::size_t kBytesOfAUnit = 64;
constexpr std::size_t kMemoryWorthASearch = std::size_t{16} << 20;  // for cycles of containers

/// The limits of a script hold while it runs; an outer one gets its own back.
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

Machine::Machine(IScriptHost& host)
    : m_host(host), m_state(std::make_unique<MachineState>(host, *this)) {
    SetLimits({});
}

Machine::~Machine() {
    Load(nullptr);
}

void Machine::SetLimits(const ScriptLimits& limits) {
    m_limits = limits;
    m_state->Budget.SetLimits(limits);
    m_state->Frames.SetMostCalls(limits.CallDepth);
}

/// A search costs as much as there are values, so it waits until their memory has doubled.
void Machine::ScheduleCycleSearch() {
    const MemoryMeter& meter = MemoryMeter::Current();
    m_searchCyclesAt =
        std::max(2 * meter.Used(), std::min(kMemoryWorthASearch, m_limits.MemoryBytes / 2));
}

void Machine::Load(const Program* program) {
    m_state->Globals.clear();
    m_hostArguments.clear();
    m_state->ErrObject = Value();
    m_state->Error.Clear();
    ContainerObject::ReleaseCycles();
    ScheduleCycleSearch();
    m_state->Program = program;
    m_hasGlobals = false;
    m_state->LineNumber = 0;
    m_random = kFirstRandomState;
}

void Machine::MakeGlobals() {
    const Program& program = *m_state->Program;
    m_state->Globals.clear();
    m_state->Globals.reserve(program.Globals.size());
    for (const std::uint32_t shape : program.Globals) {
        m_state->Globals.push_back(InitialOf(*m_state, program.Shapes[shape]));
    }
    m_hasGlobals = true;
}

bool Machine::Run(std::size_t procedure, std::span<const Value> arguments) {
    const MeterLimits limits(m_limits);
    const RunningScope scope(*this);
    m_isRunning = true;
    if (!IsClear(m_state->Error)) {
        m_state->Error.Clear();
    }
    m_state->Frames.Clear();
    m_state->Budget.Start();
    const bool isDone = RunToEnd(procedure, arguments);
    CleanUpAfterRun();
    return isDone;
}

void Machine::CleanUpAfterRun() {
    while (!m_state->Frames.IsEmpty()) {
        Unwind(*m_state);
    }
    m_hostArguments.clear();
    if (!m_state->Printed.IsEmpty()) {
        m_state->Printed.End();
    }
    m_isRunning = false;
    if (MemoryMeter::Current().Used() > m_searchCyclesAt) {
        ContainerObject::ReleaseCycles();
        ScheduleCycleSearch();
    }
}

/// The one place where the errors of scripts are caught. An error that a procedure handles continues in the
/// loop; every other ends here.
bool Machine::RunToEnd(std::size_t procedure, std::span<const Value> arguments) {
    bool isBegun = false;
    for (;;) {
        try {
            if (!isBegun) {
                Begin(procedure, arguments);
            }
            isBegun = true;
            RunInstructions(*m_state);
            return true;
        } catch (const ScriptStop& stop) {
            return EndBy(stop);
        } catch (const BasicError& error) {
            ErrorState state{error.Number(), error.what(), error.Source(), {}, 0};
            if (const auto* raised = dynamic_cast<const RaisedError*>(&error)) {
                state.HelpFile = raised->HelpFile;
                state.HelpContext = raised->HelpContext;
            }
            if (!HandleError(
                    std::move(state), dynamic_cast<const LimitError*>(&error) != nullptr)) {
                return false;
            }
        } catch (const std::bad_alloc&) {
            const std::int32_t number = runtimeerror::kOutOfMemory;
            if (!HandleError({number, RuntimeErrorText(number), {}, {}, 0}, true)) {
                return false;
            }
        } catch (const std::exception& error) {
            if (!HandleError({runtimeerror::kInternalError, error.what(), {}, {}, 0}, false)) {
                return false;
            }
        }
    }
}

/// False if the script does not handle the error; the alert has it then.
bool Machine::HandleError(ErrorState error, bool isLimit) {
    const std::int32_t line = LineOfStatement(*m_state);
    if (Recover(*m_state, std::move(error))) {
        return true;
    }
    const ErrorState& last = m_state->Error;
    m_alert = {{}, last.Source, line, last.Number, last.Description, isLimit};
    return false;
}

/// True if it was the script's own End.
bool Machine::EndBy(const ScriptStop& stop) {
    m_alert = {
        {},
        m_state->Program->Name,
        LineOfStatement(*m_state),
        stop.Number,
        stop.Text,
        stop.IsLimit};
    return stop.Number == 0;
}

void Machine::Begin(std::size_t index, std::span<const Value> arguments) {
    const Procedure& procedure = m_state->Program->Procedures[index];
    m_state->At = nullptr;
    if (!m_hasGlobals) {
        MakeGlobals();
    }
    FrameStack& frames = m_state->Frames;
    Value* const base = frames.FirstSlot();
    if (!frames.HasRoomFor(procedure, base)) {
        frames.RaiseFull();
    }
    if (TakesOneLong(procedure) && arguments[0].Type() == ValueType::Long) {
        // The dispatcher of rules: nothing to convert, and nothing that could fail.
        frames.Enter(procedure, base, nullptr, nullptr);
        base[0] = arguments[0];
    } else {
        TakeArguments(procedure, arguments);
    }
    m_state->At = m_state->Next = procedure.Code.data();
}

void Machine::TakeArguments(const Procedure& procedure, std::span<const Value> arguments) {
    Value* const base = m_state->Frames.FirstSlot();
    m_hostArguments.reserve(arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        m_hostArguments.push_back(CoerceTo(arguments[i], procedure.Parameters[i].Type));
    }
    m_state->Frames.Enter(procedure, base, nullptr, nullptr);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool isVariant = procedure.Parameters[i].Type.Kind == DeclaredKind::Variant;
        base[i] =
            procedure.Parameters[i].IsByVal
                ? m_hostArguments[i]
                : TaggedReference(
                      &m_hostArguments[i], isVariant ? ReferenceTag::Variant : ReferenceTag::Typed);
    }
}

bool Machine::ComparesText() const {
    return m_state->Program->ComparesText;
}

ErrorState& Machine::CurrentError() {
    return m_state->Error;
}

std::int32_t Machine::LastLineNumber() const {
    return m_state->LineNumber;
}

void Machine::Breathe() {
    m_state->Budget.Spend(kStepCost);
}

void Machine::CountText(std::size_t bytes) {
    m_state->Budget.Spend(bytes / kBytesOfAUnit);
}

double Machine::NowInDays() {
    const auto [time, fraction] = modHost::ExactNow();
    const std::int64_t day = modDateSerial::DayNumber(time.Year, time.Month, time.Day);
    const int second = (time.Hour * 60 + time.Minute) * 60 + time.Second;
    return static_cast<double>(day) + (second + fraction) / modDateSerial::kSecondsPerDay;
}

void Machine::Refuse(std::string_view what) {
    m_host.OnRefusedText(what);
    RaiseError(runtimeerror::kPermissionDenied);
}

}  // namespace dorvik::basic
