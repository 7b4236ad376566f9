#include "SessionCommands.h"

#include "SessionDumps.h"
#include "base/modText.h"
#include "platform/host/modHostPath.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/session/DialogDump.h"
#include "workstation/session/HostDump.h"
#include "workstation/session/Session.h"
#include "workstation/session/SessionPlayer.h"
#include "workstation/session/modResultsViewCommands.h"

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
    return word.empty() ? std::string() : modHostPath::ToProgram(modHostPath::FromUser(word));
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
    return words.empty() || words.front() == "all" || Number(words.front()) > 0;
}

bool IsFileNumber(const SessionWords& words) {
    return Number(words.front()) > 0;
}

bool IsExpectation(const SessionWords& words) {
    return modSessionDumps::Understands(SessionWords(words.begin(), words.end() - 2));
}

// ---- the commands ----

/// A command without words.
template <SessionRefusal (Session::*Command)()>
SessionRefusal OnBench(SessionPlayer& player, const SessionWords& /*words*/) {
    return (player.Bench().*Command)();
}

SessionRefusal Setting(SessionPlayer& player, const SessionWords& words) {
    player.Bench().SetSetting(words[0], words[1]);
    return {};
}

SessionRefusal Start(SessionPlayer& player, const SessionWords& words) {
    return player.Bench().Start(words.empty() ? kStartupMode : Number(words[0]));
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

SessionRefusal CancelAt(SessionPlayer& player, const SessionWords& words) {
    player.Bench().Screen().CancelAt(Number(words[0]));
    return {};
}

template <bool Visible>
SessionRefusal ShowBench(SessionPlayer& player, const SessionWords& /*words*/) {
    return player.Bench().ShowBench(Visible);
}

SessionRefusal Results(SessionPlayer& player, const SessionWords& words) {
    return player.Bench().OpenResults(Path(words[0]));
}

SessionRefusal View(SessionPlayer& player, const SessionWords& words) {
    return player.Bench().SwitchView(words[0] == "list" ? kViolationList : kHotspotView);
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
    player.Expect(words);
    return {};
}

// What the user does in the environment.

SessionRefusal Open(SessionPlayer& player, const SessionWords& words) {
    return modHostCommands::Open(player.Bench().Host(), Path(words[0]));
}

SessionRefusal Save(SessionPlayer& player, const SessionWords& words) {
    return modHostCommands::Save(
        player.Bench().Host(), words.empty() ? std::nullopt : std::optional(words[0]));
}

/// A command with one name, or with two.
template <SessionRefusal (*Command)(ISessionHost&, std::string_view)>
SessionRefusal OnHost(SessionPlayer& player, const SessionWords& words) {
    return Command(player.Bench().Host(), words[0]);
}

template <SessionRefusal (*Command)(ISessionHost&, std::string_view, std::string_view)>
SessionRefusal OnHost(SessionPlayer& player, const SessionWords& words) {
    return Command(player.Bench().Host(), words[0], words[1]);
}

/// A command with a name and a switch.
template <SessionRefusal (*Command)(ISessionHost&, std::string_view, bool)>
SessionRefusal OnHost(SessionPlayer& player, const SessionWords& words) {
    return Command(player.Bench().Host(), words[0], modSessionWords::IsOn(words[1]));
}

/// A command on a line of a file, with a text or without.
template <
    SessionRefusal (*Command)(ISessionHost&, std::string_view, std::int32_t, std::string_view)>
SessionRefusal OnCode(SessionPlayer& player, const SessionWords& words) {
    return Command(player.Bench().Host(), words[0], Number(words[1]), words[2]);
}

template <SessionRefusal (*Command)(ISessionHost&, std::string_view, std::int32_t)>
SessionRefusal OnCode(SessionPlayer& player, const SessionWords& words) {
    return Command(player.Bench().Host(), words[0], Number(words[1]));
}

// What the user does in the document of the bench.

template <typename Command>
SessionRefusal InDocument(SessionPlayer& player, const Command& command) {
    udocDorvik* const document = player.Bench().Document();
    if (document == nullptr) {
        return Session::NotStarted();
    }
    return command(document->Results(), document->Controls());
}

/// A number as the commands of the document count; 0, which nothing has, for a negative one.
std::size_t Position(std::string_view word) {
    return static_cast<std::size_t>(std::max(0, Number(word)));
}

SessionRefusal File(SessionPlayer& player, const SessionWords& words) {
    return InDocument(player, [&](ResultsView&, WorkbenchControls& controls) {
        return modResultsViewCommands::ChooseFile(controls, words[0]);
    });
}

SessionRefusal Procedure(SessionPlayer& player, const SessionWords& words) {
    return InDocument(player, [&](ResultsView&, WorkbenchControls& controls) {
        return modResultsViewCommands::ChooseProcedure(controls, words[0]);
    });
}

template <SessionRefusal (*Command)(const ResultsView&, WorkbenchControls&, std::size_t)>
SessionRefusal AtPosition(SessionPlayer& player, const SessionWords& words) {
    return InDocument(player, [&](ResultsView& view, WorkbenchControls& controls) {
        return Command(view, controls, Position(words[0]));
    });
}

SessionRefusal Complete(SessionPlayer& player, const SessionWords& words) {
    return InDocument(player, [&](ResultsView& view, WorkbenchControls& controls) {
        return modResultsViewCommands::Complete(
            view, controls, Position(words[0]), modSessionWords::IsOn(words[1]));
    });
}

template <SessionRefusal (*Command)(const ResultsView&, WorkbenchControls&, std::string_view, bool)>
SessionRefusal Order(SessionPlayer& player, const SessionWords& words) {
    return InDocument(player, [&](ResultsView& view, WorkbenchControls& controls) {
        return Command(view, controls, words[0], /*descending=*/words.size() > 1);
    });
}

SessionRefusal Ungroup(SessionPlayer& player, const SessionWords& words) {
    return InDocument(player, [&](ResultsView& view, WorkbenchControls& controls) {
        return modResultsViewCommands::Ungroup(view, controls, words[0]);
    });
}

bool IsOrder(const SessionWords& words) {
    return words.size() == 1 || words[1] == "desc";
}

constexpr Row kRows[] = {
    {"setting", "tt", Setting},
    {"open", "t", Open},
    {"close", "t", OnHost<modHostCommands::Close>},
    {"rename", "tt", OnHost<modHostCommands::Rename>},
    {"activate", "t", OnHost<modHostCommands::Activate>},
    {"select-file", "t", OnHost<modHostCommands::SelectFile>},
    {"dirty", "ts", OnHost<modHostCommands::SetDirty>},
    {"unsaved", "ts", OnHost<modHostCommands::SetNeverSaved>},
    {"edit", "tnt", OnCode<modHostCommands::Edit>},
    {"insert", "tnt", OnCode<modHostCommands::Insert>},
    {"delete", "tn", OnCode<modHostCommands::Delete>},
    {"save", "T", Save},
    {"start", "N", Start},
    {"startup-complete", "", OnBench<&Session::StartupComplete>},
    {"begin-shutdown", "", OnBench<&Session::BeginShutdown>},
    {"stop", "", OnBench<&Session::Stop>},
    {"answer", "t", Answer, IsAnswer},
    {"choose", "t", Choose},
    {"menu", "t", Menu},
    {"dialog", "tTT", Dialog, modDialogDump::IsDialogCommand},
    {"tick", "T", Tick, IsTick},
    {"cancel", "", OnBench<&Session::CancelReview>},
    {"cancel-at", "n", CancelAt, IsFileNumber},
    {"show", "", ShowBench<true>},
    {"hide", "", ShowBench<false>},
    {"results", "t", Results},
    {"view", "t", View, IsView},
    {"file", "t", File},
    {"procedure", "t", Procedure},
    {"row", "n", AtPosition<modResultsViewCommands::ChooseRow>},
    {"complete", "ns", Complete},
    {"sort", "tT", Order<modResultsViewCommands::Sort>, IsOrder},
    {"group", "tT", Order<modResultsViewCommands::Group>, IsOrder},
    {"ungroup", "t", Ungroup},
    {"header", "n", AtPosition<modResultsViewCommands::ClickHeader>},
    {"item", "n", AtPosition<modResultsViewCommands::ChooseItem>},
    {"goto", "", OnBench<&Session::GotoSource>},
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
