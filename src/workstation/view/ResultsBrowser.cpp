#include "ResultsBrowser.h"

#include "foundation/log/Trap.h"
#include "modSourceItems.h"
#include "source/BasicObject.h"
#include "source/ItemType.h"
#include "workstation/dialogs/modAllItems.h"

#include <algorithm>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "ResultsView";
constexpr std::string_view kBlankPage = "about:blank";

std::string KeyOfSelected(const ListTable& list) {
    const ListRow* const row = list.SelectedRow();
    return row != nullptr ? row->Key : std::string();
}

}  // namespace

void ResultsBrowser::Initialise() {
    m_subscriptions.push_back(
        m_at.Controls.Files.Clicked.Subscribe([this] { m_imgcboFiles_Click(); }));
    m_subscriptions.push_back(
        m_at.Controls.Procedures.Clicked.Subscribe([this] { m_imgcboProcedures_Click(); }));
}

void ResultsBrowser::ShowReview() {
    m_at.List.ResetGridValueLists();
    m_at.List.Bind();
    PopulateSourceFilesCombo();
    SelectSFComboItem("", /*populate=*/true);
}

void ResultsBrowser::Clear() {
    m_at.Controls.Files.Clear();
    m_at.Controls.Procedures.Clear();
    m_at.Hotspots.Clear();
    m_at.List.Clear();
    m_at.Controls.Documentation.Navigate(kBlankPage);
}

void ResultsBrowser::RebuildFiles() {
    const ComboItem* const selected = m_at.Controls.Files.SelectedItem();
    const std::string key = selected != nullptr ? selected->Key : std::string();
    PopulateSourceFilesCombo();
    SelectSFComboItem(key, /*populate=*/true);
}

// ---- files ----

void ResultsBrowser::PopulateSourceFilesCombo() {
    if (ShowsList()) {
        m_at.Controls.Documentation.Navigate(kBlankPage);
        m_at.Controls.Procedures.Clear();
    }
    ResultsDB& results = m_at.Results.DB();
    const std::string projectType = results.Items().GetProjectData("Type");
    std::vector<ComboItem> items{modAllItems::AllFiles()};
    for (const BasicObject& file :
         results.Items().GetProjectSourceFileList(/*includeAll=*/!ShowsList(), false)) {
        items.push_back(
            modSourceItems::FileItem(file, m_at.Results.Review.ProjectName, projectType));
        if (ShowsList()) {
            items.back().Text += modSourceItems::FigureText(
                results.Order().GetObjectStatValue(file, ItemType::File));
        }
    }
    m_at.Controls.Files.Fill(std::move(items));
}

/// With one project open there is one answer to what is to be seen first: everything.
std::string ResultsBrowser::DefaultFileKey() const {
    const ComboBox& files = m_at.Controls.Files;
    const bool showsAll = m_at.ProjectCount() == 1 || files.Count() < 2;
    return showsAll ? std::string(modAllItems::kKey) : files.Item(1).Key;
}

void ResultsBrowser::SelectSFComboItem(std::string_view key, bool populate) {
    ComboBox& files = m_at.Controls.Files;
    if (files.Count() == 0) {
        return;
    }
    files.Select(files.Find(key.empty() ? DefaultFileKey() : std::string(key)).value_or(0));
    ShowSelectedFile(populate);
}

void ResultsBrowser::m_imgcboFiles_Click() {
    Trap({kModule, "m_imgcboFiles_Click"}, [&] { ShowSelectedFile(/*populate=*/true); });
}

void ResultsBrowser::ShowSelectedFile(bool populate) {
    const ComboItem* const selected = m_at.Controls.Files.SelectedItem();
    if (selected == nullptr || !m_at.Results.Available()) {
        return;
    }
    const ComboItem item = *selected;
    const std::int32_t id = modSourceItems::IdOfKey(item.Key);
    const bool isWhole = modSourceItems::IsWhole(item);
    m_at.Controls.Procedures.Enabled.Set(ShowsList() && !isWhole);
    if (!ShowsList()) {
        if (modSourceItems::IsAllFiles(item)) {
            m_at.Hotspots.PopulateSourceFilesHotspotView();
        } else {
            m_at.Hotspots.PopulateProcsHotspotView(id);
        }
        return;
    }
    if (isWhole) {
        PopulateViolationsList(item);
        m_at.List.SelectFirstRow();
    } else {
        PopulateProceduresCombo(id, populate);
    }
}

void ResultsBrowser::SelectFile(std::string_view name) {
    const std::vector<ComboItem>& items = m_at.Controls.Files.Items();
    const auto found = std::find_if(items.begin(), items.end(), [name](const ComboItem& item) {
        return modSourceItems::IsNamed(item.Text, name);
    });
    if (found != items.end()) {
        m_at.Controls.Files.Choose(static_cast<std::size_t>(found - items.begin()));
    }
}

void ResultsBrowser::RenameFile(std::string_view key, std::string_view name) {
    ComboBox& files = m_at.Controls.Files;
    if (const std::optional<std::size_t> index = files.Find(key)) {
        files.SetText(*index, modSourceItems::WithName(files.Item(*index).Text, name));
    }
    ListTable& hotspots = m_at.Controls.Hotspots;
    if (const std::optional<std::size_t> row = hotspots.Find(key)) {
        ListCell cell = hotspots.Row(*row).Cells.front();
        cell.Text = modSourceItems::WithName(cell.Text, name);
        hotspots.SetCell(*row, 0, std::move(cell));
    }
}

std::string ResultsBrowser::ProjectFileKey() const {
    const std::vector<ComboItem>& items = m_at.Controls.Files.Items();
    const auto found = std::find_if(items.begin(), items.end(), [](const ComboItem& item) {
        return item.Tag == modSourceItems::kProjectFileTag;
    });
    return found == items.end() ? std::string() : found->Key;
}

// ---- procedures and violations ----

void ResultsBrowser::PopulateProceduresCombo(std::int32_t sourceId, bool populate) {
    ResultsDB& results = m_at.Results.DB();
    std::vector<ComboItem> items{modSourceItems::AllProceduresItem(sourceId)};
    for (const BasicObject& procedure : results.Items().GetSourceFileProcList(
             sourceId, /*includeAll=*/false, /*withStats=*/true)) {
        items.push_back(modSourceItems::ProcedureItem(procedure));
        items.back().Text += modSourceItems::FigureText(
            results.Order().GetObjectStatValue(procedure, ItemType::Procedure));
    }
    m_at.Controls.Procedures.Fill(std::move(items));
    if (populate) {
        SelectProcedure(0);
    }
}

void ResultsBrowser::SelectProcedure(std::size_t index) {
    m_at.Controls.Procedures.Select(index);
    ShowSelectedProcedure();
}

void ResultsBrowser::m_imgcboProcedures_Click() {
    Trap({kModule, "m_imgcboProcedures_Click"}, [&] { ShowSelectedProcedure(); });
}

void ResultsBrowser::ShowSelectedProcedure() {
    const ComboItem* const selected = m_at.Controls.Procedures.SelectedItem();
    if (selected != nullptr && m_at.Results.Available()) {
        PopulateViolationsList(*selected);
        m_at.List.SelectFirstRow();
    }
}

void ResultsBrowser::PopulateViolationsList(const ComboItem& item) {
    m_at.List.PopulateViolationsList(item);
    // The list may have dropped the group, which the menus show.
    m_at.EnableDisableGroupBySrcFiles.Raise(modSourceItems::IsAllFiles(item));
}

void ResultsBrowser::RefreshViolationsList() {
    const ComboItem* const file = m_at.Controls.Files.SelectedItem();
    if (file == nullptr || !m_at.Results.Available()) {
        return;
    }
    ComboBox& procedures = m_at.Controls.Procedures;
    if (modSourceItems::IsWhole(*file)) {
        PopulateViolationsList(ComboItem(*file));
    } else if (procedures.Count() > 0) {  // the hotspots show a file without filling that box
        procedures.Select(procedures.SelectedIndex().value_or(0));
        PopulateViolationsList(ComboItem(*procedures.SelectedItem()));
    }
}

// ---- views ----

void ResultsBrowser::SaveViewColumnDetails() const {
    m_at.List.SaveSortKeys();
    m_at.Hotspots.SaveColumns();
}

/// What is selected in the hotspots is what the list shows next; the other way nothing is kept.
void ResultsBrowser::SwitchView(std::int32_t newType) {
    if (newType == m_viewType) {
        return;
    }
    SaveViewColumnDetails();
    std::string fileKey;
    std::string procedureKey;
    const ComboItem* const file = m_at.Controls.Files.SelectedItem();
    if (newType == viewtype::kViolationList && file != nullptr) {
        const bool showsFiles = modSourceItems::IsAllFiles(*file);
        fileKey = showsFiles ? KeyOfSelected(m_at.Controls.Hotspots) : file->Key;
        procedureKey = showsFiles ? std::string() : KeyOfSelected(m_at.Controls.Hotspots);
    }
    m_viewType = newType;
    m_at.Controls.Splitter.Enabled.Set(ShowsList());
    m_at.Controls.Procedures.Enabled.Set(ShowsList() && !procedureKey.empty());
    if (!m_at.Results.Available()) {
        return;
    }
    PopulateSourceFilesCombo();
    SelectSFComboItem(fileKey, /*populate=*/false);
    if (m_at.Controls.Procedures.Enabled.Value()) {
        SelectProcedure(m_at.Controls.Procedures.Find(procedureKey).value_or(0));
    }
}

std::optional<SourceDetails> ResultsBrowser::GetSourceDetails() {
    const ComboItem* const shown = m_at.Controls.Files.SelectedItem();
    const ListRow* const row = m_at.Controls.Hotspots.SelectedRow();
    if (shown == nullptr || row == nullptr || !m_at.Results.Available()) {
        return std::nullopt;
    }
    const bool showsFiles = modSourceItems::IsAllFiles(*shown);
    const std::string fileKey = showsFiles ? row->Key : shown->Key;
    SourceDetails details;
    details.Project = m_at.Results.Review.ProjectName;
    details.File =
        fileKey == ProjectFileKey()
            ? details.Project
            : m_at.Results.DB().Items().GetSourceFileData("Name", modSourceItems::IdOfKey(fileKey));
    if (!showsFiles) {
        const BasicObject procedure =
            m_at.Results.DB().Items().GetProcedureDetails(modSourceItems::IdOfKey(row->Key));
        details.Procedure = procedure.Name;
        details.ProcedureType = procedure.ObjectType;
    }
    return details;
}

}  // namespace dorvik
