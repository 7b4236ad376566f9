#include "settings/SettingsSections.h"

#include "base/modTextCase.h"

#include <algorithm>

namespace dorvik {

namespace {

auto FindValue(ISettingsStore::Values& values, std::string_view name) {
    return std::find_if(values.begin(), values.end(), [name](const auto& value) {
        return modTextCase::Equal(value.first, name);
    });
}

}  // namespace

bool SettingsSections::HasSection(std::string_view section) {
    return Find(section) != nullptr;
}

std::optional<StoredSetting>
SettingsSections::Get(std::string_view section, std::string_view name) {
    Section* const found = Find(section);
    if (found == nullptr) {
        return std::nullopt;
    }
    const auto value = FindValue(found->Settings, name);
    return value == found->Settings.end() ? std::nullopt : std::optional(value->second);
}

ISettingsStore::Values SettingsSections::List(std::string_view section) {
    const Section* const found = Find(section);
    return found == nullptr ? Values() : found->Settings;
}

void SettingsSections::Set(std::string_view section, const Values& values) {
    if (Find(section) == nullptr) {
        m_sections.push_back({std::string(section), {}});
    }
    Values& settings = Find(section)->Settings;
    for (const auto& [name, value] : values) {
        const auto kept = FindValue(settings, name);
        if (kept == settings.end()) {
            settings.emplace_back(name, value);
        } else {
            kept->second = value;
        }
    }
}

SettingsSections::Section* SettingsSections::Find(std::string_view name) {
    const auto found =
        std::find_if(m_sections.begin(), m_sections.end(), [name](const Section& section) {
            return modTextCase::Equal(section.Name, name);
        });
    return found == m_sections.end() ? nullptr : &*found;
}

}  // namespace dorvik
