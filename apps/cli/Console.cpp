#include "cli/Console.h"

#include "platform/modFiles.h"

#include <cstdio>
#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

namespace dorvik {

namespace modConsole {

namespace {

constexpr std::size_t kDefaultWidth = 80;

void Write(std::FILE* stream, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

std::size_t WidthOf(int descriptor) {
    winsize size{};
    if (::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
    return kDefaultWidth;
}

}  // namespace

void Print(std::string_view text) {
    Write(stdout, text);
}

void PrintError(std::string_view sentence) {
    PrintErrorLine("dorvik: " + std::string(sentence));
}

void PrintErrorLine(std::string_view line) {
    Write(stderr, std::string(line) + "\n");
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
