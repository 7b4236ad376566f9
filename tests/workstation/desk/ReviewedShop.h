#pragma once

#include "settings/DVKWorkData.h"
#include "settings/modGlobal.h"
#include "support/RecordingMessageBox.h"
#include "workstation/application/Connect.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/support/SessionProjectsTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace dorvik::test {

/// The project Shop on disk, open in the environment over files, with the add-in started.
class ReviewedShop : public SessionProjectsTest {
protected:
    ReviewedShop() {
        m_host.Open(m_folder.Path("Shop\\Shop.vbp"));
        m_connect.AddinInstance_OnConnection(m_host, ConnectMode::Startup, m_screen);
        modGlobal::WorkData().AlwaysShowSummary = false;
    }
    /// How often the user was asked for the options of a review.
    auto Dialogs() const { return std::ranges::count(m_screen.Calls, "review options"); }
    WorkStationApp& App() { return *m_connect.App(); }
    std::string Database() const { return m_folder.Path("Shop\\Dorvik\\Shop_DORVIK.mdb"); }

    RecordingMessageBox m_boxes;
    FileHost m_host;
    Connect m_connect;
};

}  // namespace dorvik::test
