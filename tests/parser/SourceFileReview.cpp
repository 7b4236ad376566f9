#include "parser/SourceFileReview.h"

#include "parser/ScopeName.h"
#include "source/modMemberStats.h"

#include <gtest/gtest.h>

namespace dorvik {

namespace {

std::string WithCrLf(std::string_view text) {
    std::string bytes;
    for (const char character : text) {
        bytes += character == '\n' ? std::string("\r\n") : std::string(1, character);
    }
    return bytes;
}

}  // namespace

SourceFileReview::SourceFileReview(FileType type, std::string_view text)
    : SourceFileReview(type, text, std::make_shared<VB6ParserState>()) {}

SourceFileReview::SourceFileReview(
    FileType type, std::string_view text, std::shared_ptr<VB6ParserState> state)
    : m_state(std::move(state)),
      m_file(std::make_unique<VirtualSourceFile>()),
      m_events(std::make_unique<RecordingParserEvents>(*m_state)) {
    m_folder.Write("source.txt", WithCrLf(text));
    m_file->SetFilename(std::string(m_folder.Path()) + "source.txt");
    m_file->SetFileType(type);
    m_file->Connect();
    if (m_state->FindVirtualObject(scopename::kProject) == nullptr) {
        auto project = std::make_shared<VirtualObject>();
        project->SetHasLSTATS(true);
        m_state->Attach(project, scopename::kProject);
    }
    m_file->FileStats()->SetHasLSTATS(true);
    modMemberStats::InitialiseFileMemberStats(*m_file->FileStats());
    m_state->Attach(m_file->FileStats(), scopename::kFile);
    m_parser.InitialiseSourceFileReview(*m_file, *m_state);
    m_parser.HookupCallback(*m_events);
}

TickResult SourceFileReview::Tick() {
    TickResult result = TickResult::Continue;
    m_parser.ReviewTick(m_characters, result);
    return result;
}

TickResult SourceFileReview::Run() {
    TickResult result = TickResult::Continue;
    while (result == TickResult::Continue) {
        result = Tick();
    }
    return result;
}

std::string SourceFileReview::FileProperty(std::string_view name) {
    const Variant* value = m_file->FileStats()->Properties().Find(name);
    return value == nullptr ? "(none)" : value->AsText();
}

std::vector<std::string>
SourceFileReview::ValuesAt(ParserEvent event, std::string_view object, std::string_view property) {
    std::vector<std::string> values;
    m_events->SetHandler([&](ParserEvent fired) {
        if (fired == event) {
            bool ok = false;
            std::string errorText;
            const Variant value = m_state->GetObjectProperty(object, property, ok, errorText);
            values.push_back(ok ? value.AsText() : errorText);
        }
    });
    Run();
    m_events->SetHandler(nullptr);
    return values;
}

std::string EventsOf(FileType type, std::string_view text) {
    SourceFileReview review(type, text);
    EXPECT_EQ(review.Run(), TickResult::EndOfFile) << text;
    return review.Events().Numbers();
}

std::string EventsOf(std::string_view text) {
    return EventsOf(FileType::Module, text);
}

std::string ModuleText(std::string_view code) {
    return std::string("Attribute VB_Name = \"M\"\n").append(code);
}

std::string FormText(std::string_view controls, std::string_view code) {
    return std::string("VERSION 5.00\nBegin VB.Form F\n")
        .append(controls)
        .append("End\nAttribute VB_Name = \"F\"\n")
        .append(code);
}

std::string PropertyNames(const VirtualObject& object) {
    std::string names;
    for (std::int32_t i = 1; i <= object.Properties().Count(); ++i) {
        names.append(names.empty() ? "" : " ").append(object.Properties().Key(i));
    }
    return names;
}

}  // namespace dorvik
