#include "basic/library/CollectionObject.h"

#include "Arguments.h"
#include "ObjectMembers.h"
#include "basic/values/Coercion.h"
#include "basic/values/LongWork.h"

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

/// Whether a member can be used with one argument, as most uses are.
bool TakesOneArgument(Member member) {
    return member == Member::Item || member == Member::Add || member == Member::Remove;
}

/// What an item takes besides its value: the node, its place, its entry in the table of keys.
constexpr std::size_t kBytesPerItem = 96;
/// What the queue takes before there is an item.
constexpr std::size_t kBytesOfQueue = 600;

}  // namespace

class CollectionObject::Walker final : public ScriptIterator {
public:
    explicit Walker(Ref<CollectionObject> collection) : m_collection(std::move(collection)) {}

    bool Next(Value& element) override {
        if (m_place >= m_collection->m_order.Size()) {
            return false;
        }
        element = m_collection->m_order[m_place++].Value();
        return true;
    }

private:
    Ref<CollectionObject> m_collection;
    std::size_t m_place = 0;
};

CollectionObject::CollectionObject()
    : ContainerObject(ObjectClass::Collection, sizeof(CollectionObject) + kBytesOfQueue) {}

int CollectionObject::FindMember(std::string_view name) const {
    return FindMemberIn(kMembers, name);
}

int CollectionObject::FindParameter(int member, std::string_view name) const {
    return FindParameterIn(kMembers, member, name);
}

Value CollectionObject::Invoke(int member, InvokeKind kind, std::span<const Value> arguments) {
    const auto which = static_cast<Member>(member);
    const bool hasOneArgument =
        arguments.size() == 1 && !IsAssignment(kind) && IsGiven(arguments, 0);
    if (!hasOneArgument || !TakesOneArgument(which)) {
        CheckUse(kMembers, member, kind, arguments);
    }
    switch (which) {
        case Member::Item: return ItemOf(arguments[0]);
        case Member::Add:
            if (hasOneArgument) {
                Append(arguments[0]);
            } else {
                Add(arguments);
            }
            break;
        case Member::Remove: Remove(PlaceOf(arguments[0])); break;
        case Member::Count: return Value::Long(static_cast<std::int32_t>(Count()));
    }
    return Value();
}

std::unique_ptr<ScriptIterator> CollectionObject::Iterate() {
    return std::make_unique<Walker>(Ref<CollectionObject>(this));
}

void CollectionObject::ForEachValue(const Visitor& visit) const {
    for (std::size_t place = 0; place < m_order.Size(); ++place) {
        visit(m_order[place].Value());
    }
}

void CollectionObject::Empty() noexcept {
    m_byKey.clear();
    m_order.Clear();
    m_memory.SetBytes(0);
}

void CollectionObject::Append(const Value& item) {
    m_memory.SetBytes(m_memory.Bytes() + kBytesPerItem);
    m_order.Insert(m_order.Size(), {StoredValue(item, InvokeKind::Set), nullptr});
}

void CollectionObject::Add(std::span<const Value> arguments) {
    Entry entry;
    if (IsGiven(arguments, 1)) {
        entry.Keyed = std::make_unique<KeyedItem>();
        entry.Keyed->Key = LetValue(arguments[1]);
        if (entry.Keyed->Key.Type() != ValueType::String) {
            RaiseError(runtimeerror::kTypeMismatch);
        }
        if (m_byKey.contains(entry.Keyed->Key.AsText())) {
            RaiseError(runtimeerror::kKeyInUse);
        }
    }
    const std::size_t place = PlaceForNew(arguments);
    CountRareLongWork(std::min(place, m_order.Size() - place));
    m_memory.SetBytes(m_memory.Bytes() + kBytesPerItem);
    Value item = StoredValue(arguments[0], InvokeKind::Set);
    if (entry.Keyed) {
        entry.Keyed->Item = std::move(item);
        m_byKey.emplace(entry.Keyed->Key.AsText(), entry.Keyed.get());
    } else {
        entry.Item = std::move(item);
    }
    m_order.Insert(place, std::move(entry));
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
    return hasAfter ? PlaceOf(arguments[3]) + 1 : m_order.Size();
}

const Value& CollectionObject::ItemOf(const Value& indexOrKey) const {
    if (indexOrKey.Type() != ValueType::String) {
        return m_order[PlaceOf(indexOrKey)].Value();
    }
    const Value* const item = ItemOf(indexOrKey.AsText());
    if (item == nullptr) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return *item;
}

std::size_t CollectionObject::PlaceOf(std::int32_t index) const {
    if (ItemAt(index) == nullptr) {
        RaiseError(runtimeerror::kSubscriptOutOfRange);
    }
    return static_cast<std::size_t>(index) - 1;
}

std::size_t CollectionObject::PlaceOf(const Value& indexOrKey) const {
    if (indexOrKey.Type() == ValueType::Integer || indexOrKey.Type() == ValueType::Long) {
        return PlaceOf(indexOrKey.AsLong());
    }
    const Value which = LetValue(indexOrKey);
    if (which.Type() != ValueType::String) {
        return PlaceOf(LongAt({&which, 1}, 0));
    }
    const Value& item = ItemOf(which);
    std::size_t place = 0;
    while (&m_order[place].Value() != &item) {
        ++place;
    }
    CountLongWork(place);
    return place;
}

void CollectionObject::Remove(std::size_t place) {
    CountRareLongWork(std::min(place, m_order.Size() - place));
    // The item dies last: what dies with it may come back here.
    const Entry entry = m_order.Take(place);
    if (entry.Keyed) {
        m_byKey.erase(entry.Keyed->Key.AsText());
    }
    m_memory.SetBytes(m_memory.Bytes() - kBytesPerItem);
}

}  // namespace dorvik::basic
