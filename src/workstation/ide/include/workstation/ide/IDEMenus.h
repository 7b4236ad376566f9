#pragma once

#include "workstation/controls/CommandControl.h"
#include "workstation/controls/Lifetime.h"
#include "workstation/ide/IDEMenuEvents.h"

#include <array>
#include <cstdint>
#include <vector>

namespace dorvik {

class IDEHelper;

namespace menuitems {
struct Row;
}

/// The add-in's menu on the environment's menu bar, its toolbar and the popup of the violation list: builds them, turns
/// clicks into `Events`, and keeps what is enabled and checked. The environment owns the controls.
class IDEMenus {
public:
    IDEMenus() = default;
    IDEMenus(const IDEMenus&) = delete;
    IDEMenus& operator=(const IDEMenus&) = delete;

    /// REQUIRES: `ideHelper` outlives this, or `DestroyMenusAndToolbar` is called before it ends.
    void Initialise(IDEHelper& ideHelper);
    void DestroyMenusAndToolbar();

    /// Null before `Initialise` and after `DestroyMenusAndToolbar`.
    CommandControl* DorvikMenu() const { return m_menu; }
    CommandControl* Toolbar() const { return m_toolbar; }
    CommandControl* ListPopupMenu() const { return m_listPopup; }

    /// `viewType` is that of the results view: 1 violation list, 2 hotspot view.
    void EnableDisable(
        bool resultsAvailable, std::int32_t viewType, bool rbDocAvailable, bool reviewRunning);
    /// Whether violations can be grouped by their source file: where all files are shown.
    void EnableDisableGroupBySrcFiles(bool enabled);
    /// While a background review runs, the commands that start a review cancel it.
    void InvertReviewOption(bool reviewRunning);
    /// The check marks are those of the settings.
    void RefreshCheckMarks();

    IDEMenuEvents Events;

private:
    /// In the order of `menuitems::kBars`. REQUIRES for all of them: the bars are there.
    std::array<CommandControl*, 3> Bars() const;
    /// With the control of each row.
    template <typename Visit>
    void ForEachItem(const Visit& visit) const;
    void Clicked(const menuitems::Row& row);

    IDEHelper* m_ide = nullptr;
    CommandControl* m_menu = nullptr;
    CommandControl* m_toolbar = nullptr;
    CommandControl* m_listPopup = nullptr;
    std::vector<Subscription> m_evtDorvik;  // the clicks
    Lifetime m_life;                        // a command may end the add-in
};

}  // namespace dorvik
