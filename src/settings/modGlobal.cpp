#include "settings/modGlobal.h"

#include "base/BasicError.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "platform/host/modHost.h"
#include "settings/ComponentVersion.h"
#include "settings/DVKWorkData.h"
#include "settings/DorvikData.h"
#include "settings/RegistryUtils.h"

#include <cstdint>
#include <memory>
#include <string>

namespace dorvik::modGlobal {

namespace {

constexpr std::string_view kComponentName = "DVKWork";
constexpr std::string_view kErrorLogName = "Error.log";

struct GlobalObjects {
    DorvikData Data;
    DVKWorkData WorkData;
    LogFile Log;
};

std::unique_ptr<GlobalObjects> g_objects;
std::int32_t g_useCount = 0;

/// A log that cannot be opened would turn every failure into a second one.
void MakeRoomForTheLog(DorvikData& data) {
    if (!modUtilFunctions::CreateFullPath(data.LocalDataPath())) {
        data.SetErrorLogFile(modHost::TemporaryFolder() + std::string(kErrorLogName));
    }
}

/// The log takes what is wrong with the machine's store, so it goes to its default place until the store is read.
void LoadFacts(GlobalObjects& objects) {
    MakeRoomForTheLog(objects.Data);
    objects.Log.SetLogFilePath(objects.Data.ErrorLogFile());
    if (RegistryUtils::Installed(RegistryRoot::LocalMachine) != nullptr) {
        LogFile* const before = modLog::Install(&objects.Log);
        objects.Data.LoadFacts();
        modLog::Install(before);
        MakeRoomForTheLog(objects.Data);
        objects.Log.SetLogFilePath(objects.Data.ErrorLogFile());
    }
}

GlobalObjects& Existing() {
    if (!g_objects) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return *g_objects;
}

}  // namespace

void CreateGlobalObjects() {
    Trap({"modGlobal", "CreateGlobalObjects"}, [] {
        if (g_useCount == 0) {
            g_objects = std::make_unique<GlobalObjects>();
            g_objects->Log.SetComponent(kComponentName);
            g_objects->Log.SetComponentVersion(ComponentVersion());
            LoadFacts(*g_objects);
            modLog::Install(&g_objects->Log);
            if (RegistryUtils::Installed(RegistryRoot::CurrentUser) != nullptr) {
                g_objects->WorkData.LoadSettings();
            }
        }
        ++g_useCount;
    });
}

void DestroyGlobalObjects() {
    Trap({"modGlobal", "DestroyGlobalObjects"}, [] {
        if (g_useCount == 1) {
            if (RegistryUtils::Installed(RegistryRoot::CurrentUser) != nullptr) {
                Existing().WorkData.SaveSettings();
            }
            // Someone may have installed a log of his own since.
            if (&modLog::Log() == &Existing().Log) {
                modLog::Install(nullptr);
            }
            g_objects.reset();
        }
        --g_useCount;
    });
}

bool IsInUse() {
    return g_objects != nullptr;
}

DorvikData& Data() {
    return Existing().Data;
}

DVKWorkData& WorkData() {
    return Existing().WorkData;
}

}  // namespace dorvik::modGlobal
