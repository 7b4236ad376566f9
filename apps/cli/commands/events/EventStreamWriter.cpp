#include "EventStreamWriter.h"

#include "cli/commands/review/ProjectStatusText.h"
#include "cli/output/Console.h"
#include "cli/output/modTerminalText.h"
#include "foundation/text/modJson.h"
#include "parser/ScopeName.h"
#include "parser/VBParserEvents.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/VirtualSourceFile.h"

#include <array>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace dorvik {

namespace {

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

constexpr std::size_t kFlushSize = 1 << 16;

/// What an event announces. `Source` among the objects is the parser state itself.
struct AnnouncementRow {
    ParserEvent Event;
    std::array<std::string_view, 2> Objects;
    bool WithLineStats = false;  // of the first object, which ends here
};

constexpr AnnouncementRow kAnnouncements[] = {
    {ParserEvent::BeginProject, {scopename::kProject, scopename::kProjectFile}},
    {ParserEvent::EndProject, {scopename::kProject, scopename::kProjectFile}, true},
    {ParserEvent::BeginFile, {scopename::kFile}},
    {ParserEvent::EndFile, {scopename::kFile}, true},
    {ParserEvent::SourceLine, {scopename::kSource}},
    {ParserEvent::Component, {scopename::kComponent}},
    {ParserEvent::BeginLayout, {scopename::kLayoutProperties, scopename::kLayout}},
    {ParserEvent::EndLayout, {scopename::kLayoutProperties, scopename::kLayout}},
    {ParserEvent::Control, {scopename::kControl, scopename::kControlProperties}},
    {ParserEvent::Const, {scopename::kConst}},
    {ParserEvent::LocalConst, {scopename::kConst}},
    {ParserEvent::Declare, {scopename::kDeclare}},
    {ParserEvent::DeclareArgument, {scopename::kArgument}},
    {ParserEvent::EventArgument, {scopename::kArgument}},
    {ParserEvent::ProcedureArgument, {scopename::kArgument}},
    {ParserEvent::BeginEnum, {scopename::kEnum}},
    {ParserEvent::EndEnum, {scopename::kEnum}, true},
    {ParserEvent::EnumElement, {scopename::kEnumElement}},
    {ParserEvent::Event, {scopename::kEvent}},
    {ParserEvent::Implements, {scopename::kImplements}},
    {ParserEvent::BeginType, {scopename::kType}},
    {ParserEvent::EndType, {scopename::kType}, true},
    {ParserEvent::TypeElement, {scopename::kTypeElement}},
    {ParserEvent::Variable, {scopename::kVariable}},
    {ParserEvent::LocalVariable, {scopename::kVariable}},
    {ParserEvent::Reference, {scopename::kReference}},
    {ParserEvent::BeginProcedure, {scopename::kProcedure}},
    {ParserEvent::EndProcedure, {scopename::kProcedure}, true},
    {ParserEvent::LineLabel, {scopename::kLineLabel}},
};

constexpr std::string_view kSourceProperties[] = {
    propertyname::kLine,
    propertyname::kPhysicalLine,
    propertyname::kStrippedLine,
    propertyname::kIsMultiStatement,
    propertyname::kCommentBlock};

constexpr std::string_view kLineStats[] = {
    propertyname::kTotalLineCount,
    propertyname::kCodeLineCount,
    propertyname::kBlankLineCount,
    propertyname::kCommentLineCount,
    propertyname::kInLineCommentCount};

const AnnouncementRow* FindAnnouncement(ParserEvent event) {
    for (const AnnouncementRow& row : kAnnouncements) {
        if (row.Event == event) {
            return &row;
        }
    }
    return nullptr;
}

std::string SourceProperty(const VB6ParserState& state, std::string_view property) {
    bool found = false;
    std::string errorText;
    return state.GetObjectProperty(scopename::kSource, property, found, errorText).AsText();
}

void WriteSource(Writer& writer, const VB6ParserState& state) {
    for (const std::string_view property : kSourceProperties) {
        modJson::Key(writer, property);
        modJson::Text(writer, SourceProperty(state, property));
    }
}

void WriteProperties(Writer& writer, const VirtualObject& object) {
    const KeyedArrayList& properties = object.Properties();
    for (std::int32_t index = 1; index <= properties.Count(); ++index) {
        modJson::Key(writer, properties.Key(index));
        modJson::Text(writer, properties.Item(index).AsText());
    }
}

void WriteObjects(Writer& writer, const AnnouncementRow* row, const VB6ParserState& state) {
    modJson::Key(writer, "objects");
    writer.StartObject();
    if (row != nullptr) {
        for (const std::string_view name : row->Objects) {
            const VirtualObject* object = state.FindVirtualObject(name);
            if (object == nullptr && name != scopename::kSource) {
                continue;
            }
            modJson::Key(writer, name);
            writer.StartObject();
            object != nullptr ? WriteProperties(writer, *object) : WriteSource(writer, state);
            writer.EndObject();
        }
    }
    writer.EndObject();
}

void WriteLineStats(Writer& writer, const VirtualObject& object) {
    modJson::Key(writer, "lineStats");
    writer.StartObject();
    for (const std::string_view name : kLineStats) {
        std::int32_t count = 0;
        object.LineStats().SourceLineStatByName(name, count);
        modJson::Key(writer, name);
        writer.Int(count);
    }
    writer.EndObject();
}

void WritePosition(Writer& writer, const VB6ParserState& state, const std::string* shownFile) {
    modJson::Key(writer, "location");
    writer.Int(static_cast<int>(state.CurrentLocation()));
    modJson::Key(writer, "file");
    shownFile != nullptr ? modJson::Text(writer, *shownFile) : static_cast<void>(writer.Null());
    modJson::Key(writer, "line");
    writer.Int(state.SourceLineNumber());
    modJson::Key(writer, "physicalLines");
    bool found = false;
    std::string errorText;
    writer.Int(state
                   .GetObjectProperty(
                       scopename::kSource, propertyname::kPhysicalLineCount, found, errorText)
                   .AsLong());
    modJson::Key(writer, "lineType");
    writer.Int(static_cast<int>(state.CurrentLineType()));
    modJson::Key(writer, "statement");
    modJson::Text(writer, state.SourceStatement());
    modJson::Key(writer, "scope");
    writer.StartArray();
    for (const std::string& name : state.ScopeNames()) {
        modJson::Text(writer, name);
    }
    writer.EndArray();
}

}  // namespace

EventStreamWriter::~EventStreamWriter() {
    Flush();
}

void EventStreamWriter::EventFired(
    dorvik::ParserEvent event, const VB6ParserState& state, const VirtualSourceFile* file) {
    if (file != m_file) {
        m_file = file;
        m_shownFile = file != nullptr ? modConsole::ShownPath(file->Filename()) : std::string();
    }
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    writer.StartObject();
    modJson::Key(writer, "event");
    writer.Int(static_cast<int>(event));
    modJson::Key(writer, "name");
    modJson::Text(writer, VBParserEvents::ParserEventText(static_cast<std::int32_t>(event)));
    WritePosition(writer, state, file != nullptr ? &m_shownFile : nullptr);
    const AnnouncementRow* row = FindAnnouncement(event);
    WriteObjects(writer, row, state);
    if (row != nullptr && row->WithLineStats) {
        if (const VirtualObject* object = state.FindVirtualObject(row->Objects.front())) {
            WriteLineStats(writer, *object);
        }
    }
    writer.EndObject();
    m_pending.append(buffer.GetString(), buffer.GetSize()).append("\n");
    if (m_pending.size() > kFlushSize) {
        Flush();
    }
}

void EventStreamWriter::FileFailed(const VirtualSourceFile& file) {
    m_isComplete = false;
    Flush();
    const bool opened = file.ReviewStatus() == SourceFileStatus::Good || file.ReadingFailed();
    std::string text = opened ? "could not be read to its end" : "could not be opened";
    if (!file.Unreadable().empty()) {
        text = file.Unreadable();
    } else if (const auto& fault = file.FoundLayoutFault()) {
        text += ", because " + fault->Clause();
    }
    modConsole::PrintError(
        "the source file '" + modConsole::ShownPath(file.Filename()) + "' " + text);
}

void EventStreamWriter::LayoutCut(const VirtualSourceFile& file, const LayoutFault& fault) {
    m_isComplete = false;
    Flush();
    modConsole::PrintError(CutLayoutText(file.Filename(), fault));
}

bool EventStreamWriter::StopRequested() {
    return m_interrupt.Requested();
}

void EventStreamWriter::Flush() {
    modConsole::PrintData(modTerminalText::HarmlessJson(m_pending));
    m_pending.clear();
}

}  // namespace dorvik
