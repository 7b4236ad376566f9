#include "workstation/ide/IDEMenus.h"

#include "MenuItems.h"
#include "MenuStates.h"
#include "foundation/log/Trap.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "workstation/ide/IDEHelper.h"

#include <array>
#include <span>
#include <string>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "IDEMenus";
constexpr std::int32_t kViolationList = 1;

void AddItems(CommandControl& bar, std::span<const menuitems::Row> rows) {
    for (const menuitems::Row& row : rows) {
        CommandControl* const parent = row.Parent.empty() ? &bar : bar.FindTag(row.Parent);
        parent->Add(
            row.IsSubmenu ? CommandKind::Popup : CommandKind::Button,
            {.Caption = std::string(row.Caption),
             .Tag = std::string(row.Tag),
             .Face = std::string(row.Face)});
    }
}

const menuitems::Row* FindRow(std::string_view tag) {
    for (const std::span<const menuitems::Row> rows : menuitems::kBars) {
        for (const menuitems::Row& row : rows) {
            if (row.Tag == tag) {
                return &row;
            }
        }
    }
    return nullptr;
}

void Check(CommandControl& bar, const menuitems::Row& row, const DVKWorkData& settings) {
    CommandControl* const item = row.Setting == nullptr ? nullptr : bar.FindTag(row.Tag);
    if (item != nullptr) {
        const bool checked = settings.*row.Setting;
        item->SetChecked(checked);
        item->SetFace(std::string(checked ? menuitems::kCheckedFace : menuitems::kBlankFace));
    }
}

/// What the state of the menus depends on while no review runs.
struct Situation {
    bool ProjectsOpen = false;
    bool ResultsAvailable = false;
    bool ListShown = false;
    bool RulebaseDocument = false;
};

bool IsEnabled(menustates::Idle idle, const Situation& situation) {
    switch (idle) {
        case menustates::Idle::ProjectsOpen: return situation.ProjectsOpen;
        case menustates::Idle::Results: return situation.ResultsAvailable;
        case menustates::Idle::ResultsInList:
            return situation.ResultsAvailable && situation.ListShown;
        case menustates::Idle::RulebaseDocument: return situation.RulebaseDocument;
        case menustates::Idle::Untouched: break;
    }
    return true;
}

}  // namespace

void IDEMenus::Initialise(IDEHelper& ideHelper) {
    Trap({kModule, "Initialise"}, [&] {
        m_ide = &ideHelper;
        m_menu = m_ide->SiteAddInMenu();
        m_toolbar = m_ide->AddCommandBar(menuitems::kToolbarName);
        m_listPopup = m_ide->AddCommandBar(menuitems::kListPopupName);
        const DVKWorkData& settings = modGlobal::WorkData();
        m_toolbar->SetPlace(
            {settings.ToolbarPosition,
             settings.ToolbarRowIndex,
             settings.ToolbarTop,
             settings.ToolbarLeft,
             settings.ToolbarVisible});
        const std::array bars = {m_menu, m_toolbar, m_listPopup};
        for (std::size_t bar = 0; bar < bars.size(); ++bar) {
            AddItems(*bars[bar], menuitems::kBars[bar]);
            for (const menuitems::Row& row : menuitems::kBars[bar]) {
                m_evtDorvik.push_back(
                    m_ide->MenuEventsListener(*bars[bar]->FindTag(row.Tag)).Subscribe([this, &row] {
                        Clicked(row.Tag);
                    }));
            }
        }
        m_evtDorvik.push_back(
            m_ide->MenuEventsListener(*m_menu).Subscribe([this] { Events.DorvikClick.Raise(); }));
        RefreshCheckMarks();
    });
}

void IDEMenus::DestroyMenusAndToolbar() {
    Trap({kModule, "DestroyMenusAndToolbar"}, [&] {
        m_evtDorvik.clear();
        if (m_ide != nullptr) {
            m_ide->DeleteCommandBar(m_menu);
            m_ide->DeleteCommandBar(m_toolbar);
            m_ide->DeleteCommandBar(m_listPopup);
        }
        m_menu = nullptr;
        m_toolbar = nullptr;
        m_listPopup = nullptr;
    });
}

void IDEMenus::Clicked(std::string_view tag) {
    const menuitems::Row* const row = FindRow(tag);
    if (row->Setting != nullptr) {
        bool& setting = modGlobal::WorkData().*row->Setting;
        setting = !setting;
        RefreshCheckMarks();
    }
    if (row->Raised != nullptr) {
        (Events.*row->Raised).Raise();
    } else if (!row->IsSubmenu) {
        Events.ExpandCollapseGroups.Raise(tag == menuitems::kExpandAll);
    }
    // The command may have ended a grouping.
    RefreshCheckMarks();
}

void IDEMenus::RefreshCheckMarks() {
    Trap({kModule, "RefreshCheckMarks"}, [&] {
        if (m_menu == nullptr) {
            return;
        }
        for (const menuitems::Row& row : menuitems::kMenu) {
            Check(*m_menu, row, modGlobal::WorkData());
        }
        for (const menuitems::Row& row : menuitems::kListPopup) {
            Check(*m_listPopup, row, modGlobal::WorkData());
        }
    });
}

void IDEMenus::EnableDisable(
    bool resultsAvailable, std::int32_t viewType, bool rbDocAvailable, bool reviewRunning) {
    Trap({kModule, "EnableDisable"}, [&] {
        if (m_menu == nullptr) {
            return;
        }
        const std::array bars = {m_menu, m_toolbar, m_listPopup};
        const Situation situation{
            .ProjectsOpen = m_ide->ProjectsOpen(),
            .ResultsAvailable = resultsAvailable,
            .ListShown = viewType == kViolationList,
            .RulebaseDocument = rbDocAvailable};
        for (const menustates::Row& row : menustates::kStates) {
            CommandControl& item = bars[static_cast<std::size_t>(row.Bar)]->Item(row.Position);
            if (reviewRunning && row.Running != menustates::Running::Untouched) {
                item.SetEnabled(row.Running == menustates::Running::On);
            }
            if (!reviewRunning && row.Idle != menustates::Idle::Untouched) {
                item.SetEnabled(IsEnabled(row.Idle, situation));
            }
        }
        RefreshCheckMarks();
    });
}

void IDEMenus::EnableDisableGroupBySrcFiles(bool enabled) {
    Trap({kModule, "EnableDisableGroupBySrcFiles"}, [&] {
        if (m_menu == nullptr) {
            return;
        }
        m_menu->FindTag(menuitems::kGroupBySourceFile)->SetEnabled(enabled);
        m_listPopup->FindTag(menuitems::kListGroupBySourceFile)->SetEnabled(enabled);
        RefreshCheckMarks();
    });
}

void IDEMenus::InvertReviewOption(bool reviewRunning) {
    Trap({kModule, "InvertReviewOption"}, [&] {
        if (m_menu == nullptr) {
            return;
        }
        const std::array bars = {m_menu, m_toolbar, m_listPopup};
        for (std::size_t bar = 0; bar < bars.size(); ++bar) {
            const menuitems::ReviewRow& row = menuitems::kReviewItems[bar];
            CommandControl& item = *bars[bar]->FindTag(row.Tag);
            item.SetCaption(std::string(reviewRunning ? row.CancelCaption : row.Caption));
            item.SetFace(
                std::string(reviewRunning ? menuitems::kCancelFace : menuitems::kReviewFace));
        }
    });
}

}  // namespace dorvik
