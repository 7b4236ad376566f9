#include "cli/ProgramRun.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace dorvik::test {

namespace {

constexpr auto kPause = std::chrono::milliseconds(3);

std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void Redirect(const std::filesystem::path& file, int stream) {
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::dup2(descriptor, stream);
    ::close(descriptor);
}

}  // namespace

ProgramRun::ProgramRun(Settings settings)
    : m_settings(std::move(settings)),
      m_deadline(std::chrono::steady_clock::now() + m_settings.Patience) {
    std::vector<char*> arguments{const_cast<char*>(DORVIK_PROGRAM)};
    for (std::string& argument : m_settings.Arguments) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    const std::filesystem::path output = StreamFile("output");
    const std::filesystem::path error = StreamFile("error");
    m_process = ::fork();
    if (m_process < 0) {
        throw std::runtime_error("The program cannot be started.");
    }
    if (m_process == 0) {
        Redirect("/dev/null", STDIN_FILENO);
        Redirect(output, STDOUT_FILENO);
        Redirect(error, STDERR_FILENO);
        ::setenv("XDG_STATE_HOME", m_settings.StateFolder.c_str(), 1);
        if (!m_settings.TemporaryFolder.empty()) {
            ::setenv("TMPDIR", m_settings.TemporaryFolder.c_str(), 1);
        }
        if (m_settings.LargestFile > 0) {
            const rlimit limit{m_settings.LargestFile, m_settings.LargestFile};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            ::signal(SIGXFSZ, SIG_IGN);  // the write fails, and nothing else happens
        }
        if (::chdir(m_settings.WorkingFolder.c_str()) == 0) {
            ::execv(DORVIK_PROGRAM, arguments.data());
        }
        ::_exit(127);
    }
}

ProgramRun::~ProgramRun() {
    if (m_process != 0) {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
}

std::filesystem::path ProgramRun::StreamFile(const char* name) const {
    return m_settings.StateFolder / name;
}

bool ProgramRun::IsRunning() {
    int status = 0;
    if (m_process != 0 && ::waitpid(m_process, &status, WNOHANG) == m_process) {
        Finish(status);
    }
    return m_process != 0;
}

void ProgramRun::Interrupt() {
    Signal(SIGINT);
}

void ProgramRun::Halt() {
    Signal(SIGSTOP);
}

void ProgramRun::Continue() {
    Signal(SIGCONT);
}

void ProgramRun::Kill() {
    Signal(SIGKILL);
}

void ProgramRun::Signal(int signal) {
    if (m_process != 0) {
        ::kill(m_process, signal);
    }
}

void ProgramRun::Wait() {
    while (IsRunning()) {
        if (!m_timedOut && std::chrono::steady_clock::now() > m_deadline) {
            m_timedOut = true;
            ::kill(m_process, SIGKILL);
        }
        std::this_thread::sleep_for(kPause);
    }
}

void ProgramRun::Finish(int status) {
    m_process = 0;
    m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : m_timedOut ? kKilled : kCrashed;
    m_output = BytesOf(StreamFile("output"));
    m_error = BytesOf(StreamFile("error"));
}

}  // namespace dorvik::test
