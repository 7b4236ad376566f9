#include "cli/output/Console.h"

#include "cli/output/modTerminalText.h"
#include "platform/host/modHostConsole.h"
#include "platform/host/modHostPath.h"

#include <optional>

namespace dorvik {

namespace modConsole {

namespace {

constexpr std::size_t kDefaultWidth = 80;

/// The first failure to write to standard output.
std::optional<StreamFailure> g_outputFailure;

std::size_t WidthOf(HostStream stream) {
    const std::size_t width = modHostConsole::Width(stream);
    return width > 0 ? width : kDefaultWidth;
}

}  // namespace

void PrepareStreams() {
    modHostConsole::Prepare();
}

void PrintData(std::string_view data) {
    if (!g_outputFailure) {
        g_outputFailure = modHostConsole::Write(HostStream::Output, data);
    }
}

void Print(std::string_view text) {
    PrintData(modTerminalText::HarmlessLines(text, OutputIsColoured()));
}

std::string OutputFailure() {
    return !g_outputFailure || g_outputFailure->IsReaderGone() ? std::string()
                                                               : g_outputFailure->Words();
}

void PrintError(std::string_view sentence) {
    PrintErrorLine("dorvik: " + std::string(sentence));
}

void PrintErrorLine(std::string_view line) {
    PrintErrorAsIs(modTerminalText::Harmless(line) + "\n");
}

void PrintErrorAsIs(std::string_view text) {
    modHostConsole::Write(HostStream::Error, text);
}

bool OutputIsTerminal() {
    return modHostConsole::IsTerminal(HostStream::Output);
}

bool ErrorIsTerminal() {
    return modHostConsole::IsTerminal(HostStream::Error);
}

std::size_t OutputWidth() {
    return WidthOf(HostStream::Output);
}

bool OutputIsColoured() {
    return modHostConsole::TakesColours(HostStream::Output);
}

std::size_t ErrorWidth() {
    return WidthOf(HostStream::Error);
}

std::string ShownPath(std::string_view path) {
    const HostPath host = modHostPath::FromProgram(path);
    // A Windows path that cannot exist here is shown as the project file has it.
    return host.IsEmpty() ? std::string(path) : modHostPath::Shown(host);
}

}  // namespace modConsole

MessageAnswer ConsoleMessageBox::Show(const MessageText& message) {
    modConsole::PrintError(message.Text);
    return Refusal(message.Buttons);
}

}  // namespace dorvik
