#include "basic/program/PropertyCache.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

/// More than all rules together read at an event. The bound is for scripts that compute names.
constexpr std::size_t kMostEntries = 64;

bool CanBeKey(const Value& argument) {
    return argument.Type() == ValueType::String || argument.Type() == ValueType::Empty;
}

const StringBody* BodyOf(const Value& argument) {
    return argument.Type() == ValueType::String ? argument.TextBody() : nullptr;
}

bool CanBeKept(const Value& result) {
    return result.Type() == ValueType::String || result.IsNumber();
}

}  // namespace

std::optional<PropertyCache::Key>
PropertyCache::KeyOf(std::size_t member, const Value& first, const Value& second) {
    if (!CanBeKey(first) || !CanBeKey(second)) {
        return std::nullopt;
    }
    return Key{member, BodyOf(first), BodyOf(second)};
}

const Value*
PropertyCache::Find(std::size_t member, const Value& first, const Value& second) const {
    const auto key = KeyOf(member, first, second);
    if (!key) {
        return nullptr;
    }
    // The arguments first: most lookups are of one callback and one object.
    const auto found = std::find_if(m_keys.begin(), m_keys.end(), [&key](const Key& kept) {
        return kept.Second == key->Second && kept.First == key->First && kept.Member == key->Member;
    });
    return found == m_keys.end()
               ? nullptr
               : &m_entries[static_cast<std::size_t>(found - m_keys.begin())].Result;
}

void PropertyCache::Keep(
    std::size_t member, const Value& first, const Value& second, const Value& result) {
    const auto key = KeyOf(member, first, second);
    if (key && CanBeKept(result) && m_keys.size() < kMostEntries) {
        m_keys.push_back(*key);
        m_entries.push_back({first, second, result});
    }
}

void PropertyCache::Clear() {
    m_keys.clear();
    m_entries.clear();
}

}  // namespace dorvik::basic
