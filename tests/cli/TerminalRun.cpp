#include "cli/TerminalRun.h"

#include <pty.h>
#include <stdexcept>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

namespace dorvik::test {

namespace {

[[noreturn]] void BecomeProgram(std::vector<std::string> arguments) {
    std::vector<char*> pointers{const_cast<char*>(DORVIK_PROGRAM)};
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    ::execv(DORVIK_PROGRAM, pointers.data());
    ::_exit(127);
}

std::string ReadAll(int terminal) {
    std::string text;
    char buffer[4096];
    // The end of the program is an error of the terminal's reading side.
    for (ssize_t size = 0; (size = ::read(terminal, buffer, sizeof buffer)) > 0;) {
        text.append(buffer, static_cast<std::size_t>(size));
    }
    return text;
}

}  // namespace

std::string RunInTerminal(
    const std::vector<std::string>& arguments,
    const std::filesystem::path& workingFolder,
    const std::filesystem::path& stateFolder,
    unsigned short columns,
    const std::string& environment) {
    const winsize size{25, columns, 0, 0};
    int terminal = -1;
    const pid_t process = ::forkpty(&terminal, nullptr, nullptr, &size);
    if (process < 0) {
        throw std::runtime_error("There is no terminal to be had.");
    }
    if (process == 0) {
        ::setenv("XDG_STATE_HOME", stateFolder.c_str(), 1);
        ::unsetenv("NO_COLOR");
        if (const std::size_t sign = environment.find('='); sign != std::string::npos) {
            ::setenv(environment.substr(0, sign).c_str(), environment.substr(sign + 1).c_str(), 1);
        }
        if (::chdir(workingFolder.c_str()) != 0) {
            ::_exit(127);
        }
        BecomeProgram(arguments);
    }
    const std::string text = ReadAll(terminal);
    ::close(terminal);
    ::waitpid(process, nullptr, 0);
    return text;
}

}  // namespace dorvik::test
