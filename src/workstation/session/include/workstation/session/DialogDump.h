#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace dorvik {

class frmOptions;
class frmProgress;
class frmReviewOptions;
class frmReviewSummary;
class ISessionHands;

/// What a session prints of the dialogs, and what it does to them.
namespace modDialogDump {

/// The words of a command after its first one, "dialog" or "summary".
using Words = std::vector<std::string>;
/// Why the bench refuses a command; nothing where the command was done.
using Refusal = std::optional<std::string>;

/// The dumps "options", "summary" and "progress", each a line of JSON.
std::string Dump(const frmReviewOptions& form);
std::string Dump(const frmReviewSummary& form);
/// `form` is null for a session that has shown no progress yet.
std::string Dump(const frmProgress* form);

/// Whether the words make a command, whatever the dialog then says to it.
bool IsDialogCommand(const Words& words);
bool IsSummaryCommand(const Words& words);

/// REQUIRES: `IsDialogCommand`. "ok" and "cancel" close the form.
Refusal Apply(const Words& words, frmReviewOptions& form);
Refusal Apply(const Words& words, frmOptions& form);
/// REQUIRES: `IsSummaryCommand`. The form may be gone after "close".
Refusal Apply(const Words& words, frmReviewSummary& form);

/// A queued `dialog` command and the number of its line.
struct DialogCommand {
    int Line = 0;
    Words Command;
};
struct DialogRefusal {
    int Line = 0;
    std::string Reason;
};

/// What the user does while the form is shown: takes commands off the queue until the form is closed. Without any left it
/// is cancelled. `hands` does the commands, where there is one.
std::vector<DialogRefusal>
Play(std::deque<DialogCommand>& queue, frmReviewOptions& form, ISessionHands* hands = nullptr);
std::vector<DialogRefusal>
Play(std::deque<DialogCommand>& queue, frmOptions& form, ISessionHands* hands = nullptr);

}  // namespace modDialogDump

}  // namespace dorvik
