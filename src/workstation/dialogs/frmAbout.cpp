#include "workstation/dialogs/frmAbout.h"

#include "settings/DorvikData.h"
#include "settings/modGlobal.h"

namespace dorvik {

frmAbout::frmAbout()
    : m_caption("About Dorvik Workstation"),
      m_productName("Dorvik Workstation"),
      m_version("Version " + modGlobal::Data().ProductVersion()),
      m_homePageURL(modGlobal::Data().HomePageURL()),
      m_techSupportPageURL(modGlobal::Data().TechSupportPageURL()) {}

void frmAbout::Ok() {
    m_isClosed = true;
    Closed.Raise();
}

}  // namespace dorvik
