#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// What an element of a keyed list offers to code that works on any such list.
class IListItem {
public:
    virtual ~IListItem() = default;

    virtual std::string Key() const = 0;
    /// For the lists only, which give a new item its key.
    virtual void SetKey(std::string_view key) = 0;
    virtual std::string Title() const = 0;
    virtual std::string Description() const = 0;
    virtual std::int32_t ID() const = 0;
};

}  // namespace dorvik
