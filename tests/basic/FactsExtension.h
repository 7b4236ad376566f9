#pragma once

#include "basic/program/ScriptHost.h"

#include <map>
#include <string>
#include <vector>

namespace dorvik::basic::test {

/// A rule script's surroundings, read from a file of facts, and the record of what the script did.
class FactsExtension final : public IScriptExtension, public IScriptHost {
public:
    /// Throws std::runtime_error with the file for one that is no file of facts.
    explicit FactsExtension(const std::string& file);

    std::span<const ExtensionMember> Members() const override;
    void Call(std::size_t member, std::span<Value> arguments) override;
    void OnDebugPrint(std::string_view line) override { m_lines.emplace_back(line); }
    void OnErrorAlert(const ErrorAlert& alert) override;

    /// What the script printed and did, a line each.
    const std::vector<std::string>& Lines() const { return m_lines; }
    /// What the file says that it must do.
    const std::vector<std::string>& Expected() const { return m_expected; }

private:
    using Values = std::map<std::string, Value>;  // by lower-case name
    struct Object {
        Values Properties;
        Values Workfields;
    };

    Object* Find(const Value& name);
    void Log(const std::string& text) { m_lines.push_back("[log] " + text); }
    Value PropertyOf(const Value& objectName, const Value& propertyName);

    std::string m_event;
    std::map<std::string, Object> m_objects;
    std::vector<std::string> m_classes;
    std::vector<std::string> m_forms;
    std::vector<std::string> m_expected;
    std::vector<std::string> m_lines;
};

}  // namespace dorvik::basic::test
