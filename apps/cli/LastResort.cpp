#include "LastResort.h"

#include "base/BasicError.h"
#include "cli/output/Console.h"
#include "platform/host/UnfinishedFile.h"

#include <cstdlib>
#include <exception>
#include <new>
#include <string>

namespace dorvik::modLastResort {

namespace {

constexpr std::string_view kOutOfMemory = "dorvik: out of memory; the command was aborted\n";
constexpr std::string_view kUnknown = "dorvik: aborted by an unexpected error of unknown type\n";

void ReportFailure(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        modConsole::PrintErrorAsIs(kOutOfMemory);
    } catch (const BasicError& error) {
        modConsole::PrintError(error.what());
    } catch (const std::exception& error) {
        modConsole::PrintError("aborted by an unexpected error: " + std::string(error.what()));
    } catch (...) {
        modConsole::PrintErrorAsIs(kUnknown);
    }
}

/// Reports the failure, also where there is no memory left to put it into words.
void Report(const std::exception_ptr& failure) noexcept {
    try {
        ReportFailure(failure);
    } catch (...) {
        modConsole::PrintErrorAsIs(kOutOfMemory);
    }
}

[[noreturn]] void EndAtOnce() {
    UnfinishedFile::RemoveAll();
    if (const std::exception_ptr failure = std::current_exception()) {
        Report(failure);
    } else {
        modConsole::PrintErrorAsIs(kUnknown);
    }
    std::_Exit(static_cast<int>(ExitCode::NothingDone));
}

}  // namespace

int Run(const std::function<int()>& command) {
    try {
        return command();
    } catch (...) {
        UnfinishedFile::RemoveAll();
        Report(std::current_exception());
    }
    return static_cast<int>(ExitCode::NothingDone);
}

void InstallForTermination() {
    std::set_terminate(&EndAtOnce);
}

}  // namespace dorvik::modLastResort
