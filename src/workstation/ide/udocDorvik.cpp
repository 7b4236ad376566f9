#include "workstation/ide/udocDorvik.h"

#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "source/Location.h"
#include "workstation/controls/modWorkstationMessage.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "udocDorvik";

constexpr std::string_view kReferenceMember = "(Reference)";

}  // namespace

udocDorvik::udocDorvik(IScreen& screen) : m_results(m_controls, screen) {
    m_results.Initialise();
    m_evtResults.push_back(m_results.DisplayListPopup.Subscribe([this] {
        if (m_menus != nullptr && m_menus->ListPopupMenu() != nullptr) {
            PopupMenu.Raise(*m_menus->ListPopupMenu());
        }
    }));
    m_evtResults.push_back(m_results.EnableDisableGroupBySrcFiles.Subscribe([this](bool enabled) {
        if (m_menus != nullptr) {
            m_menus->EnableDisableGroupBySrcFiles(enabled);
        }
    }));
    m_evtResults.push_back(m_results.GotoSource.Subscribe([this] { cmdGotoSource_Click(); }));
    m_evtResults.push_back(m_results.ViewChanged.Subscribe([this] {
        if (m_ideHelper != nullptr) {
            m_ideHelper->RefreshMenus();
        }
    }));
    UserDocument_InitProperties();
}

udocDorvik::~udocDorvik() = default;

void udocDorvik::SetIDEHelper(IDEHelper* ideHelper) {
    m_ideHelper = ideHelper;
}

void udocDorvik::SetMenus(IDEMenus* menus) {
    m_menus = menus;
}

void udocDorvik::Terminate() {
    Trap({kModule, "Terminate"}, [&] {
        m_evtResults.clear();
        m_menus = nullptr;
        m_results.Terminate();
    });
}

void udocDorvik::UserDocument_InitProperties() {
    Trap({kModule, "UserDocument_InitProperties"}, [&] { ShowGroupBy(); });
}

void udocDorvik::VisibleChanged(bool visible) {
    Trap({kModule, "VisibleChanged"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        m_results.SetWorkbenchVisible(visible);
        if (!life.IsOver() && visible && m_ideHelper != nullptr) {
            m_ideHelper->RefreshMenus();
        }
    });
}

void udocDorvik::GotoSource() {
    Trap({kModule, "GotoSource"}, [&] {
        if (m_ideHelper == nullptr) {
            return;
        }
        if (m_results.ViewType() == viewtype::kViolationList) {
            GotoViolation();
        } else {
            GotoHotspot();
        }
    });
}

void udocDorvik::GotoViolation() {
    const auto details = m_results.GetViolationDetails();
    if (!details) {
        modWorkstationMessage::Show(
            MessageIcon::Information, "Please select a violation to goto in the source.");
        return;
    }
    const Violation& violation = details->Violation;
    const auto location = static_cast<Location>(violation.Location);
    if (location == Location::Layout || location == Location::Control) {
        m_ideHelper->DisplayDesigner(details->Project, details->File, violation);
    } else if (location != Location::File) {
        m_ideHelper->SelectSourceLine(details->Project, details->File, violation);
    } else if (violation.LocationMember == kReferenceMember) {
        m_ideHelper->ShowVBReferences();
    } else {
        m_ideHelper->ShowVBProjectProperties();
    }
}

void udocDorvik::GotoHotspot() {
    const auto details = m_results.GetSourceDetails();
    if (!details) {
        return;
    }
    if (modTextCase::Equal(details->Project, details->File)) {
        m_ideHelper->ShowVBProjectProperties();
    } else {
        m_ideHelper->SelectProcedureStartLine(
            details->Project, details->File, details->Procedure, details->ProcedureType);
    }
}

void udocDorvik::ShowGroupBy() {
    Trap({kModule, "ShowGroupBy"}, [&] {
        m_controls.GroupByBox.Set(modGlobal::WorkData().ShowGroupByBox);
    });
}

void udocDorvik::ExpandCollapseGroups(bool expand) {
    Trap({kModule, "ExpandCollapseGroups"}, [&] { m_controls.List.ExpandAll(expand); });
}

void udocDorvik::cmdGotoSource_Click() {
    Trap({kModule, "cmdGotoSource_Click"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        m_results.SetIgnoreFileEvents(true);
        GotoSource();
        if (!life.IsOver()) {
            m_results.SetIgnoreFileEvents(false);
        }
    });
}

void udocDorvik::optView_Click(std::int32_t viewType) {
    Trap({kModule, "optView_Click"}, [&] {
        if (viewType == m_results.ViewType()) {
            return;
        }
        m_results.SwitchView(viewType);
    });
}

}  // namespace dorvik
