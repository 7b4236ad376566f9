#include "cli/output/Console.h"

#include "cli/output/modTerminalText.h"
#include "platform/host/modFiles.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>

namespace dorvik {

namespace modConsole {

namespace {

constexpr std::size_t kDefaultWidth = 80;

/// The first failure to write to standard output; 0 while there was none.
int g_outputError = 0;

/// The system's number of the failure; 0 if all of it was written.
int Write(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written > 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

std::size_t WidthOf(int descriptor) {
    winsize size{};
    if (::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
    return kDefaultWidth;
}

}  // namespace

void PrepareStreams() {
    // A file that is opened must never get the number of a stream that the caller has closed: what is printed
    // would go into it.
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) == -1) {
            ::open("/dev/null", O_RDONLY);
        }
    }
    // A reader that goes away shows in the failing write.
    std::signal(SIGPIPE, SIG_IGN);
}

void PrintData(std::string_view data) {
    if (g_outputError == 0) {
        g_outputError = Write(STDOUT_FILENO, data);
    }
}

void Print(std::string_view text) {
    PrintData(modTerminalText::HarmlessLines(text, OutputIsColoured()));
}

std::string OutputFailure() {
    return g_outputError == 0 || g_outputError == EPIPE
               ? std::string()
               : std::generic_category().message(g_outputError);
}

void PrintError(std::string_view sentence) {
    PrintErrorLine("dorvik: " + std::string(sentence));
}

void PrintErrorLine(std::string_view line) {
    PrintErrorAsIs(modTerminalText::Harmless(line) + "\n");
}

void PrintErrorAsIs(std::string_view text) {
    Write(STDERR_FILENO, text);
}

bool OutputIsTerminal() {
    return ::isatty(STDOUT_FILENO) == 1;
}

bool ErrorIsTerminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

std::size_t OutputWidth() {
    return WidthOf(STDOUT_FILENO);
}

bool OutputIsColoured() {
    const char* refused = std::getenv("NO_COLOR");
    return OutputIsTerminal() && (refused == nullptr || *refused == '\0');
}

std::size_t ErrorWidth() {
    return WidthOf(STDERR_FILENO);
}

std::string ShownPath(std::string_view path) {
    const std::filesystem::path host = modFiles::HostPath(path);
    // A Windows path that cannot exist here is shown as the project file has it.
    return host.empty() ? std::string(path) : host.string();
}

}  // namespace modConsole

MessageAnswer ConsoleMessageBox::Show(const MessageText& message) {
    modConsole::PrintError(message.Text);
    return Refusal(message.Buttons);
}

}  // namespace dorvik
