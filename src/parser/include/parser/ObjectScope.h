#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class VirtualObject;

/// The virtual objects in scope, in the order in which they were attached. Names compare without regard to case.
class ObjectScope {
public:
    struct Entry {
        std::string Name;
        std::shared_ptr<VirtualObject> Object;
    };

    /// Raises `kyErrKeyInUse` if the name is in scope already.
    void Attach(std::shared_ptr<VirtualObject> object, std::string_view name);
    /// Raises `kyErrNoSuchItem` if the name is not in scope.
    void Detach(std::string_view name);
    /// Null if the name is not in scope. Valid until the scope changes.
    const Entry* Find(std::string_view name) const;
    const std::vector<Entry>& Entries() const { return m_entries; }

private:
    std::vector<Entry> m_entries;
};

}  // namespace dorvik
