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
    : LastRulebase(InProgramFolder("\\Data\\Sample.dvk")),
      RBDocPath(InProgramFolder("\\Data\\Sample.html")) {}

bool DVKWorkData::RBDocAvailable() const {
    return modUtilFunctions::FileExists(RBDocPath);
}

}  // namespace dorvik
