// What each command of the menus does.
#include "foundation/log/Trap.h"
#include "platform/host/modHost.h"
#include "results/ResultsDB.h"
#include "settings/DVKWorkData.h"
#include "settings/DorvikData.h"
#include "settings/modGlobal.h"
#include "typelib/TypeLibraryStore.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/controls/modWorkstationMessage.h"
#include "workstation/dialogs/FileDialogs.h"
#include "workstation/dialogs/frmAbout.h"
#include "workstation/dialogs/frmOptions.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/screen/IScreen.h"
#include "workstation/view/modBenchDatabase.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "WorkStationApp";
constexpr std::string_view kHelpFile = "Dorvik.chm";

std::string HelpFile() {
    return modGlobal::Data().LocalAppPath() + std::string(kHelpFile);
}

}  // namespace

void WorkStationApp::ConnectMenus() {
    using App = WorkStationApp;
    struct OwnRow {
        Event<> IDEMenuEvents::*Raised;
        void (App::*Handler)();
    };
    static constexpr OwnRow kOwn[] = {
        {&IDEMenuEvents::AboutClick, &App::m_evtMenu_AboutClick},
        {&IDEMenuEvents::GotoSourceClick, &App::m_evtMenu_GotoSourceClick},
        {&IDEMenuEvents::GotoHomePage, &App::m_evtMenu_GotoHomePage},
        {&IDEMenuEvents::GotoTechSupportPage, &App::m_evtMenu_GotoTechSupportPage},
        {&IDEMenuEvents::LaunchRulebaseDocument, &App::m_evtMenu_LaunchRulebaseDocument},
        {&IDEMenuEvents::OpenClick, &App::m_evtMenu_OpenClick},
        {&IDEMenuEvents::ReviewClick, &App::m_evtMenu_ReviewClick},
        {&IDEMenuEvents::ReviewSummary, &App::m_evtMenu_ReviewSummary},
        {&IDEMenuEvents::ShowDorvikWindowClick, &App::m_evtMenu_ShowDorvikWindowClick},
    };
    for (const OwnRow& row : kOwn) {
        m_evtMenu.push_back(
            (m_menus->Events.*row.Raised).Subscribe([this, &row] { (this->*row.Handler)(); }));
    }
    ConnectMenusToDocument();
}

/// The commands of one step, most of them the document's or the results view's alone.
void WorkStationApp::ConnectMenusToDocument() {
    struct PassedOnRow {
        Event<> IDEMenuEvents::*Raised;
        std::string_view Handler;
        void (*Command)(WorkStationApp&);
    };
    using App = WorkStationApp;
    static constexpr PassedOnRow kPassedOn[] = {
        {&IDEMenuEvents::FilterClick,
         "m_evtMenu_FilterClick",
         [](App& app) {
             app.Results().FilterResults();
         }},
        {&IDEMenuEvents::GroupByCategoryClick,
         "m_evtMenu_GroupByCategoryClick",
         [](App& app) {
             app.Results().GroupByCategory();
         }},
        {&IDEMenuEvents::GroupByRuleClick,
         "m_evtMenu_GroupByRuleClick",
         [](App& app) {
             app.Results().GroupByRule();
         }},
        {&IDEMenuEvents::GroupBySeverityClick,
         "m_evtMenu_GroupBySeverityClick",
         [](App& app) {
             app.Results().GroupBySeverity();
         }},
        {&IDEMenuEvents::GroupBySourceFileClick,
         "m_evtMenu_GroupBySourceFileClick",
         [](App& app) {
             app.Results().GroupBySourceFile();
         }},
        {&IDEMenuEvents::GroupByNoneClick,
         "m_evtMenu_GroupByNoneClick",
         [](App& app) {
             app.Results().GroupByNone();
         }},
        {&IDEMenuEvents::HelpContents,
         "m_evtMenu_HelpContents",
         [](App& app) {
             app.m_screen.OpenWithSystem(HelpFile());
         }},
        // The program that shows the file has the search.
        {&IDEMenuEvents::HelpSearch,
         "m_evtMenu_HelpSearch",
         [](App& app) {
             app.m_screen.OpenWithSystem(HelpFile());
         }},
        {&IDEMenuEvents::OptionsClick,
         "m_evtMenu_OptionsClick",
         [](App& app) {
             app.ShowOptions(frmOptions::Page::General);
         }},
        {&IDEMenuEvents::ShowGroupByClick,
         "m_evtMenu_ShowGroupByClick",
         [](App& app) {
             app.m_document->ShowGroupBy();
         }},
        {&IDEMenuEvents::DorvikClick,
         "m_evtMenu_DorvikClick",
         [](App& app) {
             app.m_IDE->RefreshMenus(app.m_backgroundReviewActive);
         }},
    };
    for (const PassedOnRow& row : kPassedOn) {
        m_evtMenu.push_back((m_menus->Events.*row.Raised).Subscribe([this, &row] {
            Trap({kModule, row.Handler}, [&] { row.Command(*this); });
        }));
    }
    m_evtMenu.push_back(m_menus->Events.ExpandCollapseGroups.Subscribe([this](bool expand) {
        Trap(LogOrigin{kModule, "m_evtMenu_ExpandCollapseGroups"}, [&] {
            m_document->ExpandCollapseGroups(expand);
        });
    }));
}

void WorkStationApp::m_evtMenu_AboutClick() {
    Trap({kModule, "m_evtMenu_AboutClick"}, [&] {
        frmAbout form;
        m_screen.ShowModal(form);
    });
}

void WorkStationApp::m_evtMenu_GotoSourceClick() {
    Trap({kModule, "m_evtMenu_GotoSourceClick"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        Results().SetIgnoreFileEvents(true);
        m_document->GotoSource();
        if (!life.IsOver()) {
            Results().SetIgnoreFileEvents(false);
        }
    });
}

void WorkStationApp::m_evtMenu_GotoHomePage() {
    Trap({kModule, "m_evtMenu_GotoHomePage"}, [&] {
        m_screen.OpenWithSystem(modGlobal::Data().HomePageURL());
    });
}

void WorkStationApp::m_evtMenu_GotoTechSupportPage() {
    Trap({kModule, "m_evtMenu_GotoTechSupportPage"}, [&] {
        m_screen.OpenWithSystem(modGlobal::Data().TechSupportPageURL());
    });
}

void WorkStationApp::m_evtMenu_LaunchRulebaseDocument() {
    Trap({kModule, "m_evtMenu_LaunchRulebaseDocument"}, [&] {
        const DVKWorkData& settings = modGlobal::WorkData();
        if (settings.RBDocAvailable()) {
            m_screen.OpenWithSystem(settings.RBDocPath);
        } else {
            modWorkstationMessage::Show(
                MessageIcon::Exclamation,
                "Cannot display the rulebase document '" + settings.RBDocPath +
                    "' because it cannot be found.");
        }
    });
}

void WorkStationApp::m_evtMenu_OpenClick() {
    Trap({kModule, "m_evtMenu_OpenClick"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        const std::optional<std::string> file = FileDialogs(m_screen).GetOpenFileName(
            FileKind::ResultsDatabase, "Select Results Database");
        if (file && !life.IsOver()) {
            OpenResults(*file);
        }
    });
}

void WorkStationApp::OpenResults(const std::string& file) {
    Trap({kModule, "OpenResults"}, [&] {
        auto results = std::make_unique<ResultsDB>();
        if (modBenchDatabase::Open(*results, file)) {
            Results().SetResultsDB(std::move(results), file);
        } else {
            modWorkstationMessage::Show(
                MessageIcon::Exclamation,
                modBenchDatabase::Objection(
                    *results,
                    "The selected database does not appear to be a valid Dorvik results database "
                    "or is an incorrect version.  Please select a different file or ensure that '" +
                        file + "' is the correct version."));
        }
    });
}

void WorkStationApp::ShowOptions(frmOptions::Page page) {
    Trap({kModule, "ShowOptions"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        frmOptions form(m_screen);
        form.tbsOptions.Shown.Set(static_cast<std::int16_t>(page));
        m_screen.ShowModal(form);
        if (!life.IsOver() && !form.Cancelled()) {
            modGlobal::WorkData().SaveSettings();
            Results().OptionsChanged();
        }
    });
}

void WorkStationApp::m_evtMenu_ReviewSummary() {
    Trap({kModule, "m_evtMenu_ReviewSummary"}, [&] { Results().ShowReviewSummary(); });
}

void WorkStationApp::m_evtMenu_ShowDorvikWindowClick() {
    Trap({kModule, "m_evtMenu_ShowDorvikWindowClick"}, [&] {
        const Lifetime::Watch life = m_life.Watched();
        m_IDE->SetWorkbenchVisible(true);
        modHost::YieldToInput();
        if (!life.IsOver()) {
            m_IDE->RefreshMenus(/*reviewRunning=*/false);
        }
    });
}

}  // namespace dorvik
