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

SessionRefusal WriteMessages(Session& session, const SessionWords& /*words*/, JsonWriter& writer) {
    writer.Key("boxes");
    writer.StartArray();
    for (const SessionMessages::Box& box : session.Messages().Boxes()) {
        writer.StartObject();
        modSessionJson::Member(writer, "icon", NameOf(box.Message.Icon));
        modSessionJson::Member(writer, "text", box.Message.Text);
        modSessionJson::Member(writer, "answer", NameOf(box.Answer));
        writer.EndObject();
    }
    writer.EndArray();
    return {};
}

void WriteItems(std::string_view key, const CommandControl& bar, JsonWriter& writer) {
    modSessionJson::Key(writer, key);
    writer.StartArray();
    for (const auto& item : bar.Items()) {
        const CommandLook& look = item->Look();
        writer.StartObject();
        modSessionJson::Member(writer, "tag", look.Tag);
        modSessionJson::Member(writer, "caption", look.Caption);
        modSessionJson::Member(writer, "face", look.Face);
        modSessionJson::Member(writer, "enabled", look.Enabled);
        modSessionJson::Member(writer, "checked", look.Checked);
        if (item->Kind() == CommandKind::Popup) {
            WriteItems("items", *item, writer);
        }
        writer.EndObject();
    }
    writer.EndArray();
}

SessionRefusal WriteMenus(Session& session, const SessionWords& /*words*/, JsonWriter& writer) {
    if (!session.IsStarted()) {
        return Session::NotStarted();
    }
    IDEMenus& menus = *session.AddIn().IDEHelper()->DorvikMenus();
    menus.RefreshCheckMarks();
    WriteItems("menu", *menus.DorvikMenu(), writer);
    WriteItems("toolbar", *menus.Toolbar(), writer);
    WriteItems("popup", *menus.ListPopupMenu(), writer);
    return {};
}

SessionRefusal WriteSettings(Session& session, const SessionWords& /*words*/, JsonWriter& writer) {
    writer.Key("values");
    writer.StartObject();
    for (const auto& [name, value] : session.Settings().List(kWorkbenchKey)) {
        if (const std::string* const text = std::get_if<std::string>(&value)) {
            modSessionJson::Member(writer, name, *text);
        }
    }
    writer.EndObject();
    return {};
}

std::string TextOf(const rapidjson::Document& dump) {
    rapidjson::StringBuffer text;
    JsonWriter writer(text);
    dump.Accept(writer);
    return {text.GetString(), text.GetSize()};
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
    json = TextOf(modDialogDump::Dump(*session.Screen().Summary()));
    return {};
}

/// The members after the first.
template <SessionRefusal (*WriteMembers)(Session&, const SessionWords&, JsonWriter&)>
SessionRefusal Give(Session& session, const SessionWords& words, std::string& json) {
    rapidjson::StringBuffer text;
    JsonWriter writer(text);
    writer.StartObject();
    modSessionJson::Member(writer, "dump", words.front());
    SessionRefusal refusal = WriteMembers(session, words, writer);
    if (!refusal) {
        writer.EndObject();
        json.assign(text.GetString(), text.GetSize());
    }
    return refusal;
}

SessionRefusal WriteHost(Session& session, const SessionWords& /*words*/, JsonWriter& writer) {
    modHostDump::WriteHost(session.Host(), writer);
    return {};
}

SessionRefusal WriteCode(Session& session, const SessionWords& words, JsonWriter& writer) {
    return modHostDump::WriteCode(session.Host(), words[1], writer);
}

SessionRefusal GiveState(Session& session, const SessionWords& /*words*/, std::string& json) {
    if (session.Document() == nullptr) {
        return Session::NotStarted();
    }
    udocDorvik& document = *session.Document();
    const bool isReviewing = session.BackgroundReview() != nullptr;
    json =
        TextOf(modResultsViewDump::DumpState(document.Results(), document.Controls(), isReviewing));
    return {};
}

/// Of a control of the document.
template <auto Dump>
SessionRefusal GiveControl(Session& session, const SessionWords& /*words*/, std::string& json) {
    if (session.Document() == nullptr) {
        return Session::NotStarted();
    }
    json = TextOf(Dump(session.Document()->Controls()));
    return {};
}

struct Row {
    std::string_view What;
    SessionRefusal (*Write)(Session&, const SessionWords&, std::string& json);
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
    {"menus", Give<WriteMenus>},
    {"options", GiveOptions},
    {"summary", GiveSummary},
    {"progress", GiveProgress},
    {"settings", Give<WriteSettings>},
    {"messages", Give<WriteMessages>},
    {"host", Give<WriteHost>},
    {"code", Give<WriteCode>, /*TakesName=*/true},
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
    return Find(words.front())->Write(session, words, json);
}

void Forget(Session& session, std::string_view what) {
    if (what == "messages") {
        session.Messages().Forget();
    } else if (what == "host") {
        session.Host().Calls().Take();
    }
}

}  // namespace dorvik::modSessionDumps
