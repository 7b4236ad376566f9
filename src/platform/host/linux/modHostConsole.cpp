#include "platform/host/modHostConsole.h"

#include "SystemFailure.h"
#include "platform/host/modHostProcess.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace dorvik {

namespace {

int DescriptorOf(HostStream stream) {
    return stream == HostStream::Output ? STDOUT_FILENO : STDERR_FILENO;
}

}  // namespace

bool StreamFailure::IsReaderGone() const {
    return m_systemNumber == EPIPE;
}

std::string StreamFailure::Words() const {
    return modSystemFailure::Words(m_systemNumber);
}

namespace modHostConsole {

void Prepare() {
    // A file that is opened must never get the number of a stream that the caller has closed: what is printed
    // would go into it.
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) == -1) {
            ::open("/dev/null", O_RDONLY);
        }
    }
    // The failing write reports a reader that went away.
    std::signal(SIGPIPE, SIG_IGN);
}

std::optional<StreamFailure> Write(HostStream stream, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(DescriptorOf(stream), bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return StreamFailure(errno);
        }
    }
    return std::nullopt;
}

bool IsTerminal(HostStream stream) {
    return ::isatty(DescriptorOf(stream)) == 1;
}

std::size_t Width(HostStream stream) {
    winsize size{};
    return ::ioctl(DescriptorOf(stream), TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

bool TakesColours(HostStream stream) {
    return IsTerminal(stream) && modHostProcess::Environment("NO_COLOR").empty();
}

}  // namespace modHostConsole

}  // namespace dorvik
