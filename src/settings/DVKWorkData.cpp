#include "settings/DVKWorkData.h"

#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "modSettingTexts.h"
#include "platform/host/modHost.h"
#include "settings/RegistryUtils.h"
#include "settings/SettingsKeys.h"

#include <optional>
#include <string_view>
#include <type_traits>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "DVKWorkData";
constexpr std::string_view kPathsName = "LastReportsPath";

std::string InProgramFolder(std::string_view name) {
    return modUtilFunctions::RemoveBackslash(modHost::ProgramFolder()).append(name);
}

template <typename Row, typename Visit>
void ForEachItem(std::string_view name, Row& row, const Visit& visit) {
    for (std::int32_t number = 1; number <= row.Count(); ++number) {
        visit(std::string(name) + std::to_string(number), row.Item(number));
    }
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
    ForEachItem("RVVLColWidth", data.RVVLColWidth, visit);
    visit("RVVLSortKeysNum", data.RVVLSortKeysNum);
    ForEachItem("RVVLSortCol", data.RVVLSortCol, visit);
    ForEachItem("RVVLSortOrder", data.RVVLSortOrder, visit);
    visit("RVVLGroupsNum", data.RVVLGroupsNum);
    ForEachItem("RVVLGroupCol", data.RVVLGroupCol, visit);
    ForEachItem("RVVLGroupSortOrder", data.RVVLGroupSortOrder, visit);
    visit("RVFileShowZeroItems", data.RVFileShowZeroItems);
    visit("RVFileSortKey", data.RVFileSortKey);
    visit("RVFileSortAscending", data.RVFileSortAscending);
    visit("RVProcShowZeroItems", data.RVProcShowZeroItems);
    visit("RVProcSortKey", data.RVProcSortKey);
    visit("RVProcSortAscending", data.RVProcSortAscending);
    visit("RVGridWidth", data.RVGridWidth);
    visit("CompletedItemsOption", data.CompletedItemsOption);
    visit("AlwaysSynchroniseVL", data.AlwaysSynchroniseVL);
    ForEachItem("RDT1ColWidth", data.RDT1ColWidth, visit);
    ForEachItem("RDT2ColWidth", data.RDT2ColWidth, visit);
    visit("RDT2SortCol", data.RDT2SortCol);
    visit("RDT2SortOrder", data.RDT2SortOrder);
    ForEachItem("RDT4ColWidth", data.RDT4ColWidth, visit);
    visit("RDT4SortCol", data.RDT4SortCol);
    visit("RDT4SortOrder", data.RDT4SortOrder);
    ForEachItem("RDT5ColWidth", data.RDT5ColWidth, visit);
    visit("RDT5SortCol", data.RDT5SortCol);
    visit("RDT5SortOrder", data.RDT5SortOrder);
    ForEachItem("RDT6ColWidth", data.RDT6ColWidth, visit);
    ForEachItem("RDT7ColWidth", data.RDT7ColWidth, visit);
    visit("RVDTop", data.RVDTop);
    visit("RVDLeft", data.RVDLeft);
    visit("RVDWidth", data.RVDWidth);
    visit("RVDHeight", data.RVDHeight);
    visit("AlwaysShowWorkbench", data.AlwaysShowWorkbench);
    visit("AlwaysShowSummary", data.AlwaysShowSummary);
    ForEachItem("HVColWidth", data.HVColWidth, visit);
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

template <typename T>
std::optional<T> Understood(const std::string& text);
template <>
std::optional<bool> Understood(const std::string& text) {
    return modSettingTexts::ReadBoolean(text);
}
template <>
std::optional<std::int16_t> Understood(const std::string& text) {
    return modSettingTexts::ReadInteger(text);
}
template <>
std::optional<std::int32_t> Understood(const std::string& text) {
    return modSettingTexts::ReadLong(text);
}
template <>
std::optional<double> Understood(const std::string& text) {
    return modSettingTexts::ReadFraction(text);
}
template <>
std::optional<std::string> Understood(const std::string& text) {
    return text;
}

std::string Written(const std::string& value) {
    return value;
}
template <typename T>
std::string Written(const T& value) {
    return modSettingTexts::Text(value);
}

}  // namespace

DVKWorkData::DVKWorkData()
    : LastRulebase(InProgramFolder("\\Data\\Sample.dvk")),
      RBDocPath(InProgramFolder("\\Data\\Sample.html")) {}

bool DVKWorkData::RBDocAvailable() const {
    return modUtilFunctions::FileExists(RBDocPath);
}

void DVKWorkData::LoadSettings() {
    const ISettingsStore::Values values = Trapped({kModule, "LoadSettings"}, {}, [] {
        return RegistryUtils::ListRegValues(kWorkbenchKey, RegistryRoot::CurrentUser);
    });
    const auto read = [&values](std::string_view name, auto& field) {
        Trap({kModule, "LoadSettings"}, [&] {
            using Field = std::remove_reference_t<decltype(field)>;
            const std::optional<std::string> text = RegistryUtils::FindRegString(values, name);
            if (const auto value = text ? Understood<Field>(*text) : std::nullopt) {
                field = *value;
            }
        });
    };
    ForEachSetting(*this, read);
    // Required: across runs the two paths are not separate.
    read(kPathsName, LastResultsPath);
}

void DVKWorkData::SaveSettings() const {
    Trap({kModule, "SaveSettings"}, [this] {
        ISettingsStore::Values values;
        ForEachSetting(*this, [&values](std::string_view name, const auto& field) {
            values.emplace_back(name, Written(field));
        });
        RegistryUtils::SetRegStrings(kWorkbenchKey, values, RegistryRoot::CurrentUser);
    });
}

}  // namespace dorvik
