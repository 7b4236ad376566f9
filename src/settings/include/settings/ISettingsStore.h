#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace dorvik {

/// A value that a store holds and that is not a text: as the store writes it. It can be kept, not read.
struct OtherSetting {
    std::string Written;

    friend bool operator==(const OtherSetting&, const OtherSetting&) = default;
};

using StoredSetting = std::variant<std::string, OtherSetting>;

/// Settings kept between runs: values with names, in sections. Names of sections and values compare without regard to
/// case. What cannot be read or written raises a `BasicError`.
class ISettingsStore {
public:
    using Values = std::vector<std::pair<std::string, StoredSetting>>;

    virtual ~ISettingsStore() = default;
    virtual bool HasSection(std::string_view section) = 0;
    virtual std::optional<StoredSetting> Get(std::string_view section, std::string_view name) = 0;
    /// All values of a section, in the order in which they were first set.
    virtual Values List(std::string_view section) = 0;
    /// Sets values of a section in one step; the others stay as they are.
    virtual void Set(std::string_view section, const Values& values) = 0;
};

}  // namespace dorvik
