#include "basic/library/DictionaryObject.h"

#include "Arguments.h"
#include "ArrayResult.h"
#include "ObjectMembers.h"
#include "base/BasicError.h"
#include "basic/values/LongWork.h"

namespace dorvik::basic {

namespace {

enum class Member : std::uint8_t {
    Item,
    Add,
    Exists,
    Remove,
    RemoveAll,
    Keys,
    Items,
    Count,
    Key,
    CompareMode
};

constexpr ObjectMember kMembers[] = {
    {"Item", "Key", 1, MemberUse::ReadAndWrite},
    {"Add", "Key Item", 2},
    {"Exists", "Key", 1},
    {"Remove", "Key", 1},
    {"RemoveAll", ""},
    {"Keys", "Index"},  // without the index, all of them
    {"Items", "Index"},
    {"Count", ""},
    {"Key", "Key", 1, MemberUse::Write},
    {"CompareMode", "", 0, MemberUse::ReadAndWrite},
};

constexpr std::int32_t kUnknownKey = 32811;

[[noreturn]] void RaiseUnknownKey() {
    throw BasicError(kUnknownKey, "Element not found", "Scripting.Dictionary");
}

}  // namespace

class DictionaryObject::Walker final : public ScriptIterator {
public:
    explicit Walker(Ref<DictionaryObject> dictionary) : m_dictionary(std::move(dictionary)) {
        ++m_dictionary->m_walkers;
    }
    Walker(const Walker&) = delete;
    Walker& operator=(const Walker&) = delete;
    ~Walker() override { --m_dictionary->m_walkers; }

    bool Next(Value& element) override {
        const DictionaryKeys& keys = m_dictionary->m_keys;
        while (m_place < keys.Places() && !keys.IsAlive(m_place)) {
            ++m_place;
        }
        if (m_place >= keys.Places()) {
            return false;
        }
        element = keys.KeyAt(m_place++);
        return true;
    }

private:
    Ref<DictionaryObject> m_dictionary;
    std::size_t m_place = 0;
};

int DictionaryObject::FindMember(std::string_view name) const {
    return FindMemberIn(kMembers, name);
}

int DictionaryObject::FindParameter(int member, std::string_view name) const {
    return FindParameterIn(kMembers, member, name);
}

Value DictionaryObject::Invoke(int member, InvokeKind kind, std::span<const Value> arguments) {
    CheckUse(kMembers, member, kind, arguments);
    switch (static_cast<Member>(member)) {
        case Member::Item:
            if (!IsAssignment(kind)) {
                return Item(arguments[0]);
            }
            SetItem(arguments[0], StoredValue(arguments[1], kind));
            break;
        case Member::Add: Add(arguments[0], arguments[1]); break;
        case Member::Exists: {
            const std::uint32_t hash = HashOfKey(arguments[0], m_keys.IgnoresCase());
            return Value::Boolean(m_keys.Find(arguments[0], hash) != DictionaryKeys::kNone);
        }
        case Member::Remove: Remove(arguments[0]); break;
        case Member::RemoveAll: RemoveAll(); break;
        case Member::Keys: return List(Part::Keys, arguments);
        case Member::Items: return List(Part::Items, arguments);
        case Member::Count: return Value::Long(static_cast<std::int32_t>(Count()));
        case Member::Key: Rename(arguments[0], arguments[1]); break;
        case Member::CompareMode:
            if (!IsAssignment(kind)) {
                return Value::Long(m_keys.IgnoresCase() ? 1 : 0);
            }
            SetCompareMode(arguments[0]);
            break;
    }
    return Value();
}

std::unique_ptr<ScriptIterator> DictionaryObject::Iterate() {
    return std::make_unique<Walker>(Ref<DictionaryObject>(this));
}

void DictionaryObject::ForEachValue(const Visitor& visit) const {
    for (std::size_t place = 0; place < m_keys.Places(); ++place) {
        visit(m_keys.KeyAt(place));
        visit(m_keys.ItemAt(place));
    }
}

void DictionaryObject::Add(const Value& key, const Value& item) {
    const std::uint32_t hash = HashOfKey(key, m_keys.IgnoresCase());
    if (m_keys.Find(key, hash) != DictionaryKeys::kNone) {
        RaiseError(runtimeerror::kKeyInUse);
    }
    Value stored = StoredValue(item, InvokeKind::Set);
    const std::size_t place = m_keys.ContinuesRow(key) ? AppendToRow(key) : AppendHashed(key, hash);
    m_keys.ItemAt(place) = std::move(stored);
}

std::size_t DictionaryObject::Append(const Value& key) {
    return m_keys.ContinuesRow(key) ? AppendToRow(key) : AppendHashed(key, m_keys.HashOf(key));
}

std::size_t DictionaryObject::AppendToRow(const Value& key) {
    ChargeForOneMore();
    return m_keys.AppendToRow(key);
}

std::size_t DictionaryObject::AppendHashed(const Value& key, std::uint32_t hash) {
    ChargeForOneMore();
    return m_keys.Append(key, hash, m_walkers == 0);
}

void DictionaryObject::ChargeForOneMore() {
    if (m_keys.HasRoom()) {
        return;
    }
    if (const std::size_t bytes = m_keys.BytesForOneMore(); bytes > m_memory.Bytes()) {
        m_memory.SetBytes(bytes);
    }
}

void DictionaryObject::Remove(const Value& key) {
    const std::size_t place = m_keys.Find(key, HashOfKey(key, m_keys.IgnoresCase()));
    if (place == DictionaryKeys::kNone) {
        RaiseUnknownKey();
    }
    m_keys.Remove(place);
}

void DictionaryObject::RemoveAll() {
    m_memory.SetBytes(0);
    m_keys.Clear();
}

void DictionaryObject::Rename(const Value& key, const Value& newKey) {
    const std::size_t place = m_keys.Find(key, HashOfKey(key, m_keys.IgnoresCase()));
    if (place == DictionaryKeys::kNone) {
        RaiseUnknownKey();
    }
    const std::uint32_t newHash = HashOfKey(newKey, m_keys.IgnoresCase());
    if (const std::size_t taken = m_keys.Find(newKey, newHash);
        taken != DictionaryKeys::kNone && taken != place) {
        RaiseError(runtimeerror::kKeyInUse);
    }
    m_keys.Rename(place, newKey, newHash);
}

void DictionaryObject::SetCompareMode(const Value& mode) {
    const std::int32_t number = LongAt({&mode, 1}, 0);
    if (Count() != 0 || (number != 0 && number != 1)) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    m_keys.SetIgnoresCase(number == 1);
}

Value DictionaryObject::List(Part part, std::span<const Value> arguments) const {
    const bool isIndexed = IsGiven(arguments, 0);
    const std::int32_t index = LongAt(arguments, 0, 0);
    if (isIndexed && (index < 0 || static_cast<std::size_t>(index) >= Count())) {
        RaiseError(runtimeerror::kSubscriptOutOfRange);
    }
    Ref<ArrayBody> list = VariantArray(isIndexed ? 0 : Count());
    CountLongWork(m_keys.Places());
    std::size_t position = 0;
    for (std::size_t place = 0; place < m_keys.Places(); ++place) {
        if (!m_keys.IsAlive(place)) {
            continue;
        }
        Value value = part == Part::Items ? m_keys.ItemAt(place) : m_keys.KeyAt(place);
        if (isIndexed && position == static_cast<std::size_t>(index)) {
            return value;
        }
        if (!isIndexed) {
            list->Elements()[position] = value.DeepCopy();
        }
        ++position;
    }
    return Value::Array(list);
}

}  // namespace dorvik::basic
