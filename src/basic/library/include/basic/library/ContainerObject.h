#pragma once

#include "basic/values/ScriptObject.h"

#include <functional>

namespace dorvik::basic {

/// An object that holds values of scripts. A container can come to hold itself, directly or through
/// others; no count of references then ever falls to nothing, and `ReleaseCycles` has to find it.
class ContainerObject : public ScriptObject {
public:
    ~ContainerObject() override;

    using Visitor = std::function<void(const Value&)>;
    /// Every value that the object holds.
    virtual void ForEachValue(const Visitor& visit) const = 0;
    /// Lets go of them all.
    virtual void Empty() noexcept = 0;

    /// Empties the containers of this thread that nothing but containers refers to any more, which
    /// destroys them. What a host keeps, and all that is in it, stays.
    static void ReleaseCycles();

protected:
    /// Reports `bytes` to the memory meter for the object without what it holds. Raises 7.
    ContainerObject(ObjectClass which, std::size_t bytes);

private:
    // The list of all containers of the thread.
    ContainerObject* m_next = nullptr;
    ContainerObject* m_previous = nullptr;
    std::size_t m_bytes;
};

}  // namespace dorvik::basic
