#include "SessionCommands.h"

#include "SessionDumps.h"
#include "base/modText.h"
#include "platform/host/modHostPath.h"
#include "workstation/session/DialogDump.h"
#include "workstation/session/Session.h"
#include "workstation/session/SessionPlayer.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace dorvik::modSessionCommands {

namespace {

constexpr std::int32_t kStartupMode = 1;
constexpr std::int32_t kViolationList = 1;
constexpr std::int32_t kHotspotView = 2;

std::int32_t Number(std::string_view word) {
    return modText::WholeNumber(std::string(word)).value_or(0);
}

/// The program's own path for one of the script, which is seen from the working folder.
std::string Path(const std::string& word) {
    return modHostPath::ToProgram(modHostPath::FromUser(word));
}

// ---- words that have to be one of a few ----

struct AnswerRow {
    std::string_view Word;
    MessageAnswer Answer;
};
constexpr AnswerRow kAnswers[] = {
    {"yes", MessageAnswer::Yes},
    {"no", MessageAnswer::No},
    {"ok", MessageAnswer::Ok},
    {"cancel", MessageAnswer::Cancel},
};

const AnswerRow* FindAnswer(std::string_view word) {
    const auto* const found =
        std::ranges::find_if(kAnswers, [word](const AnswerRow& row) { return row.Word == word; });
    return found == std::end(kAnswers) ? nullptr : found;
}

bool IsAnswer(const SessionWords& words) {
    return FindAnswer(words.front()) != nullptr;
}

bool IsView(const SessionWords& words) {
    return words.front() == "list" || words.front() == "hotspot";
}

bool IsTick(const SessionWords& words) {
    return words.empty() || words.front() == "all" ||
           modText::WholeNumber(words.front()).has_value();
}

bool IsExpectation(const SessionWords& words) {
    return modSessionDumps::Understands(SessionWords(words.begin(), words.end() - 2));
}

// ---- the commands ----

SessionRefusal Setting(SessionPlayer& player, const SessionWords& words) {
    player.Bench().SetSetting(words[0], words[1]);
    return {};
}

SessionRefusal Start(SessionPlayer& player, const SessionWords& words) {
    return player.Bench().Start(words.empty() ? kStartupMode : Number(words[0]));
}

SessionRefusal StartupComplete(SessionPlayer& player, const SessionWords& /*words*/) {
    return player.Bench().StartupComplete();
}

SessionRefusal BeginShutdown(SessionPlayer& player, const SessionWords& /*words*/) {
    return player.Bench().BeginShutdown();
}

SessionRefusal Stop(SessionPlayer& player, const SessionWords& /*words*/) {
    return player.Bench().Stop();
}

SessionRefusal Answer(SessionPlayer& player, const SessionWords& words) {
    player.Bench().Messages().Answer(FindAnswer(words[0])->Answer);
    return {};
}

SessionRefusal Choose(SessionPlayer& player, const SessionWords& words) {
    player.Bench().Screen().QueueChoice(
        words[0] == "cancel" ? std::nullopt : std::optional(Path(words[0])));
    return {};
}

SessionRefusal Menu(SessionPlayer& player, const SessionWords& words) {
    return player.Bench().Menu(words[0]);
}

SessionRefusal Dialog(SessionPlayer& player, const SessionWords& words) {
    player.Bench().Screen().QueueStep({player.Line(), words});
    return {};
}

SessionRefusal Tick(SessionPlayer& player, const SessionWords& words) {
    if (words.empty()) {
        return player.Bench().Tick(1);
    }
    return player.Bench().Tick(words[0] == "all" ? std::nullopt : std::optional(Number(words[0])));
}

SessionRefusal Cancel(SessionPlayer& player, const SessionWords& /*words*/) {
    return player.Bench().CancelReview();
}

SessionRefusal CancelAt(SessionPlayer& player, const SessionWords& words) {
    player.Bench().Screen().CancelAt(Number(words[0]));
    return {};
}

SessionRefusal ShowBench(SessionPlayer& player, const SessionWords& /*words*/) {
    return player.Bench().ShowBench(true);
}

SessionRefusal HideBench(SessionPlayer& player, const SessionWords& /*words*/) {
    return player.Bench().ShowBench(false);
}

SessionRefusal Results(SessionPlayer& player, const SessionWords& words) {
    return player.Bench().OpenResults(Path(words[0]));
}

SessionRefusal View(SessionPlayer& player, const SessionWords& words) {
    return player.Bench().SwitchView(words[0] == "list" ? kViolationList : kHotspotView);
}

SessionRefusal Goto(SessionPlayer& player, const SessionWords& /*words*/) {
    return player.Bench().GotoSource();
}

SessionRefusal Summary(SessionPlayer& player, const SessionWords& words) {
    frmReviewSummary* const summary = player.Bench().Screen().Summary();
    if (summary == nullptr) {
        return "the summary is not open";
    }
    return modDialogDump::Apply(words, *summary);
}

SessionRefusal Dump(SessionPlayer& player, const SessionWords& words) {
    return player.Dump(words);
}

SessionRefusal Expect(SessionPlayer& player, const SessionWords& words) {
    return player.Expect(words);
}

constexpr Row kRows[] = {
    {"setting", "tt", Setting},
    {"start", "N", Start},
    {"startup-complete", "", StartupComplete},
    {"begin-shutdown", "", BeginShutdown},
    {"stop", "", Stop},
    {"answer", "t", Answer, IsAnswer},
    {"choose", "t", Choose},
    {"menu", "t", Menu},
    {"dialog", "tTT", Dialog, modDialogDump::IsDialogCommand},
    {"tick", "T", Tick, IsTick},
    {"cancel", "", Cancel},
    {"cancel-at", "n", CancelAt},
    {"show", "", ShowBench},
    {"hide", "", HideBench},
    {"results", "t", Results},
    {"view", "t", View, IsView},
    {"goto", "", Goto},
    {"summary", "tT", Summary, modDialogDump::IsSummaryCommand},
    {"dump", "tT", Dump, modSessionDumps::Understands},
    {"expect", "tttT", Expect, IsExpectation},
};

}  // namespace

const Row* Find(std::string_view name) {
    const auto* const found =
        std::ranges::find_if(kRows, [name](const Row& row) { return row.Name == name; });
    return found == std::end(kRows) ? nullptr : found;
}

bool Understands(const Row& command, const SessionWords& words) {
    return modSessionWords::Fit(words, command.Shape) &&
           (command.Accepts == nullptr || command.Accepts(words));
}

}  // namespace dorvik::modSessionCommands
