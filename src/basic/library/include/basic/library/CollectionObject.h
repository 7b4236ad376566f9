#pragma once

#include "base/modTextCase.h"
#include "basic/library/ContainerMemory.h"
#include "basic/library/ContainerObject.h"
#include "basic/library/TwoEndedRow.h"

#include <memory>
#include <unordered_map>

namespace dorvik::basic {

/// `Collection`: items by position, from 1, and by an optional key that ignores case.
class CollectionObject final : public ContainerObject {
public:
    CollectionObject();

    std::string_view ClassName() const override { return "Collection"; }
    int FindMember(std::string_view name) const override;
    int FindParameter(int member, std::string_view name) const override;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;
    std::unique_ptr<ScriptIterator> Iterate() override;
    void ForEachValue(const Visitor& visit) const override;
    void Empty() noexcept override;

    std::size_t Count() const { return m_order.Size(); }
    /// The item at a position, from 1, or null if there is none. Good until the collection changes.
    const Value* ItemAt(std::int32_t index) const {
        const std::int64_t place = std::int64_t{index} - 1;
        return place >= 0 && place < static_cast<std::int64_t>(m_order.Size())
                   ? &m_order[static_cast<std::size_t>(place)].Value()
                   : nullptr;
    }
    /// The same for a key.
    const Value* ItemOf(std::string_view key) const {
        const auto found = m_byKey.find(key);
        return found != m_byKey.end() ? &found->second->Item : nullptr;
    }

private:
    class Walker;
    /// An item with a key stays where it is, since the table of keys refers to it.
    struct KeyedItem {
        basic::Value Item;
        basic::Value Key;  // a text
    };
    struct Entry {
        basic::Value Item;
        std::unique_ptr<KeyedItem> Keyed;  // has the item then

        const basic::Value& Value() const { return Keyed ? Keyed->Item : Item; }
    };
    struct KeyHash {
        std::size_t operator()(std::string_view key) const { return modTextCase::Hash(key); }
    };
    struct KeyEqual {
        bool operator()(std::string_view left, std::string_view right) const {
            return modTextCase::Equal(left, right);
        }
    };

    /// A new item without a key at the end, as most are.
    void Append(const Value& item);
    void Add(std::span<const Value> arguments);
    std::size_t PlaceForNew(std::span<const Value> arguments) const;
    const Value& ItemOf(const Value& indexOrKey) const;
    /// The place, from 0, of an index or a key. Raises 9, 5.
    std::size_t PlaceOf(const Value& indexOrKey) const;
    std::size_t PlaceOf(std::int32_t index) const;
    void Remove(std::size_t place);

    TwoEndedRow<Entry> m_order;
    std::unordered_map<std::string_view, KeyedItem*, KeyHash, KeyEqual>
        m_byKey;  // views into the items
    ContainerMemory m_memory;
};

}  // namespace dorvik::basic
