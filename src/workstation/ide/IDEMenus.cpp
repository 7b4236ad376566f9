#include "workstation/ide/IDEMenus.h"

#include "MenuItems.h"
#include "foundation/log/Trap.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/view/ResultsView.h"

#include <span>
#include <string>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "IDEMenus";

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

void Check(CommandControl& item, const menuitems::Row& row, const DVKWorkData& settings) {
    if (row.Setting != nullptr) {
        const bool checked = settings.*row.Setting;
        item.SetChecked(checked);
        item.SetFace(std::string(checked ? menuitems::kCheckedFace : menuitems::kBlankFace));
    }
}

/// What the state of the menus depends on while no review runs.
struct Situation {
    bool ProjectsOpen = false;
    bool ResultsAvailable = false;
    bool ListShown = false;
    bool RulebaseDocument = false;
};

bool IsEnabled(menuitems::Idle idle, const Situation& situation) {
    using enum menuitems::Idle;
    switch (idle) {
        case ProjectsOpen: return situation.ProjectsOpen;
        case Results: return situation.ResultsAvailable;
        case ResultsInList: return situation.ResultsAvailable && situation.ListShown;
        case RulebaseDocument: return situation.RulebaseDocument;
        case Kept: break;
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
        for (std::size_t bar = 0; bar < Bars().size(); ++bar) {
            AddItems(*Bars()[bar], menuitems::kBars[bar]);
        }
        ForEachItem([this](CommandControl& item, const menuitems::Row& row) {
            m_evtDorvik.push_back(
                m_ide->MenuEventsListener(item).Subscribe([this, &row] { Clicked(row); }));
        });
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

std::array<CommandControl*, 3> IDEMenus::Bars() const {
    return {m_menu, m_toolbar, m_listPopup};
}

template <typename Visit>
void IDEMenus::ForEachItem(const Visit& visit) const {
    for (std::size_t bar = 0; bar < Bars().size(); ++bar) {
        for (const menuitems::Row& row : menuitems::kBars[bar]) {
            visit(*Bars()[bar]->FindTag(row.Tag), row);
        }
    }
}

void IDEMenus::Clicked(const menuitems::Row& row) {
    if (row.Setting != nullptr) {
        bool& setting = modGlobal::WorkData().*row.Setting;
        setting = !setting;
    }
    const Lifetime::Watch life = m_life.Watched();
    if (row.Raised != nullptr) {
        (Events.*row.Raised).Raise();
    } else if (!row.IsSubmenu) {
        Events.ExpandCollapseGroups.Raise(row.Tag == menuitems::kExpandAll);
    }
    if (!life.IsOver()) {
        RefreshCheckMarks();
    }
}

void IDEMenus::RefreshCheckMarks() {
    Trap({kModule, "RefreshCheckMarks"}, [&] {
        if (m_menu == nullptr) {
            return;
        }
        const DVKWorkData& settings = modGlobal::WorkData();
        ForEachItem([&settings](CommandControl& item, const menuitems::Row& row) {
            Check(item, row, settings);
        });
    });
}

void IDEMenus::EnableDisable(
    bool resultsAvailable, std::int32_t viewType, bool rbDocAvailable, bool reviewRunning) {
    Trap({kModule, "EnableDisable"}, [&] {
        if (m_menu == nullptr) {
            return;
        }
        const Situation situation{
            .ProjectsOpen = m_ide->ProjectsOpen(),
            .ResultsAvailable = resultsAvailable,
            .ListShown = viewType == viewtype::kViolationList,
            .RulebaseDocument = rbDocAvailable};
        ForEachItem([&](CommandControl& item, const menuitems::Row& row) {
            if (reviewRunning && row.Running != menuitems::Running::Kept) {
                item.SetEnabled(row.Running == menuitems::Running::On);
            }
            if (!reviewRunning && row.Idle != menuitems::Idle::Kept) {
                item.SetEnabled(IsEnabled(row.Idle, situation));
            }
        });
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
        for (std::size_t bar = 0; bar < Bars().size(); ++bar) {
            const menuitems::ReviewRow& row = menuitems::kReviewItems[bar];
            CommandControl& item = *Bars()[bar]->FindTag(row.Tag);
            item.SetCaption(std::string(reviewRunning ? row.CancelCaption : row.Caption));
            item.SetFace(
                std::string(reviewRunning ? menuitems::kCancelFace : menuitems::kReviewFace));
        }
    });
}

}  // namespace dorvik
