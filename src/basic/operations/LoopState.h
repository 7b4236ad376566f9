#pragma once

#include "basic/values/ArrayBody.h"
#include "basic/values/ScriptObject.h"

#include <memory>

namespace dorvik::basic {

/// An object that a slot holds for the machine; no script can reach it.
class MachineObject : public ScriptObject {
public:
    std::string_view ClassName() const final { return "Object"; }
    int FindMember(std::string_view) const final { return kNoMember; }
    bool HasDefaultMember() const final { return false; }
    int FindParameter(int, std::string_view) const final { return -1; }
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) final;

protected:
    MachineObject() : ScriptObject(ObjectClass::Any) {}
};

/// Keeps an array alive and locked while a reference to one of its elements exists. It is in a slot of
/// the caller, so it is released whichever way the call ends.
class ArrayPin final : public MachineObject {
public:
    explicit ArrayPin(Ref<ArrayBody> array) : m_array(std::move(array)) { m_array->Lock(); }
    ~ArrayPin() override { m_array->Unlock(); }

private:
    Ref<ArrayBody> m_array;
};

/// The position of a For Each: in an array, which is locked meanwhile, or in a collection. A With that
/// works on an element of an array keeps the array locked with one, too.
class LoopState final : public MachineObject {
public:
    explicit LoopState(Ref<ArrayBody> array);
    LoopState(Ref<ScriptObject> collection, std::unique_ptr<ScriptIterator> iterator);
    ~LoopState() override;

    /// False at the end; otherwise `element` is a copy of the next one.
    bool Next(Value& element);
    /// The loop was left by a jump. The array is free, until a jump back into the loop needs the next element.
    void Leave();

private:
    Ref<ArrayBody> m_array;
    bool m_isLocked = false;
    std::size_t m_position = 0;
    Ref<ScriptObject> m_collection;
    std::unique_ptr<ScriptIterator> m_iterator;
};

}  // namespace dorvik::basic
