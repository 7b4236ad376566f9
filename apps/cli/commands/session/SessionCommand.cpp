#include "cli/commands/session/SessionCommand.h"

#include "base/modUtf8.h"
#include "cli/output/Console.h"
#include "cli/output/Interrupt.h"
#include "cli/output/modCommandPath.h"
#include "cli/output/modTerminalText.h"
#include "foundation/log/Trap.h"
#include "platform/host/TextFileReader.h"
#include "platform/host/modEncoding.h"
#include "platform/host/modFiles.h"
#include "workstation/session/FileSessionHost.h"
#include "workstation/session/Session.h"
#include "workstation/session/SessionPlayer.h"

#include <optional>

namespace dorvik {

namespace {

constexpr int kUtf8 = 65001;  // the number of its code page

/// The text of the script with LF at the end of each line; nothing where it cannot be read, which is printed.
std::optional<std::string> ReadScript(const std::string& script) {
    std::string text;
    const bool isRead = Handled(
        [&] {
            const std::string path = modCommandPath::Inner(script);
            const bool isUtf8 = modUtf8::IsValid(modFiles::ReadBytes(path));
            TextFileReader reader(path, isUtf8 ? kUtf8 : modEncoding::kDefaultCodePage);
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
