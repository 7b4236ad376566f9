#include "basic/CollectionObject.h"

#include "basic/Arguments.h"
#include "basic/Coercion.h"
#include "basic/LongWork.h"
#include "basic/ObjectMembers.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

enum class Member : std::uint8_t { Item, Add, Remove, Count };

constexpr ObjectMember kMembers[] = {
    {"Item", "Index", 1},
    {"Add", "Item Key Before After", 1},
    {"Remove", "Index", 1},
    {"Count", ""},
};

/// What an item takes besides its value: the node, its place, its entry in the table of keys.
constexpr std::size_t kBytesPerItem = 96;
/// What the queue takes before there is an item.
constexpr std::size_t kBytesOfQueue = 600;

}  // namespace

class CollectionObject::Walker final : public ScriptIterator {
public:
    explicit Walker(Ref<CollectionObject> collection) : m_collection(std::move(collection)) {}

    bool Next(Value& element) override {
        if (m_place >= m_collection->m_order.size()) {
            return false;
        }
        element = m_collection->m_order[m_place++]->Item;
        return true;
    }

private:
    Ref<CollectionObject> m_collection;
    std::size_t m_place = 0;
};

CollectionObject::CollectionObject() : ContainerObject(sizeof(CollectionObject) + kBytesOfQueue) {}

int CollectionObject::FindMember(std::string_view name) const {
    return FindMemberIn(kMembers, name);
}

int CollectionObject::FindParameter(int member, std::string_view name) const {
    return FindParameterIn(kMembers, member, name);
}

Value CollectionObject::Invoke(int member, InvokeKind kind, std::span<const Value> arguments) {
    CheckUse(kMembers, member, kind, arguments);
    switch (static_cast<Member>(member)) {
        case Member::Item: return NodeOf(arguments[0]).Item;
        case Member::Add: Add(arguments); break;
        case Member::Remove: Remove(PlaceOf(arguments[0])); break;
        case Member::Count: return Value::Long(static_cast<std::int32_t>(Count()));
    }
    return Value();
}

std::unique_ptr<ScriptIterator> CollectionObject::Iterate() {
    return std::make_unique<Walker>(Ref<CollectionObject>(this));
}

void CollectionObject::ForEachValue(const Visitor& visit) const {
    for (const auto& node : m_order) {
        visit(node->Item);
    }
}

void CollectionObject::Empty() noexcept {
    m_byKey.clear();
    m_order.clear();
    m_memory.SetBytes(0);
}

void CollectionObject::Add(std::span<const Value> arguments) {
    auto node = std::make_unique<Node>();
    if (IsGiven(arguments, 1)) {
        node->Key = LetValue(arguments[1]);
        if (node->Key.Type() != ValueType::String) {
            RaiseError(runtimeerror::kTypeMismatch);
        }
        if (m_byKey.contains(node->Key.AsText())) {
            RaiseError(runtimeerror::kKeyInUse);
        }
    }
    const std::size_t place = PlaceForNew(arguments);
    CountLongWork(std::min(place, m_order.size() - place));
    m_memory.SetBytes(m_memory.Bytes() + kBytesPerItem);
    node->Item = StoredValue(arguments[0], InvokeKind::Set);
    if (node->Key.Type() == ValueType::String) {
        m_byKey.emplace(node->Key.AsText(), node.get());
    }
    m_order.insert(m_order.begin() + static_cast<std::ptrdiff_t>(place), std::move(node));
}

std::size_t CollectionObject::PlaceForNew(std::span<const Value> arguments) const {
    const bool hasBefore = IsGiven(arguments, 2);
    const bool hasAfter = IsGiven(arguments, 3);
    if (hasBefore && hasAfter) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    if (hasBefore) {
        return PlaceOf(arguments[2]);
    }
    return hasAfter ? PlaceOf(arguments[3]) + 1 : m_order.size();
}

CollectionObject::Node& CollectionObject::NodeOf(const Value& indexOrKey) const {
    if (indexOrKey.Type() != ValueType::String) {
        return *m_order[PlaceOf(indexOrKey)];
    }
    const auto found = m_byKey.find(indexOrKey.AsText());
    if (found == m_byKey.end()) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return *found->second;
}

std::size_t CollectionObject::PlaceOf(const Value& indexOrKey) const {
    const Value which = LetValue(indexOrKey);
    if (which.Type() != ValueType::String) {
        const std::int32_t index = LongAt({&which, 1}, 0);
        if (index < 1 || static_cast<std::size_t>(index) > m_order.size()) {
            RaiseError(runtimeerror::kSubscriptOutOfRange);
        }
        return static_cast<std::size_t>(index) - 1;
    }
    const Node& node = NodeOf(which);
    const auto found = std::find_if(m_order.begin(), m_order.end(), [&](const auto& candidate) {
        return candidate.get() == &node;
    });
    const auto place = static_cast<std::size_t>(found - m_order.begin());
    CountLongWork(place);
    return place;
}

void CollectionObject::Remove(std::size_t place) {
    CountLongWork(std::min(place, m_order.size() - place));
    // The node dies last: what dies with it may come back here.
    const std::unique_ptr<Node> node = std::move(m_order[place]);
    m_order.erase(m_order.begin() + static_cast<std::ptrdiff_t>(place));
    if (node->Key.Type() == ValueType::String) {
        m_byKey.erase(node->Key.AsText());
    }
    m_memory.SetBytes(m_memory.Bytes() - kBytesPerItem);
}

}  // namespace dorvik::basic
