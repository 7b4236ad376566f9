#include "settings/DVKWorkData.h"

#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "modSettingTexts.h"
#include "platform/host/modHost.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsKeys.h"

#include <optional>
#include <string_view>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "DVKWorkData";
constexpr std::string_view kPathsName = "LastReportsPath";

std::string InProgramFolder(std::string_view name) {
    return modUtilFunctions::RemoveBackslash(modHost::ProgramFolder()).append(name);
}

/// Calls `visit` with the name and the field of every value of the store, in the order in which they are written.
// Required: LastResultsPath is not among them, it is read from the value of LastReportsPath.
template <typename Data, typename Visit>
void ForEachSetting(Data& data, const Visit& visit) {
    visit("ClearLog", data.ClearLog);
    visit("BackgroundReview", data.BackgroundReview);
    visit("BackgroundTickCount", data.BackgroundTickCount);
    visit("ToolbarVisible", data.ToolbarVisible);
    visit("ToolbarPosition", data.ToolbarPosition);
    visit("ToolbarRowIndex", data.ToolbarRowIndex);
    visit("ToolbarTop", data.ToolbarTop);
    visit("ToolbarLeft", data.ToolbarLeft);
    visit("LastRulebase", data.LastRulebase);
    visit(kPathsName, data.LastReportsPath);
    visit("UseProjectFolderResults", data.UseProjectFolderResults);
    visit("UseProjectFolderReports", data.UseProjectFolderReports);
    visit("LastReportOption", data.LastReportOption);
    visit("OptionPromptSave", data.OptionPromptSave);
    visit("RVVLColWidth", data.RVVLColWidth);
    visit("RVVLSortKeysNum", data.RVVLSortKeysNum);
    visit("RVVLSortCol", data.RVVLSortCol);
    visit("RVVLSortOrder", data.RVVLSortOrder);
    visit("RVVLGroupsNum", data.RVVLGroupsNum);
    visit("RVVLGroupCol", data.RVVLGroupCol);
    visit("RVVLGroupSortOrder", data.RVVLGroupSortOrder);
    visit("RVFileShowZeroItems", data.RVFileShowZeroItems);
    visit("RVFileSortKey", data.RVFileSortKey);
    visit("RVFileSortAscending", data.RVFileSortAscending);
    visit("RVProcShowZeroItems", data.RVProcShowZeroItems);
    visit("RVProcSortKey", data.RVProcSortKey);
    visit("RVProcSortAscending", data.RVProcSortAscending);
    visit("RVGridWidth", data.RVGridWidth);
    visit("CompletedItemsOption", data.CompletedItemsOption);
    visit("AlwaysSynchroniseVL", data.AlwaysSynchroniseVL);
    visit("RDT1ColWidth", data.RDT1ColWidth);
    visit("RDT2ColWidth", data.RDT2ColWidth);
    visit("RDT2SortCol", data.RDT2SortCol);
    visit("RDT2SortOrder", data.RDT2SortOrder);
    visit("RDT4ColWidth", data.RDT4ColWidth);
    visit("RDT4SortCol", data.RDT4SortCol);
    visit("RDT4SortOrder", data.RDT4SortOrder);
    visit("RDT5ColWidth", data.RDT5ColWidth);
    visit("RDT5SortCol", data.RDT5SortCol);
    visit("RDT5SortOrder", data.RDT5SortOrder);
    visit("RDT6ColWidth", data.RDT6ColWidth);
    visit("RDT7ColWidth", data.RDT7ColWidth);
    visit("RVDTop", data.RVDTop);
    visit("RVDLeft", data.RVDLeft);
    visit("RVDWidth", data.RVDWidth);
    visit("RVDHeight", data.RVDHeight);
    visit("AlwaysShowWorkbench", data.AlwaysShowWorkbench);
    visit("AlwaysShowSummary", data.AlwaysShowSummary);
    visit("HVColWidth", data.HVColWidth);
    visit("HVSortCol", data.HVSortCol);
    visit("HVSortOrder", data.HVSortOrder);
    visit("ShowGroupByBox", data.ShowGroupByBox);
    visit("GroupByCategory", data.GroupByCategory);
    visit("GroupByRule", data.GroupByRule);
    visit("GroupBySeverity", data.GroupBySeverity);
    visit("GroupBySourceFile", data.GroupBySourceFile);
    visit("RBDocPath", data.RBDocPath);
    visit("PlaceMenuOnToolsMenu", data.PlaceMenuOnToolsMenu);
}

std::string Numbered(std::string_view name, std::int32_t number) {
    return std::string(name) + std::to_string(number);
}

/// Reads a value of the user's store into a field, which stays as it is where that cannot be done.
class SettingReader {
public:
    void operator()(std::string_view name, bool& field) const {
        Take(name, modSettingTexts::ReadBoolean, field);
    }
    void operator()(std::string_view name, std::int16_t& field) const {
        Take(name, modSettingTexts::ReadInteger, field);
    }
    void operator()(std::string_view name, std::int32_t& field) const {
        Take(name, modSettingTexts::ReadLong, field);
    }
    void operator()(std::string_view name, double& field) const {
        Take(name, modSettingTexts::ReadFraction, field);
    }
    void operator()(std::string_view name, std::string& field) const {
        Take(
            name, [](std::string_view text) { return std::optional(std::string(text)); }, field);
    }
    template <typename T, std::size_t Size>
    void operator()(std::string_view name, SettingRow<T, Size>& row) const {
        for (std::int32_t number = 1; number <= row.Count(); ++number) {
            T value = row.Item(number);
            (*this)(Numbered(name, number), value);
            row.SetItem(number, value);
        }
    }

private:
    template <typename Read, typename T>
    static void Take(std::string_view name, Read read, T& field) {
        Trap({kModule, "LoadSettings"}, [&] {
            const std::optional<std::string> text =
                RegistryUtils::FindRegString(kWorkbenchKey, name, RegistryRoot::CurrentUser);
            if (const auto value = text ? read(*text) : std::nullopt) {
                field = *value;
            }
        });
    }
};

/// Collects the values as texts.
class SettingWriter {
public:
    explicit SettingWriter(ISettingsStore::Values& values) : m_values(values) {}

    void operator()(std::string_view name, const std::string& field) const {
        m_values.emplace_back(name, field);
    }
    template <typename T>
    void operator()(std::string_view name, const T& field) const {
        (*this)(name, modSettingTexts::Text(field));
    }
    template <typename T, std::size_t Size>
    void operator()(std::string_view name, const SettingRow<T, Size>& row) const {
        for (std::int32_t number = 1; number <= row.Count(); ++number) {
            (*this)(Numbered(name, number), row.Item(number));
        }
    }

private:
    ISettingsStore::Values& m_values;
};

}  // namespace

DVKWorkData::DVKWorkData()
    : LastRulebase(InProgramFolder("\\Data\\Sample.dvk")),
      RBDocPath(InProgramFolder("\\Data\\Sample.html")) {}

bool DVKWorkData::RBDocAvailable() const {
    return modUtilFunctions::FileExists(RBDocPath);
}

void DVKWorkData::LoadSettings() {
    const bool canBeRead = Trap({kModule, "LoadSettings"}, [] {
        RegistryUtils::HasKey(kWorkbenchKey, RegistryRoot::CurrentUser);
    });
    if (!canBeRead) {
        return;
    }
    const SettingReader read;
    ForEachSetting(*this, read);
    // Required: across runs the two paths are not separate.
    read(kPathsName, LastResultsPath);
}

void DVKWorkData::SaveSettings() const {
    Trap({kModule, "SaveSettings"}, [this] {
        ISettingsStore::Values values;
        ForEachSetting(*this, SettingWriter(values));
        RegistryUtils::SetRegStrings(kWorkbenchKey, values, RegistryRoot::CurrentUser);
    });
}

}  // namespace dorvik
