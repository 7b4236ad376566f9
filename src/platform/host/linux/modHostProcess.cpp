#include "platform/host/modHostProcess.h"

#include "base/BasicError.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace dorvik::modHostProcess {

HostPath ProgramPath() {
    constexpr const char* kOwnProgram = "/proc/self/exe";  // a link to the running program
    std::error_code fault;
    const std::filesystem::path program = std::filesystem::read_symlink(kOwnProgram, fault);
    if (fault) {
        RaiseRuntimeError(runtimeerror::kPathNotFound, kOwnProgram);
    }
    return HostPath::FromBytes(program.native());
}

int OwnNumber() {
    return ::getpid();
}

bool IsGone(int process) {
    return ::kill(process, 0) != 0 && errno == ESRCH;
}

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

}  // namespace dorvik::modHostProcess
