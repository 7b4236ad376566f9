#include "settings/MRUUtils.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsKeys.h"

namespace dorvik {

namespace {

std::string ValueName(std::int32_t number) {
    return "MRUFile" + std::to_string(number);
}

}  // namespace

void MRUUtils::SetAppName(std::string_view name) {
    m_appName = name;
    LoadList();
}

const std::string& MRUUtils::Item(std::int32_t index) const {
    if (index < 1 || index > Count()) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return m_files[static_cast<std::size_t>(index) - 1];
}

void MRUUtils::LoadList() {
    m_files.clear();
    Trap({"MRUUtils", "LoadList"}, [this] {
        const ISettingsStore::Values values =
            RegistryUtils::ListRegValues(Key(), RegistryRoot::CurrentUser);
        for (std::int32_t number = 1; number <= kMostEntries; ++number) {
            const auto file = RegistryUtils::FindRegString(values, ValueName(number));
            if (file && !file->empty()) {
                m_files.push_back(*file);
            }
        }
    });
}

void MRUUtils::Add(std::string_view file) {
    const std::string added(file);  // may be an item of the list
    Take(added);
    m_files.insert(m_files.begin(), added);
    if (Count() > kMostEntries) {
        m_files.pop_back();
    }
    SaveList();
}

void MRUUtils::Remove(std::string_view file) {
    Take(std::string(file));
    SaveList();
}

std::string MRUUtils::Key() const {
    return std::string(kInstallationKey) + "\\" + m_appName + "\\MRU";
}

void MRUUtils::Take(std::string_view file) {
    std::erase_if(
        m_files, [file](const std::string& kept) { return modTextCase::Equal(kept, file); });
}

void MRUUtils::SaveList() const {
    Trap({"MRUUtils", "SaveList"}, [this] {
        ISettingsStore::Values values;
        for (std::int32_t number = 1; number <= kMostEntries; ++number) {
            values.emplace_back(
                ValueName(number), number <= Count() ? Item(number) : std::string());
        }
        RegistryUtils::SetRegStrings(Key(), values, RegistryRoot::CurrentUser);
    });
}

}  // namespace dorvik
