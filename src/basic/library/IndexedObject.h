#pragma once

#include "basic/values/ScriptObject.h"

namespace dorvik::basic {

/// A collection of things that do not change, numbered from 0, whose only members are `Item(Index)` and `Count`.
class IndexedObject : public ScriptObject {
public:
    using ScriptObject::ScriptObject;

    int FindMember(std::string_view name) const final;
    int FindParameter(int member, std::string_view name) const final;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) final;
    std::unique_ptr<ScriptIterator> Iterate() final;

    virtual std::size_t Count() const = 0;
    /// REQUIRES: index < Count().
    virtual Value At(std::size_t index) = 0;
};

}  // namespace dorvik::basic
