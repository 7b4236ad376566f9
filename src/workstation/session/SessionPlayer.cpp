#include "workstation/session/SessionPlayer.h"

#include "SessionCommands.h"
#include "SessionDumps.h"
#include "base/modText.h"
#include "workstation/session/ISessionHands.h"
#include "workstation/session/Session.h"
#include "workstation/session/SessionJson.h"

#include <rapidjson/document.h>
#include <utility>

namespace dorvik {

namespace {

std::string TextOf(const rapidjson::Value& value) {
    if (value.IsString()) {
        return {value.GetString(), value.GetStringLength()};
    }
    rapidjson::StringBuffer text;
    JsonWriter writer(text);
    value.Accept(writer);
    return {text.GetString(), text.GetSize()};
}

/// The value at a path into a dump, "rows.3.Title": members by name, items by number from 1. Null where there is none.
const rapidjson::Value* ValueAt(const rapidjson::Value& dump, std::string_view path) {
    const rapidjson::Value* value = &dump;
    for (const std::string_view step : modText::Split(path, '.')) {
        const std::optional<std::int32_t> number = modText::WholeNumber(std::string(step));
        if (value->IsObject()) {
            const auto member = value->FindMember(
                rapidjson::Value(step.data(), static_cast<rapidjson::SizeType>(step.size())));
            if (member == value->MemberEnd()) {
                return nullptr;
            }
            value = &member->value;
        } else if (
            value->IsArray() && number && *number >= 1 &&
            static_cast<rapidjson::SizeType>(*number) <= value->Size()) {
            value = &(*value)[static_cast<rapidjson::SizeType>(*number) - 1];
        } else {
            return nullptr;
        }
    }
    return value;
}

}  // namespace

SessionPlayer::SessionPlayer(Session& session, Output output)
    : m_session(session), m_output(std::move(output)) {}

void SessionPlayer::SetHands(ISessionHands* hands) {
    m_hands = hands;
    m_session.Screen().SetHands(hands);
}

SessionPlayer::Outcome SessionPlayer::Play(std::string_view script) {
    m_line = 0;
    m_expectationsMet = true;
    const Subscription refused = m_session.Screen().Refused.Subscribe(
        [this](std::int32_t line, const std::string& why) { PrintRefusal(line, why); });
    while (!script.empty()) {
        if (m_session.IsInterrupted()) {
            return {.ExpectationsMet = m_expectationsMet, .Interrupted = true};
        }
        ++m_line;
        const std::size_t end = script.find('\n');
        std::string_view line = script.substr(0, end);
        script.remove_prefix(end == std::string_view::npos ? script.size() : end + 1);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        std::string fault = PlayLine(line);
        if (!fault.empty()) {
            return {m_expectationsMet, m_line, std::move(fault)};
        }
    }
    return {.ExpectationsMet = m_expectationsMet, .Interrupted = m_session.IsInterrupted()};
}

std::string SessionPlayer::PlayLine(std::string_view line) {
    std::optional<SessionWords> words = modSessionWords::Split(line);
    if (!words) {
        return "a quoted word does not end as it should";
    }
    if (words->empty()) {
        return {};
    }
    const std::string name = words->front();
    words->erase(words->begin());
    const modSessionCommands::Row* const command = modSessionCommands::Find(name);
    if (command == nullptr) {
        return "there is no command '" + name + "'";
    }
    if (!modSessionCommands::Understands(*command, *words)) {
        return "'" + name + "' does not take these words";
    }
    SessionRefusal refusal;
    if (m_hands == nullptr || !m_hands->Do(name, *words, refusal)) {
        refusal = command->Do(*this, *words);
    }
    if (refusal) {
        PrintRefusal(m_line, *refusal);
    }
    if (m_hands != nullptr) {
        m_hands->Done(refusal);
    }
    return {};
}

void SessionPlayer::PrintRefusal(std::int32_t line, std::string_view why) {
    m_output(modSessionJson::Line([&](JsonWriter& writer) {
        modSessionJson::Member(writer, "refused", why);
        modSessionJson::Member(writer, "line", line);
    }));
}

SessionRefusal SessionPlayer::Dump(const SessionWords& words) {
    std::string json;
    SessionRefusal refusal = modSessionDumps::Write(m_session, words, json);
    if (!refusal) {
        m_output(json);
        modSessionDumps::Forget(m_session, words.front());
    }
    return refusal;
}

void SessionPlayer::Expect(const SessionWords& words) {
    const SessionWords dump(words.begin(), words.end() - 2);
    const std::string& path = words[words.size() - 2];
    std::string json;
    rapidjson::Document document;
    // What the bench cannot show has no values.
    if (!modSessionDumps::Write(m_session, dump, json)) {
        document.Parse(json.c_str(), json.size());
    }
    const rapidjson::Value* const value = ValueAt(document, path);
    if (value != nullptr && TextOf(*value) == words.back()) {
        return;
    }
    m_expectationsMet = false;
    m_output(modSessionJson::Line([&](JsonWriter& writer) {
        modSessionJson::Member(writer, "failed", dump.front());
        modSessionJson::Member(writer, "path", path);
        modSessionJson::Key(writer, "is");
        static const rapidjson::Value kAbsent;
        (value == nullptr ? kAbsent : *value).Accept(writer);
        modSessionJson::Member(writer, "line", m_line);
    }));
}

}  // namespace dorvik
