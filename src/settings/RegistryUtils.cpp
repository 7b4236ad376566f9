#include "settings/RegistryUtils.h"

#include "base/modKyErrors.h"

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

}  // namespace

std::string GetRegString(
    std::string_view key,
    std::string_view valueName,
    std::string_view otherwise,
    RegistryRoot root) {
    return FindRegString(key, valueName, root).value_or(std::string(otherwise));
}

std::optional<std::string>
FindRegString(std::string_view key, std::string_view valueName, RegistryRoot root) {
    constexpr std::string_view kProcedure = "RegistryUtils::GetRegString";
    const std::optional<StoredSetting> value = Store(root, kProcedure).Get(key, valueName);
    if (!value) {
        return std::nullopt;
    }
    const std::string* const text = std::get_if<std::string>(&*value);
    if (text == nullptr) {
        modKyErrors::RaiseError(modKyErrors::kyErrRegistryType, kProcedure);
    }
    return *text;
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
