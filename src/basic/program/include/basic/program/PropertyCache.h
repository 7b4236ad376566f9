#pragma once

#include "basic/values/Value.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace dorvik::basic {

/// Results of an extension's callbacks that stay the same until the extension clears them, so that all scripts share
/// one copy of each. The extension owns the cache and fills it; the machine gets it with the extension, and looks
/// results up there before it calls.
///
/// The key is the number of the callback and up to two arguments before its out argument, each a String or Empty.
/// Names in scripts are constants of one module, which has each text once, so texts are compared by the address of
/// their heap object; for a text that a script has computed nothing is found, and the callback is called.
class PropertyCache {
public:
    /// Null if there is none. Valid until the next `Keep` or `Clear`.
    const Value* Find(std::size_t member, const Value& first, const Value& second) const;
    /// Keeps a String or a number. Other results are not kept, nor are more than scripts reasonably read.
    void Keep(std::size_t member, const Value& first, const Value& second, const Value& result);
    void Clear();

private:
    struct Key {
        std::size_t Member;
        const StringBody* First;
        const StringBody* Second;

        bool operator==(const Key&) const = default;
    };
    struct Entry {
        Value First;  // the arguments, so that their addresses are not reused
        Value Second;
        Value Result;
    };
    static std::optional<Key> KeyOf(std::size_t member, const Value& first, const Value& second);

    std::vector<Key> m_keys;
    std::vector<Entry> m_entries;  // in the same order
};

}  // namespace dorvik::basic
