#pragma once

#include "base/BasicError.h"
#include "basic/values/ScriptObject.h"

#include <string_view>
#include <utility>

namespace dorvik::basic {

/// An object whose default member, if it has one, gives a value.
class FakeObject final : public ScriptObject {
public:
    FakeObject() : ScriptObject(ObjectClass::Match) {}
    explicit FakeObject(Value value)
        : ScriptObject(ObjectClass::Match), m_value(std::move(value)), m_hasDefault(true) {}

    std::string_view ClassName() const override { return "Fake"; }
    int FindMember(std::string_view) const override { return kNoMember; }
    bool HasDefaultMember() const override { return m_hasDefault; }
    int FindParameter(int, std::string_view) const override { return -1; }
    Value Invoke(int, InvokeKind, std::span<const Value>) override { return m_value; }

    /// Makes chains.
    void SetValue(Value value) { m_value = std::move(value); }

private:
    Value m_value;
    bool m_hasDefault = false;
};

inline Value FakeObjectWith(Value value) {
    return Value::Object(MakeRef<FakeObject>(std::move(value)));
}

}  // namespace dorvik::basic
