#pragma once

#include "basic/values/ArrayBody.h"
#include "basic/values/ScriptObject.h"

#include <memory>

namespace dorvik::basic {

/// Keeps an array alive and locked while a reference to one of its elements exists. It is in a slot of
/// the caller, so it is released whichever way the call ends.
class ArrayPin final : public ScriptObject {
public:
    explicit ArrayPin(Ref<ArrayBody> array)
        : ScriptObject(ObjectClass::Any), m_array(std::move(array)) {
        m_array->Lock();
    }
    ~ArrayPin() override { m_array->Unlock(); }

    std::string_view ClassName() const override { return "Object"; }
    int FindMember(std::string_view) const override { return kNoMember; }
    bool HasDefaultMember() const override { return false; }
    int FindParameter(int, std::string_view) const override { return -1; }
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;

private:
    Ref<ArrayBody> m_array;
};

/// The position of a For Each: in an array, which is locked meanwhile, or in a collection. A With that
/// works on an element of an array keeps the array locked with one, too.
class LoopState final : public ScriptObject {
public:
    explicit LoopState(Ref<ArrayBody> array);
    LoopState(Ref<ScriptObject> collection, std::unique_ptr<ScriptIterator> iterator);
    ~LoopState() override;

    /// False at the end; otherwise `element` is a copy of the next one.
    bool Next(Value& element);
    /// The loop was left by a jump. The array is free, until a jump back into the loop needs the next element.
    void Leave();

    std::string_view ClassName() const override { return "Object"; }
    int FindMember(std::string_view) const override { return kNoMember; }
    bool HasDefaultMember() const override { return false; }
    int FindParameter(int, std::string_view) const override { return -1; }
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;

private:
    Ref<ArrayBody> m_array;
    bool m_isLocked = false;
    std::size_t m_position = 0;
    Ref<ScriptObject> m_collection;
    std::unique_ptr<ScriptIterator> m_iterator;
};

}  // namespace dorvik::basic
