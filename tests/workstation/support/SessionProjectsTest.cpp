#include "workstation/support/SessionProjectsTest.h"

#include "support/FilesystemPaths.h"
#include "workstation/dialogs/frmProgress.h"
#include "workstation/dialogs/frmReviewOptions.h"

#include <filesystem>

namespace dorvik::test {

SessionProjectsTest::SessionProjectsTest() : m_store(RegistryRoot::CurrentUser, m_settings) {
    std::filesystem::copy(
        DORVIK_SESSION_PROJECTS, m_folder.HostPath(), std::filesystem::copy_options::recursive);
    std::filesystem::copy_file(DORVIK_SESSION_RULEBASE, m_folder.HostPath() / "Rules.dvk");
    m_facts.UserDataFolder = m_folder.Path("state\\");
    m_facts.ProgramFolder = ProgramPath(std::filesystem::path(DORVIK_PROGRAM_FOLDER)) + "\\";
    m_screen.OnReviewOptions = [this](frmReviewOptions& form) {
        form.cboRulebase.Set(m_folder.Path("Rules.dvk"));
        form.chkBackground.Set(m_inBackground);
        form.Ok();
    };
    m_screen.OnProgress = [](frmProgress& form) {
        form.Activate();
    };
}

}  // namespace dorvik::test
