#pragma once

#include "parser/RecordingParserEvents.h"
#include "parser/VB6Parser.h"
#include "parser/VB6ParserState.h"
#include "source/VirtualSourceFile.h"
#include "support/TemporaryFolder.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// The review of one source file, without any rules: the text written to a folder, the file connected,
/// "Project" and "File" in scope, and a parser that reports to a recorder.
class SourceFileReview {
public:
    /// Lone line feeds in the text become CR LF.
    SourceFileReview(FileType type, std::string_view text);
    /// The next file of the same project: `state` keeps the objects in scope.
    SourceFileReview(FileType type, std::string_view text, std::shared_ptr<VB6ParserState> state);

    TickResult Tick();
    /// Ticks until a tick does not go on.
    TickResult Run();

    VB6Parser& Parser() { return m_parser; }
    VB6ParserState& State() { return *m_state; }
    const std::shared_ptr<VB6ParserState>& SharedState() const { return m_state; }
    VirtualSourceFile& File() { return *m_file; }
    RecordingParserEvents& Events() { return *m_events; }
    std::int32_t Characters() const { return m_characters; }

    /// A property of the file as text, "(none)" if it has none of that name.
    std::string FileProperty(std::string_view name);
    /// Runs to the end and gives a property of an object in scope each time the event fires.
    std::vector<std::string>
    ValuesAt(ParserEvent event, std::string_view object, std::string_view property);

private:
    test::TemporaryFolder m_folder;
    std::shared_ptr<VB6ParserState> m_state;
    std::unique_ptr<VirtualSourceFile> m_file;
    std::unique_ptr<RecordingParserEvents> m_events;
    VB6Parser m_parser;
    std::int32_t m_characters = 0;  // of the last tick
};

/// The numbers of the events of a file, which is read to its end, with a blank between; of a module if nothing is said.
std::string EventsOf(FileType type, std::string_view text);
std::string EventsOf(std::string_view text);
/// A module with the name attribute, so that its first line of `code` is line 1.
std::string ModuleText(std::string_view code);
/// A form F with those lines of layout inside, followed by the code.
std::string FormText(std::string_view controls, std::string_view code);
/// The names of an object's properties, in order, with a blank between.
std::string PropertyNames(const VirtualObject& object);

}  // namespace dorvik
