#pragma once

#include "basic/program/ScriptHost.h"

#include <array>

namespace dorvik::basic {

/// A host object with callbacks of every kind. It keeps what a script gives it.
class FuzzExtension : public IScriptExtension {
public:
    std::span<const ExtensionMember> Members() const override {
        static constexpr std::array<ExtensionMember, 6> kMembers{{
            {"Raise", 0, 0},
            {"Put", 2, 0},
            {"Get", 2, 2},
            {"Two", 3, 6},
            {"Swap", 2, 3},
            {"Class", 1, 1},
        }};
        return kMembers;
    }

    void Call(std::size_t member, std::span<Value> arguments) override {
        switch (member) {
            case 1:
                m_kept[0] = m_kept[1];
                m_kept[1] = arguments[1];
                break;
            case 2: arguments[1] = m_kept[1]; break;
            case 3:
                arguments[1] = arguments[0];
                arguments[2] = Value::Text("Command1");
                break;
            case 4: std::swap(arguments[0], arguments[1]); break;
            case 5: arguments[0] = Value::Long(3); break;
            default: break;
        }
    }

    void Forget() { m_kept = {}; }

private:
    std::array<Value, 2> m_kept;
};

}  // namespace dorvik::basic
