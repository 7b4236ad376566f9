#include "basic/engine/ScriptEngine.h"

#include "EngineParts.h"
#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "basic/program/Disassembler.h"
#include "basic/syntax/Diagnostics.h"
#include "basic/syntax/Parser.h"
#include "basic/values/RuntimeErrors.h"
#include "platform/host/modEncoding.h"
#include "platform/host/modFiles.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

bool IsLetter(char character) {
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'z';
}

bool IsPrefix(std::string_view prefix) {
    if (prefix.size() < 2 || prefix.back() != '.' || !IsLetter(prefix.front())) {
        return false;
    }
    return std::all_of(prefix.begin(), prefix.end() - 1, [](char character) {
        return IsLetter(character) || (character >= '0' && character <= '9') || character == '_';
    });
}

/// "Scripts" of "\\temp\\Scripts.dvs": the module's name if the module does not say.
std::string StemOf(std::string_view path) {
    const std::size_t slash = path.find_last_of("\\/");
    if (slash != std::string_view::npos) {
        path.remove_prefix(slash + 1);
    }
    return std::string(path.substr(0, path.rfind('.')));
}

}  // namespace

struct ScriptEngine::Parts : EngineParts {
    using EngineParts::EngineParts;
};

bool EngineParts::Run(std::size_t procedure, std::span<const Value> arguments) {
    if (Runner.IsRunning()) {
        const std::int32_t number = runtimeerror::kInvalidProcedureCall;
        Alert(
            {{},
             Module->Name,
             0,
             number,
             "A script is running already: " + RuntimeErrorText(number)});
        return false;
    }
    if (Runner.Run(procedure, arguments)) {
        return true;
    }
    Alert(Runner.TakeAlert());
    return false;
}

void EngineParts::Alert(ErrorAlert alert) {
    alert.File = File;
    Host.OnErrorAlert(alert);
}

void EngineParts::BindHandlers() {
    for (const auto& weak : Handlers) {
        const auto handler = weak.lock();
        if (!handler) {
            continue;
        }
        handler->Index = -1;
        if (!Module || !handler->Wanted) {
            continue;
        }
        const int index = Module->FindProcedure(handler->Wanted->Name, handler->Wanted->Kind);
        if (index >= 0 &&
            HasSignature(Module->Procedures[static_cast<std::size_t>(index)], *handler->Wanted)) {
            handler->Index = index;
        }
    }
}

ScriptEngine::ScriptEngine(IScriptHost& host) : m_parts(std::make_unique<Parts>(host)) {}

ScriptEngine::~ScriptEngine() {
    for (const auto& weak : m_parts->Handlers) {
        if (const auto handler = weak.lock()) {
            handler->Engine = nullptr;
        }
    }
}

EngineParts& ScriptEngine::PartsForHandlers() {
    return *m_parts;
}

bool ScriptEngine::AddExtension(
    std::string_view prefix, IScriptExtension& extension, const PropertyCache* answers) {
    if (!IsPrefix(prefix) || m_parts->Module) {
        return false;
    }
    prefix.remove_suffix(1);
    for (const ExtensionEntry& entry : m_parts->Extensions) {
        if (modTextCase::Equal(entry.Prefix, prefix)) {
            return false;
        }
    }
    m_parts->Extensions.push_back({std::string(prefix), &extension, answers});
    return true;
}

void ScriptEngine::SetLimits(const ScriptLimits& limits) {
    if (!m_parts->Runner.IsRunning()) {
        m_parts->Runner.SetLimits(limits);
    }
}

void ScriptEngine::SetOrigins(std::vector<ScriptOrigin> origins) {
    m_parts->Origins = std::move(origins);
}

bool ScriptEngine::AcceptsModules() const {
    return m_parts->AcceptsModules;
}

void ScriptEngine::SetAcceptsModules(bool accepts) {
    m_parts->AcceptsModules = accepts;
}

bool ScriptEngine::LoadModule(std::string_view path) {
    std::string text;
    try {
        text = modEncoding::Decode(modFiles::ReadBytes(path), modEncoding::kDefaultCodePage);
    } catch (const BasicError& error) {
        if (!m_parts->Runner.IsRunning()) {
            Discard(path);
        }
        m_parts->Errors = {{error.Number(), {0, 0}, error.what()}};
        return false;
    }
    return LoadText(path, text);
}

/// Nothing is loaded from here on.
void ScriptEngine::Discard(std::string_view file) {
    m_parts->Runner.Load(nullptr);
    m_parts->Module.reset();
    m_parts->File = file;
    m_parts->Errors.clear();
    m_parts->Warnings.clear();
    m_parts->BindHandlers();
}

bool ScriptEngine::LoadText(std::string_view file, std::string_view text) {
    Parts& parts = *m_parts;
    if (parts.Runner.IsRunning()) {
        parts.Errors = {
            {compileerror::kOther, {0, 0}, "No module can be loaded while a script runs"}};
        return false;
    }
    Discard(file);
    if (!parts.AcceptsModules) {
        parts.Errors = {{compileerror::kOther, {0, 0}, "The engine does not accept modules"}};
        return false;
    }
    ParsedModule parsed = ParseModule(text);
    parts.Errors = std::move(parsed.Errors);
    if (!parts.Errors.empty()) {
        return false;
    }
    CompiledModule compiled = CompileModule(parsed.Module, parts.Extensions, parts.Origins);
    parts.Errors = std::move(compiled.Errors);
    parts.Warnings = std::move(compiled.Warnings);
    if (!compiled.Module) {
        return false;
    }
    parts.Module = std::move(compiled.Module);
    if (parts.Module->Name.empty()) {
        parts.Module->Name = StemOf(file);
    }
    parts.Runner.Load(parts.Module.get());
    parts.BindHandlers();
    return true;
}

bool ScriptEngine::IsReady() const {
    return m_parts->IsReady && m_parts->Module != nullptr;
}

void ScriptEngine::SetReady(bool ready) {
    m_parts->IsReady = ready;
}

bool ScriptEngine::IsRunning() const {
    return m_parts->Runner.IsRunning();
}

const std::vector<CompileError>& ScriptEngine::LoadErrors() const {
    return m_parts->Errors;
}

std::string ScriptEngine::ErrorText() const {
    if (m_parts->Errors.empty()) {
        return {};
    }
    const CompileError& error = m_parts->Errors.front();
    if (error.Place.Line == 0) {
        return m_parts->File + ": " + error.Text;
    }
    std::string text = m_parts->File + "(" + std::to_string(error.Place.Line) + ", " +
                       std::to_string(error.Place.Column) + "): " + error.Text;
    if (const ScriptOrigin* origin = OriginOfLine(error.Place.Line)) {
        text += " [" + origin->Name + ", line " +
                std::to_string(error.Place.Line - origin->FirstLine + 1) + "]";
    }
    return text;
}

const std::vector<CompileWarning>& ScriptEngine::Warnings() const {
    return m_parts->Warnings;
}

const ScriptOrigin* ScriptEngine::OriginOfLine(std::int32_t line) const {
    return FindOrigin(m_parts->Origins, line);
}

const ScriptOrigin* ScriptEngine::OriginOfRule(std::int32_t rule) const {
    for (const ScriptOrigin& origin : m_parts->Origins) {
        if (origin.Rule == rule) {
            return &origin;
        }
    }
    return nullptr;
}

bool ScriptEngine::RunSub(std::string_view name) {
    if (!IsReady()) {
        return false;
    }
    const int index = m_parts->Module->FindProcedure(name, ProcedureKind::Sub);
    const bool fits =
        index >= 0 &&
        m_parts->Module->Procedures[static_cast<std::size_t>(index)].Parameters.empty();
    if (fits) {
        return m_parts->Run(static_cast<std::size_t>(index), {});
    }
    const std::int32_t number = runtimeerror::kProcedureNotDefined;
    m_parts->Alert(
        {{},
         m_parts->Module->Name,
         0,
         number,
         RuntimeErrorText(number) + ": '" + std::string(name) + "' without arguments"});
    return false;
}

std::string ScriptEngine::Disassemble() const {
    return m_parts->Module ? basic::Disassemble(*m_parts->Module) : std::string();
}

}  // namespace dorvik::basic
