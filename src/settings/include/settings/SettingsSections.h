#pragma once

#include "settings/ISettingsStore.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Sections of settings in memory, in the order in which they were first set: what a file of settings holds, and
/// a store of its own for one run.
class SettingsSections final : public ISettingsStore {
public:
    bool HasSection(std::string_view section) override;
    std::optional<StoredSetting> Get(std::string_view section, std::string_view name) override;
    Values List(std::string_view section) override;
    void Set(std::string_view section, const Values& values) override;

    struct Section {
        std::string Name;
        Values Settings;
    };
    const std::vector<Section>& Sections() const { return m_sections; }

private:
    Section* Find(std::string_view name);

    std::vector<Section> m_sections;
};

}  // namespace dorvik
