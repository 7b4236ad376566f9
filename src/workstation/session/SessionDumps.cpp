#include "SessionDumps.h"

#include "settings/SettingsKeys.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"
#include "workstation/session/HostDump.h"
#include "workstation/session/ResultsViewDump.h"
#include "workstation/session/Session.h"
#include "workstation/session/SessionJson.h"

#include <algorithm>
#include <iterator>

namespace dorvik::modSessionDumps {

using modSessionJson::Array;
using modSessionJson::Dump;
using modSessionJson::Key;
using modSessionJson::Member;
using modSessionJson::Object;

namespace {

std::string_view NameOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Critical: return "critical";
        case MessageIcon::Question: return "question";
        case MessageIcon::Exclamation: return "exclamation";
        case MessageIcon::Information: return "information";
        case MessageIcon::None: break;
    }
    return {};
}

std::string_view NameOf(MessageAnswer answer) {
    switch (answer) {
        case MessageAnswer::Ok: return "ok";
        case MessageAnswer::Cancel: return "cancel";
        case MessageAnswer::Yes: return "yes";
        case MessageAnswer::No: return "no";
    }
    return {};
}

SessionRefusal GiveMessages(Session& session, const SessionWords& /*words*/, std::string& json) {
    json = Dump("messages", [&](JsonWriter& writer) {
        Array(writer, "boxes", session.Messages().Boxes(), [&](const SessionMessages::Box& box) {
            Object(writer, [&] {
                Member(writer, "icon", NameOf(box.Message.Icon));
                Member(writer, "text", box.Message.Text);
                Member(writer, "answer", NameOf(box.Answer));
            });
        });
    });
    return {};
}

void WriteItems(JsonWriter& writer, std::string_view key, const CommandControl& bar) {
    Array(writer, key, bar.Items(), [&](const auto& item) {
        Object(writer, [&] {
            const CommandLook& look = item->Look();
            Member(writer, "tag", look.Tag);
            Member(writer, "caption", look.Caption);
            Member(writer, "face", look.Face);
            Member(writer, "enabled", look.Enabled);
            Member(writer, "checked", look.Checked);
            if (item->Kind() == CommandKind::Popup) {
                WriteItems(writer, "items", *item);
            }
        });
    });
}

SessionRefusal GiveMenus(Session& session, const SessionWords& /*words*/, std::string& json) {
    if (!session.IsStarted()) {
        return Session::NotStarted();
    }
    IDEMenus& menus = *session.AddIn().IDEHelper()->DorvikMenus();
    menus.RefreshCheckMarks();
    json = Dump("menus", [&](JsonWriter& writer) {
        WriteItems(writer, "menu", *menus.DorvikMenu());
        WriteItems(writer, "toolbar", *menus.Toolbar());
        WriteItems(writer, "popup", *menus.ListPopupMenu());
    });
    return {};
}

SessionRefusal GiveSettings(Session& session, const SessionWords& /*words*/, std::string& json) {
    json = Dump("settings", [&](JsonWriter& writer) {
        Key(writer, "values");
        Object(writer, [&] {
            for (const auto& [name, value] : session.Settings().List(kWorkbenchKey)) {
                if (const std::string* const text = std::get_if<std::string>(&value)) {
                    Member(writer, name, *text);
                }
            }
        });
    });
    return {};
}

SessionRefusal GiveOptions(Session& session, const SessionWords& /*words*/, std::string& json) {
    json = session.Screen().OptionsDump();
    return json.empty() ? SessionRefusal("the dialog was not opened yet") : SessionRefusal();
}

SessionRefusal GiveProgress(Session& session, const SessionWords& /*words*/, std::string& json) {
    json = session.Screen().ProgressDump();
    return {};
}

SessionRefusal GiveSummary(Session& session, const SessionWords& /*words*/, std::string& json) {
    if (session.Screen().Summary() == nullptr) {
        return "the summary is not open";
    }
    json = modDialogDump::Dump(*session.Screen().Summary());
    return {};
}

SessionRefusal GiveHost(Session& session, const SessionWords& /*words*/, std::string& json) {
    json = modHostDump::DumpHost(session.Host());
    return {};
}

SessionRefusal GiveCode(Session& session, const SessionWords& words, std::string& json) {
    return modHostDump::DumpCode(session.Host(), words[1], json);
}

SessionRefusal GiveState(Session& session, const SessionWords& /*words*/, std::string& json) {
    if (session.Document() == nullptr) {
        return Session::NotStarted();
    }
    udocDorvik& document = *session.Document();
    json = modResultsViewDump::DumpState(
        document.Results(), document.Controls(), session.BackgroundReview() != nullptr);
    return {};
}

/// Of a control of the document.
template <auto DumpOf>
SessionRefusal GiveControl(Session& session, const SessionWords& /*words*/, std::string& json) {
    if (session.Document() == nullptr) {
        return Session::NotStarted();
    }
    json = DumpOf(session.Document()->Controls());
    return {};
}

struct Row {
    std::string_view What;
    SessionRefusal (*Give)(Session&, const SessionWords&, std::string& json);
    bool TakesName = false;
};

constexpr Row kRows[] = {
    {"state", GiveState},
    {"files", GiveControl<modResultsViewDump::DumpFiles>},
    {"procedures", GiveControl<modResultsViewDump::DumpProcedures>},
    {"list", GiveControl<modResultsViewDump::DumpList>},
    {"groups", GiveControl<modResultsViewDump::DumpGroups>},
    {"document", GiveControl<modResultsViewDump::DumpDocument>},
    {"hotspot", GiveControl<modResultsViewDump::DumpHotspot>},
    {"menus", GiveMenus},
    {"options", GiveOptions},
    {"summary", GiveSummary},
    {"progress", GiveProgress},
    {"settings", GiveSettings},
    {"messages", GiveMessages},
    {"host", GiveHost},
    {"code", GiveCode, /*TakesName=*/true},
};

const Row* Find(std::string_view what) {
    const auto* const found =
        std::ranges::find_if(kRows, [what](const Row& row) { return row.What == what; });
    return found == std::end(kRows) ? nullptr : found;
}

}  // namespace

bool Understands(const SessionWords& words) {
    const Row* const row = words.empty() ? nullptr : Find(words.front());
    return row != nullptr && words.size() == (row->TakesName ? 2U : 1U);
}

SessionRefusal Write(Session& session, const SessionWords& words, std::string& json) {
    return Find(words.front())->Give(session, words, json);
}

void Forget(Session& session, std::string_view what) {
    if (what == "messages") {
        session.Messages().Forget();
    } else if (what == "host") {
        session.Host().Calls().Take();
    }
}

}  // namespace dorvik::modSessionDumps
