#include "EngineParts.h"
#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "basic/syntax/Parser.h"
#include "basic/values/RuntimeErrors.h"

namespace dorvik::basic {

struct ScriptHandler::State : HandlerState {};

namespace {

std::unique_ptr<Procedure> ReadWithEnd(std::string_view prototype, std::string_view end) {
    const std::string text = std::string(prototype) + "\r\n" + std::string(end) + "\r\n";
    const ParsedModule parsed = ParseModule(text);
    if (!parsed.Errors.empty()) {
        return nullptr;
    }
    CompiledModule compiled = CompileModule(parsed.Module, {}, {});
    if (!compiled.Module || compiled.Module->Procedures.size() != 1) {
        return nullptr;
    }
    return std::make_unique<Procedure>(std::move(compiled.Module->Procedures.front()));
}

bool IsSameParameter(const Parameter& left, const Parameter& right) {
    return left.Type == right.Type && left.IsByVal == right.IsByVal &&
           left.IsOptional == right.IsOptional && left.IsParamArray == right.IsParamArray;
}

}  // namespace

std::unique_ptr<Procedure> ReadPrototype(std::string_view prototype) {
    for (const std::string_view end : {"End Sub", "End Function"}) {
        if (auto procedure = ReadWithEnd(prototype, end)) {
            return procedure;
        }
    }
    return nullptr;
}

bool HasSignature(const Procedure& procedure, const Procedure& wanted) {
    if (!modTextCase::Equal(procedure.Name, wanted.Name) || procedure.Kind != wanted.Kind ||
        procedure.Result != wanted.Result ||
        procedure.Parameters.size() != wanted.Parameters.size()) {
        return false;
    }
    for (std::size_t i = 0; i < procedure.Parameters.size(); ++i) {
        if (!IsSameParameter(procedure.Parameters[i], wanted.Parameters[i])) {
            return false;
        }
    }
    return true;
}

ScriptHandler::ScriptHandler(std::shared_ptr<State> state) : m_state(std::move(state)) {}

bool ScriptHandler::IsReady() const {
    return m_state->Engine != nullptr && m_state->Engine->IsReady && m_state->Index >= 0;
}

bool ScriptHandler::Call(std::span<const Value> arguments) {
    if (!IsReady()) {
        return false;
    }
    EngineParts& engine = *m_state->Engine;
    const auto index = static_cast<std::size_t>(m_state->Index);
    if (arguments.size() != engine.Module->Procedures[index].Parameters.size()) {
        engine.Alert(
            {{},
             engine.Module->Name,
             0,
             runtimeerror::kWrongArgumentCount,
             RuntimeErrorText(runtimeerror::kWrongArgumentCount)});
        return false;
    }
    return engine.Run(index, arguments);
}

ScriptHandler ScriptEngine::CreateHandler(std::string_view prototype) {
    auto state = std::make_shared<ScriptHandler::State>();
    state->Engine = &PartsForHandlers();
    state->Wanted = ReadPrototype(prototype);
    state->Engine->Handlers.push_back(state);
    state->Engine->BindHandlers();
    return ScriptHandler(state);
}

}  // namespace dorvik::basic
