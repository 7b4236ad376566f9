#include "settings/DVKWorkData.h"

#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modHost.h"

namespace dorvik {

namespace {

std::string InProgramFolder(std::string_view name) {
    return modUtilFunctions::RemoveBackslash(modHost::ProgramFolder()).append(name);
}

}  // namespace

DVKWorkData::DVKWorkData()
    : m_lastRulebase(InProgramFolder("\\Data\\Sample.dvk")),
      m_rbDocPath(InProgramFolder("\\Data\\Sample.html")) {}

bool DVKWorkData::RBDocAvailable() const {
    return modUtilFunctions::FileExists(m_rbDocPath);
}

}  // namespace dorvik
