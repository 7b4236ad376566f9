#include "cli/commands/session/SessionCommand.h"

#include "base/modUtf8.h"
#include "cli/output/Console.h"
#include "cli/output/Interrupt.h"
#include "cli/output/modCommandPath.h"
#include "cli/output/modTerminalText.h"
#include "foundation/log/Trap.h"
#include "platform/host/TextFileReader.h"
#include "platform/host/modEncoding.h"
#include "platform/host/modHostPath.h"
#include "platform/host/modHostStream.h"
#include "workstation/session/FileSessionHost.h"
#include "workstation/session/Session.h"
#include "workstation/session/SessionPlayer.h"

#include <optional>
#include <string_view>
#include <utility>

namespace dorvik {

namespace {

constexpr int kUtf8 = 65001;  // the number of its code page
constexpr std::string_view kStandardInput = "-";

/// The text of the script with LF at the end of each line; nothing where it cannot be read, which is printed.
std::optional<std::string> ReadScript(const std::string& script) {
    std::string text;
    const bool isRead = Handled(
        [&] {
            const bool isInput = script == kStandardInput;
            const std::string path = isInput ? script : modCommandPath::Inner(script);
            // Once, since a pipe gives them once.
            std::string bytes = isInput
                                    ? modHostStream::ReadInput()
                                    : modHostStream::ReadAll(modHostPath::FromProgram(path), path);
            const int codePage = modUtf8::IsValid(bytes) ? kUtf8 : modEncoding::kDefaultCodePage;
            TextFileReader reader(std::move(bytes), path, codePage);
            while (!reader.AtEnd()) {
                text.append(reader.ReadLine()).append("\n");
            }
        },
        [&](const BasicError& failure) {
            modConsole::PrintError(
                "cannot read the script '" + modConsole::ShownPath(script) +
                "': " + failure.what());
            return true;
        });
    return isRead ? std::optional(text) : std::nullopt;
}

}  // namespace

ExitCode RunSession(const std::string& script) {
    const std::optional<std::string> text = ReadScript(script);
    if (!text) {
        return ExitCode::NothingDone;
    }
    const Interrupt interrupt;
    FileSessionHost host;
    Session session(host, [&interrupt] { return interrupt.Requested(); });
    SessionPlayer player(session, [](const std::string& json) {
        modConsole::PrintData(modTerminalText::HarmlessJson(json) + "\n");
    });
    const SessionPlayer::Outcome outcome = player.Play(*text);
    if (outcome.Interrupted) {
        modConsole::PrintError("interrupted; the script was not played to its end, and a review at "
                               "that moment has no results");
        return ExitCode::Interrupted;
    }
    if (outcome.WrongLine > 0) {
        modConsole::PrintErrorLine(
            modConsole::ShownPath(script) + ":" + std::to_string(outcome.WrongLine) + ": " +
            outcome.Fault);
        return ExitCode::NothingDone;
    }
    return outcome.ExpectationsMet ? ExitCode::Passed : ExitCode::Failed;
}

}  // namespace dorvik
