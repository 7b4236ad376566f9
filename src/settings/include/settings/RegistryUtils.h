#pragma once

#include "settings/ISettingsStore.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

enum class RegistryRoot : std::int32_t { LocalMachine, CurrentUser };

/// The settings of the machine and of the user, by key paths: "Software\Lumbrook\Dorvik\6.2". A key is a section of the
/// store that is installed for its root. While none is installed, that root's keys cannot be used.
namespace RegistryUtils {

/// The text of a value; `otherwise` where there is none. Raises `kyErrRegistryType` for a value that is not a text,
/// `kyErrRegistryKey` where the root has no store.
std::string GetRegString(
    std::string_view key,
    std::string_view valueName,
    std::string_view otherwise,
    RegistryRoot root);
void SetRegString(
    std::string_view key, std::string_view valueName, std::string_view value, RegistryRoot root);

/// All values of a key, read in one step; none where the key does not exist.
ISettingsStore::Values ListRegValues(std::string_view key, RegistryRoot root);
/// The text of one of them; nothing where there is no such value. Raises `kyErrRegistryType` as `GetRegString` does.
std::optional<std::string>
FindRegString(const ISettingsStore::Values& values, std::string_view valueName);

/// Several values of a key in one step.
void SetRegStrings(std::string_view key, const ISettingsStore::Values& values, RegistryRoot root);

/// Whether anything was ever stored under a key.
bool HasKey(std::string_view key, RegistryRoot root);

/// Installs a store and gives back the one before it; null takes it away. REQUIRES: the store outlives its installation.
ISettingsStore* Install(RegistryRoot root, ISettingsStore* store);
/// Null where none is installed.
ISettingsStore* Installed(RegistryRoot root);

}  // namespace RegistryUtils

/// Installs a store for the length of a scope.
class ScopedSettingsStore {
public:
    ScopedSettingsStore(RegistryRoot root, ISettingsStore& store)
        : m_root(root), m_previous(RegistryUtils::Install(root, &store)) {}
    ~ScopedSettingsStore() { RegistryUtils::Install(m_root, m_previous); }
    ScopedSettingsStore(const ScopedSettingsStore&) = delete;
    ScopedSettingsStore& operator=(const ScopedSettingsStore&) = delete;

private:
    RegistryRoot m_root;
    ISettingsStore* m_previous;
};

}  // namespace dorvik
