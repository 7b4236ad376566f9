#include "enforcement/ReviewLog.h"

#include "base/BasicError.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "parser/VB6ParserState.h"
#include "source/VirtualObject.h"

namespace dorvik {

namespace {

// The log names these operations as those of the class through which scripts reach them.
constexpr std::string_view kModule = "C_ResultsManager";

void DumpValues(LogFile& log, const KeyedArrayList& values) {
    for (std::int32_t index = 1; index <= values.Count(); ++index) {
        log.LogMessage("   " + values.Key(index) + "=" + values.Item(index).AsText());
    }
}

}  // namespace

void ReviewLog::DumpDebugPrint(std::string_view message, bool withPrefix) const {
    std::string line;
    if (withPrefix) {
        line.append("[Event:").append(m_state.GetParserEventText()).append("]");
        if (!m_state.CurrentRuleID().empty()) {
            line.append("[Rule:").append(m_state.CurrentRuleID()).append("] ");
        }
    }
    modLog::Log().LogMessage(line.append(message));
}

void ReviewLog::DumpVirtualObject(std::string_view objectName) const {
    Trap({kModule, "DumpVirtualObject"}, [&] {
        LogFile& log = modLog::Log();
        const std::string name(objectName);
        const std::string event(m_state.GetParserEventText());
        log.LogMessage(
            "[Event:" + event + "][Rule:" + m_state.CurrentRuleID() + "][Object:" + name + "]");
        log.LogMessage("=== " + name + " Properties ===");
        const std::shared_ptr<VirtualObject> object = m_state.GetVirtualObject(objectName);
        if (!object) {
            RaiseRuntimeError(runtimeerror::kObjectNotSet);
        }
        DumpValues(log, object->Properties());
        if (object->Workfields().Count() > 0) {
            log.LogMessage("=== " + name + " Workfields ===");
            DumpValues(log, object->Workfields());
        }
        log.LogMessage("===");
    });
}

std::optional<Variant>
ReviewLog::FindProperty(std::string_view objectName, std::string_view propertyName) const {
    bool found = false;
    std::string errorText;
    Variant value = m_state.GetObjectProperty(objectName, propertyName, found, errorText);
    if (!found) {
        DumpDebugPrint(errorText, true);
        return std::nullopt;
    }
    return value;
}

std::string
ReviewLog::PropertyText(std::string_view objectName, std::string_view propertyName) const {
    const std::optional<Variant> value = FindProperty(objectName, propertyName);
    return value ? value->AsText() : std::string();
}

}  // namespace dorvik
