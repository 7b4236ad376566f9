#include "settings/RegistryUtils.h"

#include "base/modKyErrors.h"
#include "base/modTextCase.h"

#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace dorvik::RegistryUtils {

namespace {

std::array<ISettingsStore*, 2> g_stores{};

ISettingsStore& Store(RegistryRoot root, std::string_view procedure) {
    ISettingsStore* const store = Installed(root);
    if (store == nullptr) {
        modKyErrors::RaiseError(modKyErrors::kyErrRegistryKey, procedure);
    }
    return *store;
}

const std::string& TextOf(const StoredSetting& value) {
    const std::string* const text = std::get_if<std::string>(&value);
    if (text == nullptr) {
        modKyErrors::RaiseError(modKyErrors::kyErrRegistryType, "RegistryUtils::GetRegString");
    }
    return *text;
}

}  // namespace

std::string GetRegString(
    std::string_view key,
    std::string_view valueName,
    std::string_view otherwise,
    RegistryRoot root) {
    const auto value = Store(root, "RegistryUtils::GetRegString").Get(key, valueName);
    return value ? TextOf(*value) : std::string(otherwise);
}

ISettingsStore::Values ListRegValues(std::string_view key, RegistryRoot root) {
    return Store(root, "RegistryUtils::ListRegValues").List(key);
}

std::optional<std::string>
FindRegString(const ISettingsStore::Values& values, std::string_view valueName) {
    for (const auto& [name, value] : values) {
        if (modTextCase::Equal(name, valueName)) {
            return TextOf(value);
        }
    }
    return std::nullopt;
}

void SetRegString(
    std::string_view key, std::string_view valueName, std::string_view value, RegistryRoot root) {
    SetRegStrings(key, {{std::string(valueName), std::string(value)}}, root);
}

void SetRegStrings(std::string_view key, const ISettingsStore::Values& values, RegistryRoot root) {
    Store(root, "RegistryUtils::SetRegString").Set(key, values);
}

bool HasKey(std::string_view key, RegistryRoot root) {
    return Store(root, "RegistryUtils::HasKey").HasSection(key);
}

ISettingsStore* Install(RegistryRoot root, ISettingsStore* store) {
    return std::exchange(g_stores[static_cast<std::size_t>(root)], store);
}

ISettingsStore* Installed(RegistryRoot root) {
    return g_stores[static_cast<std::size_t>(root)];
}

}  // namespace dorvik::RegistryUtils
