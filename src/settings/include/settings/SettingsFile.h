#pragma once

#include "settings/ISettingsStore.h"
#include "settings/SettingsSections.h"

#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

/// Settings in a text file that a person can read and edit, UTF-8:
///
///     ; a comment
///     [Software\Lumbrook\Dorvik\6.2\DVKWork]
///     "ClearLog"="1"
///     "LastRulebase"="C:\\Rules\\Team \"A\".dvk"
///     "Counter"=dword:0000000a
///
/// In a text "\\", "\"", "\n" and "\r" stand for a backslash, a quote and the two line ends. A value that does not begin
/// with a quote is of another type: it is kept as it is written.
///
/// The file is read at each use, so that programs that run at the same time see each other's settings; each change
/// is written under a lock and takes the file's place in one step, so that none is lost and no reader sees a part. A
/// file that does not exist is empty. Lines that cannot be understood, and a file too large to be one of settings, are
/// reported in the log, once; before the file is written again it is saved as a copy beside it whose name ends in
/// ".damaged".
class SettingsFile final : public ISettingsStore {
public:
    /// `path` is the program's own; its folder is created with the first value.
    explicit SettingsFile(std::string path) : m_path(std::move(path)) {}

    bool HasSection(std::string_view section) override;
    std::optional<StoredSetting> Get(std::string_view section, std::string_view name) override;
    Values List(std::string_view section) override;
    void Set(std::string_view section, const Values& values) override;

    bool Exists() const;
    const std::string& Path() const { return m_path; }

    /// "settings" in the folder of the user's configuration.
    static std::string UserPath();
    /// "/etc/dorvik/settings", or where this machine keeps such files.
    static std::string MachinePath();

private:
    struct Content {
        SettingsSections Sections;
        /// What is wrong with the file, to go after its name; empty where nothing is.
        std::string Damage;
    };

    static Content Understood(std::string_view text);
    static std::string Written(const SettingsSections& sections);
    Content Read();
    template <typename Body>
    void Change(const Body& body);
    void ReportDamage(const Content& content);

    std::string m_path;
    bool m_damageIsReported = false;
};

}  // namespace dorvik
