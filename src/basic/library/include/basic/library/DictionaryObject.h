#pragma once

#include "basic/library/ContainerMemory.h"
#include "basic/library/ContainerObject.h"
#include "basic/library/DictionaryKeys.h"

namespace dorvik::basic {

/// `Scripting.Dictionary`: items by keys, in the order in which the keys were added. For Each gives the
/// keys, those too that are added while it runs.
class DictionaryObject final : public ContainerObject {
public:
    DictionaryObject() : ContainerObject(ObjectClass::Dictionary, sizeof(DictionaryObject)) {}

    std::string_view ClassName() const override { return "Dictionary"; }
    int FindMember(std::string_view name) const override;
    int FindParameter(int member, std::string_view name) const override;
    Value Invoke(int member, InvokeKind kind, std::span<const Value> arguments) override;
    std::unique_ptr<ScriptIterator> Iterate() override;
    void ForEachValue(const Visitor& visit) const override;
    void Empty() noexcept override { RemoveAll(); }

    std::size_t Count() const { return m_keys.Count(); }
    /// The item of a key, which is added if it is not there. Good until the dictionary changes.
    const Value& Item(const Value& key) {
        return m_keys.ItemAt(PlaceOf(key));  // Required: reading an unknown key adds it
    }
    /// Stores a value as it is.
    void SetItem(const Value& key, const Value& item) {
        // The old item leaves last, when the entry is whole again.
        m_keys.ItemAt(PlaceOf(key)) = item;
    }

private:
    class Walker;
    enum class Part : std::uint8_t { Keys, Items };

    /// The place of a key, which is added if it is not there.
    std::size_t PlaceOf(const Value& key) {
        const std::size_t place = m_keys.FindAgain(key);
        return place != DictionaryKeys::kNone ? place : Append(key);
    }
    void Add(const Value& key, const Value& item);
    std::size_t Append(const Value& key);
    std::size_t AppendToRow(const Value& key);
    std::size_t AppendHashed(const Value& key, std::uint32_t hash);
    void ChargeForOneMore();
    void Remove(const Value& key);
    void RemoveAll();
    void Rename(const Value& key, const Value& newKey);
    void SetCompareMode(const Value& mode);
    /// All keys or all items as an array, or the one at the index that was given.
    Value List(Part part, std::span<const Value> arguments) const;

    DictionaryKeys m_keys;
    ContainerMemory m_memory;
    std::size_t m_walkers = 0;  // while they walk, entries keep their places
};

}  // namespace dorvik::basic
