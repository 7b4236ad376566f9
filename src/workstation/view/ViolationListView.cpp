#include "ViolationListView.h"

#include "base/modUtf8.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "modSourceItems.h"
#include "modViolationDocument.h"
#include "platform/host/modHost.h"
#include "results/modViolationListSql.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"

#include <algorithm>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "ResultsView";
constexpr std::string_view kBlankPage = "about:blank";
constexpr int kBodyMargin = 4;
constexpr std::int32_t kHideCompleted = 2;  // the setting `CompletedItemsOption`
constexpr std::size_t kNumberLength = 3;    // of the number before the title of a severity

using Orders = SettingRow<std::int32_t, 5>;

// In the settings an order is a sign.
constexpr std::int32_t kAscending = 1;
constexpr std::int32_t kDescending = -1;

std::vector<GridOrderKey>
StoredOrder(std::int32_t count, const Orders& columns, const Orders& orders) {
    std::vector<GridOrderKey> keys;
    for (std::int32_t index = 1; index <= std::min(count, Orders::Count()); ++index) {
        keys.push_back({columns.Item(index), orders.Item(index) == kDescending});
    }
    return keys;
}

/// How many were stored.
std::int32_t StoreOrder(const std::vector<GridOrderKey>& keys, Orders& columns, Orders& orders) {
    const std::int32_t count = std::min(static_cast<std::int32_t>(keys.size()), Orders::Count());
    for (std::int32_t index = 1; index <= count; ++index) {
        const GridOrderKey& key = keys[static_cast<std::size_t>(index) - 1];
        columns.SetItem(index, key.Column);
        orders.SetItem(index, key.Descending ? kDescending : kAscending);
    }
    return count;
}

/// The columns whose widths are stored, in their order.
constexpr ViolationColumn kStoredWidths[] = {
    ViolationColumn::Title, ViolationColumn::Impact, ViolationColumn::SourceFile};

std::string WithoutCharacters(std::string_view text, std::size_t count) {
    std::size_t position = 0;
    for (; count > 0 && position < text.size(); --count) {
        position += modUtf8::Decode(text, position).Size;
    }
    return std::string(text.substr(position));
}

/// The text of a group row. Value lists have a number in front of the titles of severities, which only sorts them.
std::string GroupRowText(const GridGroupRow& group, std::string text) {
    using enum ViolationColumn;
    const bool isListed = group.Column == NumberOf(SeverityText) ||
                          group.Column == NumberOf(Category) ||
                          group.Column == NumberOf(SourceFile);
    if (isListed && !text.empty() && text.front() >= '1' && text.front() <= '9') {
        text = WithoutCharacters(text, kNumberLength);
    }
    if (isListed && text == "(none)") {
        text = "Unallocated";
    }
    if (group.Count > 0) {
        text += " (" + std::to_string(group.Count) + ")";
    }
    return text;
}

modViolationListSql::Scope ScopeOf(const ComboItem& item) {
    using enum modViolationListSql::Scope;
    if (modSourceItems::IsAllFiles(item)) {
        return All;
    }
    if (item.Tag == modSourceItems::kProjectFileTag) {
        return ProjectFile;
    }
    return item.Tag == modSourceItems::kProcedureTag ? Procedure : SourceFile;
}

}  // namespace

// ---- layout ----

void ViolationListView::Initialise() {
    Grid& grid = m_controls.List;
    grid.SetGroupTextRule(GroupRowText);
    RestoreOrder();
    ResizeColumns();
    m_subscriptions.push_back(
        grid.CurrentRowChanged.Subscribe([this] { m_grdList_RowColChange(); }));
    m_subscriptions.push_back(
        grid.GroupsChosen.Subscribe([this] { m_grdList_AfterGroupChange(); }));
    m_subscriptions.push_back(
        grid.WidthChosen.Subscribe([this](std::int32_t column) { m_grdList_ColResize(column); }));
    m_subscriptions.push_back(
        grid.Failed.Subscribe([this](std::int32_t number) { m_grdList_Error(number); }));
}

void ViolationListView::RestoreOrder() {
    const DVKWorkData& settings = modGlobal::WorkData();
    m_controls.List.SetGroups(
        StoredOrder(settings.RVVLGroupsNum, settings.RVVLGroupCol, settings.RVVLGroupSortOrder));
    m_controls.List.SetSortKeys(
        StoredOrder(settings.RVVLSortKeysNum, settings.RVVLSortCol, settings.RVVLSortOrder));
}

void ViolationListView::ResizeColumns() {
    const DVKWorkData& settings = modGlobal::WorkData();
    std::int32_t index = 1;
    for (const ViolationColumn column : kStoredWidths) {
        m_controls.List.SetWidth(NumberOf(column), settings.RVVLColWidth.Item(index));
        ++index;
    }
}

void ViolationListView::SaveSortKeys() const {
    const std::vector<GridOrderKey>& keys = m_controls.List.SortKeys();
    if (keys.empty()) {
        return;
    }
    DVKWorkData& settings = modGlobal::WorkData();
    settings.RVVLSortKeysNum = StoreOrder(keys, settings.RVVLSortCol, settings.RVVLSortOrder);
}

void ViolationListView::m_grdList_ColResize(std::int32_t column) {
    Trap({kModule, "m_grdList_ColResize"}, [&] {
        const auto* const found = std::find(
            std::begin(kStoredWidths),
            std::end(kStoredWidths),
            static_cast<ViolationColumn>(column));
        if (found != std::end(kStoredWidths)) {
            modGlobal::WorkData().RVVLColWidth.SetItem(
                static_cast<std::int32_t>(found - std::begin(kStoredWidths)) + 1,
                m_controls.List.Column(column).Width);
        }
    });
}

// ---- rows ----

void ViolationListView::Bind() {
    m_records = std::make_unique<ViolationRecords>(m_results.DB());
    m_controls.List.Bind(m_records.get());
}

void ViolationListView::Clear() {
    m_controls.List.Bind(nullptr);
    m_records.reset();
    m_controls.Placeholder.Set(false);
}

void ViolationListView::ResetGridValueLists() {
    GridValueList images;
    GridValueList severities;
    for (const auto& severity : m_results.Lists().Severities) {
        const std::string level = std::to_string(severity->SeverityLevel());
        images.Add(level, {"", std::to_string(severity->Colour())});
        severities.Add(level, {level + ". " + severity->Title()});
    }
    GridValueList categories;
    for (const auto& category : m_results.Lists().Categories) {
        categories.Add(std::to_string(category->ID()), {category->Title()});
    }
    GridValueList files;
    if (m_results.Available()) {
        if (auto rows = m_results.DB().Violations().GetSourceFileValueList()) {
            for (; !rows->EOF_(); rows->MoveNext()) {
                files.Add(rows->Value("ItemIDType").AsText(), {rows->Value("SFName").AsText()});
            }
        }
    }
    Grid& grid = m_controls.List;
    grid.SetValueList(NumberOf(ViolationColumn::Severity), std::move(images));
    grid.SetValueList(NumberOf(ViolationColumn::SeverityText), std::move(severities));
    grid.SetValueList(NumberOf(ViolationColumn::Category), std::move(categories));
    grid.SetValueList(NumberOf(ViolationColumn::SourceFile), std::move(files));
}

void ViolationListView::PopulateViolationsList(const ComboItem& item) {
    const bool hidesCompleted = modGlobal::WorkData().CompletedItemsOption == kHideCompleted;
    m_controls.List.SetRecordSource(modViolationListSql::ViolationListSql(
        ScopeOf(item),
        modSourceItems::IdOfKey(item.Key),
        m_results.DB().FilterString(),
        hidesCompleted));
    if (modSourceItems::IsAllFiles(item)) {
        m_controls.List.Rebind();
    } else {
        RebindWithoutSourceFileGroup();
    }
    m_controls.Placeholder.Set(m_controls.List.DataRowCount() == 0);
}

void ViolationListView::RebindWithoutSourceFileGroup() {
    constexpr std::int32_t kSourceFile = NumberOf(ViolationColumn::SourceFile);
    std::vector<GridOrderKey> groups = m_controls.List.Groups();
    const std::size_t dropped = std::erase_if(
        groups, [](const GridOrderKey& group) { return group.Column == kSourceFile; });
    m_controls.List.Rebind(std::move(groups));
    if (dropped > 0) {
        modGlobal::WorkData().GroupBySourceFile = false;
        StoreGroups();
    }
}

void ViolationListView::SelectFirstRow() {
    if (m_controls.List.RowCount() > 0) {
        m_controls.List.SetCurrentRow(0);
    }
}

void ViolationListView::m_grdList_RowColChange() {
    Trap({kModule, "m_grdList_RowColChange"}, [&] {
        if (const std::optional<std::int32_t> id = m_controls.List.CurrentKey()) {
            DisplayViolationDocumentation(*id);
        } else {
            ++m_lastDisplay;
            m_controls.Documentation.Navigate(kBlankPage);
        }
    });
}

void ViolationListView::m_grdList_Error(std::int32_t number) {
    modLog::Log().LogEvent(
        "Encountered the following error: " + std::to_string(number), "m_grdList_Error", kModule);
}

// ---- the pane ----

void ViolationListView::DisplayViolationDocumentation(std::int32_t violationId) {
    if (!m_results.Available()) {
        modLog::Log().LogDebugTrace(
            "m_objResults is nothing", "DisplayViolationDocumentation", kModule);
        return;
    }
    const Violation violation = m_results.DB().Violations().GetViolationDetail(violationId);
    std::string document = modViolationDocument::ViolationDocument(
        violation,
        m_results.CategoryTitle(violation.CategoryID),
        m_results.SeverityTitle(violation.Severity));
    const std::uint64_t display = ++m_lastDisplay;
    WaitForPane();
    // Another row may have been selected meanwhile.
    if (display == m_lastDisplay) {
        m_controls.Documentation.SetBodyMargins(
            {kBodyMargin, kBodyMargin, kBodyMargin, kBodyMargin});
        m_controls.Documentation.SetInnerHTML(std::move(document));
    }
}

void ViolationListView::WaitForPane() {
    while (m_controls.Documentation.Loading()) {
        modHost::YieldToInput();
    }
}

// ---- groups ----

void ViolationListView::GroupBy(ViolationColumn column, bool grouped) {
    const std::int32_t index = NumberOf(column);
    if (grouped && !m_controls.List.HasGroup(index)) {
        m_controls.List.AddGroup({index});
    } else if (!grouped && m_controls.List.HasGroup(index)) {
        m_controls.List.RemoveGroup(index);
    }
    StoreGroups();
}

void ViolationListView::GroupByNone() {
    DVKWorkData& settings = modGlobal::WorkData();
    settings.GroupByCategory = false;
    settings.GroupByRule = false;
    settings.GroupBySeverity = false;
    settings.RVVLGroupsNum = 0;
    m_controls.List.SetGroups({});
}

void ViolationListView::StoreGroups() const {
    DVKWorkData& settings = modGlobal::WorkData();
    settings.RVVLGroupsNum =
        StoreOrder(m_controls.List.Groups(), settings.RVVLGroupCol, settings.RVVLGroupSortOrder);
}

void ViolationListView::m_grdList_AfterGroupChange() {
    Trap({kModule, "m_grdList_AfterGroupChange"}, [&] { StoreGroups(); });
}

}  // namespace dorvik
