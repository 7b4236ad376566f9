#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// The files that were used last, the latest first, at most `kMostEntries`. Kept in the user's settings.
class MRUUtils {
public:
    static constexpr std::int32_t kMostEntries = 4;

    /// Whose list it is; loads it.
    void SetAppName(std::string_view name);

    std::int32_t Count() const { return static_cast<std::int32_t>(m_files.size()); }
    /// From 1; raises `kSubscriptOutOfRange`.
    const std::string& Item(std::int32_t index) const;
    void LoadList();
    /// Puts a file at the front, which may be in the list already.
    void Add(std::string_view file);
    void Remove(std::string_view file);

private:
    std::string Key() const;
    void Take(std::string_view file);
    void SaveList() const;

    std::string m_appName;
    std::vector<std::string> m_files;
};

}  // namespace dorvik
