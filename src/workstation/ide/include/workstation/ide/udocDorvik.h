#pragma once

#include "workstation/controls/CommandControl.h"
#include "workstation/controls/Event.h"
#include "workstation/controls/Lifetime.h"
#include "workstation/host/IHostEnvironment.h"
#include "workstation/view/ResultsView.h"
#include "workstation/view/WorkbenchControls.h"

#include <cstdint>
#include <vector>

namespace dorvik {

class IDEHelper;
class IDEMenus;
class IScreen;

/// The document of the work bench: owns its controls and the results view over them, and has the commands that need
/// both the view and the environment.
class udocDorvik final : public IUserDocument {
public:
    /// REQUIRES: `screen` outlives this.
    explicit udocDorvik(IScreen& screen);
    ~udocDorvik() override;
    udocDorvik(const udocDorvik&) = delete;
    udocDorvik& operator=(const udocDorvik&) = delete;

    /// Null ends the reference.
    void SetIDEHelper(IDEHelper* ideHelper);
    void SetMenus(IDEMenus* menus);
    void Terminate();

    WorkbenchControls& Controls() { return m_controls; }
    ResultsView& Results() { return m_results; }

    void VisibleChanged(bool visible) override;

    /// Shows in the environment what is selected in the shown view.
    void GotoSource();
    /// The group-by box is shown as the settings have it.
    void ShowGroupBy();
    void ExpandCollapseGroups(bool expand);

    // What the user does in the document.
    void cmdGotoSource_Click();
    /// The button of a view: 1 violation list, 2 hotspot view.
    void optView_Click(std::int32_t viewType);

    /// The popup is to be shown where the user clicked.
    Event<CommandControl&> PopupMenu;

private:
    void UserDocument_InitProperties();
    void GotoViolation();
    void GotoHotspot();

    WorkbenchControls m_controls;
    ResultsView m_results;
    IDEHelper* m_ideHelper = nullptr;
    IDEMenus* m_menus = nullptr;
    std::vector<Subscription> m_evtResults;
    Lifetime m_life;  // the add-in may end while a message is shown
};

}  // namespace dorvik
