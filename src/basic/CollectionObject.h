#pragma once

#include "base/modTextCase.h"
#include "basic/ContainerMemory.h"
#include "basic/ContainerObject.h"

#include <deque>
#include <unordered_map>

namespace dorvik::basic {

/// `Collection`: items by position, from 1, and by an optional key that ignores case.
class CollectionObject final : public ContainerObject {
public:
    CollectionObject();

    ObjectClass Class() const override { return ObjectClass::Collection; }
    std::string_view ClassName() const override { return "Collection"; }
    int FindMember(std::string_view name) const override;
    int FindParameter(int member, std::string_view name) const override;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;
    std::unique_ptr<ScriptIterator> Iterate() override;
    void ForEachValue(const Visitor& visit) const override;
    void Empty() noexcept override;

    std::size_t Count() const { return m_order.size(); }

private:
    class Walker;
    struct Node {
        Value Item;
        Value Key;  // a text, or Empty
    };
    struct KeyHash {
        std::size_t operator()(std::string_view key) const { return modTextCase::Hash(key); }
    };
    struct KeyEqual {
        bool operator()(std::string_view left, std::string_view right) const {
            return modTextCase::Equal(left, right);
        }
    };

    void Add(std::span<const Value> arguments);
    std::size_t PlaceForNew(std::span<const Value> arguments) const;
    Node& NodeOf(const Value& indexOrKey) const;
    /// The place, from 0, of an index or a key. Raises 9, 5.
    std::size_t PlaceOf(const Value& indexOrKey) const;
    void Remove(std::size_t place);

    std::deque<std::unique_ptr<Node>> m_order;  // both ends are cheap to reach
    std::unordered_map<std::string_view, Node*, KeyHash, KeyEqual> m_byKey;  // views into the nodes
    ContainerMemory m_memory;
};

}  // namespace dorvik::basic
