#include "basic/library/ContainerObject.h"

#include "basic/values/ArrayBody.h"
#include "basic/values/MemoryMeter.h"
#include "basic/values/RecordBody.h"

#include <unordered_map>
#include <vector>

namespace dorvik::basic {

namespace {

constinit thread_local ContainerObject* t_first = nullptr;

using Body = const ReferenceCounted*;

/// The body of a value that may lead to a container, or null.
Body BodyOf(const Value& value) {
    if (value.Type() == ValueType::Array) {
        return value.AsArray();
    }
    if (value.Type() == ValueType::Record) {
        return value.AsRecord();
    }
    if (value.Type() == ValueType::Object) {
        return dynamic_cast<const ContainerObject*>(value.AsObject());
    }
    return nullptr;
}

void ForEachBody(Body body, const std::function<void(Body)>& visit) {
    const auto visitValue = [&](const Value& value) {
        if (const Body held = BodyOf(value)) {
            visit(held);
        }
    };
    if (const auto* container = dynamic_cast<const ContainerObject*>(body)) {
        container->ForEachValue(visitValue);
    } else if (const auto* array = dynamic_cast<const ArrayBody*>(body)) {
        for (const Value& value : array->Elements()) {
            visitValue(value);
        }
    } else if (const auto* record = dynamic_cast<const RecordBody*>(body)) {
        for (const Value& value : record->Members()) {
            visitValue(value);
        }
    }
}

/// Separates the containers that can be reached from outside of all containers from those that cannot: a body
/// with more references than the containers account for is held by someone else.
class CycleSearch {
public:
    void Add(Body container) {
        if (m_nodes.try_emplace(container).second) {
            m_waiting.push_back(container);
        }
    }

    void CountReferences() {
        while (!m_waiting.empty()) {
            ForEachBody(TakeWaiting(), [this](Body held) {
                Add(held);
                ++m_nodes[held].Accounted;
            });
        }
    }

    void MarkReachable() {
        for (auto& [body, node] : m_nodes) {
            if (body->References() > node.Accounted) {
                Mark(body, node);
            }
        }
        while (!m_waiting.empty()) {
            ForEachBody(TakeWaiting(), [this](Body held) { Mark(held, m_nodes[held]); });
        }
    }

    bool IsReachable(Body body) const { return m_nodes.at(body).IsReachable; }

private:
    struct Node {
        std::uint32_t Accounted = 0;
        bool IsReachable = false;
    };

    void Mark(Body body, Node& node) {
        if (!node.IsReachable) {
            m_waiting.push_back(body);
        }
        node.IsReachable = true;
    }
    Body TakeWaiting() {
        const Body body = m_waiting.back();
        m_waiting.pop_back();
        return body;
    }

    std::unordered_map<Body, Node> m_nodes;
    std::vector<Body> m_waiting;
};

}  // namespace

ContainerObject::ContainerObject(ObjectClass which, std::size_t bytes)
    : ScriptObject(which), m_bytes(bytes) {
    MemoryMeter::Current().Charge(bytes);
    m_next = t_first;
    if (m_next != nullptr) {
        m_next->m_previous = this;
    }
    t_first = this;
}

ContainerObject::~ContainerObject() {
    MemoryMeter::Current().Refund(m_bytes);
    (m_previous != nullptr ? m_previous->m_next : t_first) = m_next;
    if (m_next != nullptr) {
        m_next->m_previous = m_previous;
    }
}

void ContainerObject::ReleaseCycles() {
    if (t_first == nullptr) {
        return;
    }
    CycleSearch search;
    for (ContainerObject* container = t_first; container != nullptr;
         container = container->m_next) {
        search.Add(container);
    }
    search.CountReferences();
    search.MarkReachable();
    std::vector<Ref<ContainerObject>> dead;
    for (ContainerObject* container = t_first; container != nullptr;
         container = container->m_next) {
        if (!search.IsReachable(container)) {
            dead.emplace_back(container);
        }
    }
    for (const Ref<ContainerObject>& container : dead) {
        container->Empty();
    }
}

}  // namespace dorvik::basic
