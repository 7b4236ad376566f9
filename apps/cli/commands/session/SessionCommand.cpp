#include "cli/commands/session/SessionCommand.h"

#include "cli/output/Console.h"
#include "cli/output/modCommandPath.h"
#include "cli/output/modTerminalText.h"
#include "foundation/log/Trap.h"
#include "platform/host/TextFileReader.h"
#include "platform/host/modEncoding.h"
#include "workstation/session/Session.h"
#include "workstation/session/SessionPlayer.h"

#include <optional>

namespace dorvik {

namespace {

/// The text of the script with LF at the end of each line; nothing where it cannot be read, which is printed.
std::optional<std::string> ReadScript(const std::string& script) {
    std::string text;
    const bool isRead = Handled(
        [&] {
            TextFileReader reader(modCommandPath::Inner(script), modEncoding::kDefaultCodePage);
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
    Session session;
    SessionPlayer player(session, [](const std::string& json) {
        modConsole::PrintData(modTerminalText::HarmlessJson(json) + "\n");
    });
    const SessionPlayer::Outcome outcome = player.Play(*text);
    if (outcome.WrongLine > 0) {
        modConsole::PrintErrorLine(
            modConsole::ShownPath(script) + ":" + std::to_string(outcome.WrongLine) + ": " +
            outcome.Fault);
        return ExitCode::NothingDone;
    }
    return outcome.ExpectationsMet ? ExitCode::Passed : ExitCode::Failed;
}

}  // namespace dorvik
