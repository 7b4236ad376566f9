#include "settings/SettingsFile.h"

#include "base/modUtf8.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/log/modLog.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/FileInUse.h"
#include "platform/host/FileInUseMark.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHost.h"
#include "platform/host/modHostPath.h"

#include <chrono>
#include <memory>
#include <thread>

namespace dorvik {

namespace {

constexpr std::string_view kHead =
    "; The settings of Dorvik. Edit this file only while the program does not run.\n";
constexpr std::string_view kDamagedSuffix = ".damaged";
constexpr std::string_view kLockSuffix = ".lock";
constexpr std::int64_t kMostBytes = 4'000'000;  // a file of settings has some thousand
constexpr std::chrono::milliseconds kLockPatience{5000};
constexpr std::chrono::milliseconds kLockPause{10};

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char character : text) {
        switch (character) {
            case '\\': quoted += "\\\\"; break;
            case '"': quoted += "\\\""; break;
            case '\n': quoted += "\\n"; break;
            case '\r': quoted += "\\r"; break;
            default: quoted += character;
        }
    }
    return quoted + '"';
}

/// Takes a quoted text from the front of a line; nothing, and the line as it was, where there is none.
std::optional<std::string> TakeQuoted(std::string_view& line) {
    if (!line.starts_with('"')) {
        return std::nullopt;
    }
    std::string text;
    for (std::size_t at = 1; at < line.size(); ++at) {
        if (line[at] == '"') {
            line.remove_prefix(at + 1);
            return text;
        }
        if (line[at] != '\\') {
            text += line[at];
        } else if (++at < line.size()) {
            text += line[at] == 'n' ? '\n' : line[at] == 'r' ? '\r' : line[at];
        }
    }
    return std::nullopt;
}

/// The name and the value of a line; nothing where it has not that form.
std::optional<std::pair<std::string, StoredSetting>> TakeSetting(std::string_view line) {
    const std::optional<std::string> name = TakeQuoted(line);
    if (!name || !line.starts_with('=')) {
        return std::nullopt;
    }
    line.remove_prefix(1);
    if (!line.starts_with('"')) {
        return line.empty() ? std::nullopt
                            : std::optional(std::pair<std::string, StoredSetting>(
                                  *name, OtherSetting{std::string(line)}));
    }
    const std::optional<std::string> text = TakeQuoted(line);
    if (!text || !line.empty()) {
        return std::nullopt;
    }
    return std::pair<std::string, StoredSetting>(*name, *text);
}

/// The next line of the text, without its end, which is taken from the front.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

/// Keeps other processes from changing the file meanwhile.
std::shared_ptr<FileInUseMark> Lock(const std::string& path) {
    const HostPath file = modHostPath::FromProgram(path + std::string(kLockSuffix));
    const auto end = std::chrono::steady_clock::now() + kLockPatience;
    while (true) {
        std::shared_ptr<FileInUseMark> mark;
        const bool isFree = Handled(
            [&] { mark = FileInUseMark::SetAlone(file, "the settings"); },
            [&](const BasicError& failure) {
                return dynamic_cast<const FileInUse*>(&failure) != nullptr &&
                       std::chrono::steady_clock::now() < end;
            });
        if (isFree) {
            return mark;
        }
        std::this_thread::sleep_for(kLockPause);
    }
}

}  // namespace

bool SettingsFile::HasSection(std::string_view section) {
    return Read().Sections.HasSection(section);
}

std::optional<StoredSetting> SettingsFile::Get(std::string_view section, std::string_view name) {
    return Read().Sections.Get(section, name);
}

ISettingsStore::Values SettingsFile::List(std::string_view section) {
    return Read().Sections.List(section);
}

void SettingsFile::Set(std::string_view section, const Values& values) {
    Change([&](SettingsSections& sections) { sections.Set(section, values); });
}

bool SettingsFile::Exists() const {
    return modFiles::FileExists(m_path);
}

std::string SettingsFile::UserPath() {
    return modHost::UserConfigurationFolder() + "settings";
}

std::string SettingsFile::MachinePath() {
    return modHost::MachineConfigurationFolder() + "settings";
}

SettingsFile::Content SettingsFile::Understood(std::string_view text) {
    Content content;
    std::string section;
    text = modUtf8::WithoutByteOrderMark(text);
    std::int32_t damagedLines = 0;
    std::int32_t firstDamagedLine = 0;
    for (std::int32_t number = 1; !text.empty(); ++number) {
        const std::string_view line = TakeLine(text);
        if (line.empty() || line.starts_with(';')) {
            continue;
        }
        if (line.starts_with('[') && line.ends_with(']')) {
            section = line.substr(1, line.size() - 2);
            content.Sections.Set(section, {});
        } else if (const auto setting = TakeSetting(line); setting && !section.empty()) {
            content.Sections.Set(section, {*setting});
        } else {
            ++damagedLines;
            firstDamagedLine = firstDamagedLine == 0 ? number : firstDamagedLine;
        }
    }
    if (damagedLines > 0) {
        content.Damage = "has " + std::to_string(damagedLines) +
                         " line(s) that cannot be understood, the first of them line " +
                         std::to_string(firstDamagedLine) + "; these settings have their defaults";
    }
    return content;
}

std::string SettingsFile::Written(const SettingsSections& sections) {
    std::string text(kHead);
    for (const SettingsSections::Section& section : sections.Sections()) {
        text += "\n[" + section.Name + "]\n";
        for (const auto& [name, value] : section.Settings) {
            const std::string* const plain = std::get_if<std::string>(&value);
            text += Quoted(name) + "=" +
                    (plain != nullptr ? Quoted(*plain) : std::get<OtherSetting>(value).Written) +
                    "\n";
        }
    }
    return text;
}

SettingsFile::Content SettingsFile::Read() {
    if (!Exists()) {
        return {};
    }
    Content content;
    if (const std::int64_t size = modFiles::FileSize(m_path); size > kMostBytes) {
        content.Damage = "has " + std::to_string(size) + " bytes, more than the " +
                         std::to_string(kMostBytes) +
                         " that are read; all settings have their defaults";
    } else {
        content = Understood(modFiles::ReadBytes(m_path));
    }
    ReportDamage(content);
    return content;
}

template <typename Body>
void SettingsFile::Change(const Body& body) {
    modUtilFunctions::CreateFullPath(modUtilFunctions::PathFromFilename(m_path));
    const auto lock = Lock(m_path);
    Content content = Read();
    if (!content.Damage.empty()) {
        modFiles::WriteBytesAtomically(
            m_path + std::string(kDamagedSuffix), modFiles::ReadBytes(m_path));
    }
    body(content.Sections);
    modFiles::WriteBytesAtomically(m_path, Written(content.Sections));
}

void SettingsFile::ReportDamage(const Content& content) {
    if (content.Damage.empty() || m_damageIsReported) {
        return;
    }
    m_damageIsReported = true;
    modLog::Log().LogEvent(
        "The settings file '" + m_path + "' " + content.Damage + ". The file is kept as '" +
            m_path + std::string(kDamagedSuffix) + "' when it is written again.",
        "Read",
        "SettingsFile");
}

}  // namespace dorvik
