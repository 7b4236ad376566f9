#pragma once

#include "parser/IFileParser.h"
#include "parser/ParserEvent.h"
#include "source/LayoutReader.h"
#include "source/LineType.h"
#include "source/Location.h"
#include "source/VirtualSourceFile.h"
#include "source/modSource.h"
#include "source/modVOSource.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class VirtualObject;

/// Parser states. The project review numbers its own states in the same range.
enum class FileParserState : std::int32_t {
    None = 0,  // before InitialiseSourceFileReview
    BeginSourceFile = 15,
    SourceFileHeader = 16,
    Layout = 18,
    DeclarationLine = 19,
    EnumBodyLine = 20,
    TypeBodyLine = 21,
    ProcedureBodyLine = 22,
    ProcedureHeader = 23,
    EndSourceFile = 24,
    Failed = 29,
    Stopped = 30,
    Finished = 36,
};

/// Parses one source file as a state machine and fires the parser events. It recognises the sections of a
/// file only by their order: header, layout, declarations, procedures.
///
///   From  Condition               To  Events
///   15    the file has a header   16  3
///   15    it has none             19  3, 9
///   16    layout start            18  6
///   16    other line              16  5 on a component line
///   18    another object          18  7
///   18    no more objects         19  8, 9
///   19    procedure definition    22  27, 28, 29 for each argument
///   19    enum start              20  10, 14
///   19    type start              21  10, 21
///   19    other line              19  10, and by the line 11, 12 and 13, 18 and 19, 20 or 25
///   20    end of enum             19  17
///   20    other line              20  15, 16
///   21    end of type             19  24
///   21    other line              21  22, 23
///   22    end of procedure        23  34
///   22    other line              22  30, and by the line 31, 32 or 33
///   23    procedure definition    22  28, 29 for each argument
///   23    other line              23  none
///   any that reads, end of file   24  27 if the state was 19
///   24                            36  35
///
/// Event 4 comes first for each line that is read. One tick is one logical line; the state operation
/// runs once for each statement of it. An error inside a state operation is logged and gives state 29.
class VB6Parser : public IFileParser {
public:
    void
    InitialiseSourceFileReview(VirtualSourceFile& sourceFile, VB6ParserState& parserState) override;
    void HookupCallback(IFileParserEvents& callback) override;
    void Dispose() override;
    void UnhookCallback() override;
    void ReviewTick(std::int32_t& characters, TickResult& result) override;

    FileParserState CurrentState() const { return m_currentState; }

private:
    using StateOperation = FileParserState (VB6Parser::*)();
    using VirtualObjects = modVOSource::VirtualObjects;
    struct StateRow;
    struct BlockKind;
    struct ItemKind;
    struct ArgumentKind;

    // Tick and reading
    void RunStatements(std::int32_t& characters, TickResult& result);
    FileParserState DetermineFileParserStatus();
    bool NextSourceLineRequired(FileParserState state) const;
    void FetchNextSourceLine(std::int32_t& characters);
    void EndReading();
    /// True if a line label was processed.
    bool PublishSourceLine();
    void SetFirstStatement(bool isLabelProcessed);
    void TakeNextStatement();
    bool ReadLineFromSourceFile(std::int32_t& characters);
    void ClassifyAndCountLine();
    void UpdateCommentBlock(bool isLineRead);
    void FireParserEvent(ParserEvent event);
    /// Raises `kObjectNotSet` if the object is not in scope.
    VirtualObject& ObjectInScope(std::string_view name) const;

    // Begin and end of the file, header, layout
    FileParserState State_BeginSourceFile();
    FileParserState State_SourceFileHeader();
    void State_Component();
    FileParserState State_BeginLayout();
    FileParserState State_Layout();
    FileParserState State_EndLayout();
    FileParserState State_EndSourceFile();
    void CollectLayoutLines();
    void AppendLayoutLine();
    /// Records in the file that its layout could not be read further than the layout line of that index.
    void RecordLayoutFault(std::size_t lineIndex, std::string reason);
    void FireLayoutEvent(VirtualObject& layoutProperties, VirtualObject& layout);
    void FireControlEvent(
        VirtualObject& control,
        std::shared_ptr<VirtualObject> properties,
        const modVOSource::LayoutControl& found);
    /// The object "Layout" in scope, which is created and attached if there is none.
    VirtualObject& LayoutObject();

    // Declarations
    FileParserState State_BeginDeclarations();
    FileParserState State_DeclarationLine();
    void State_EndDeclarations();
    FileParserState State_EnumBodyLine();
    FileParserState State_TypeBodyLine();
    FileParserState ProcessDeclaration(std::string_view statement);
    void ProcessEnumDeclaration(std::string_view scope, std::string_view name);
    void ProcessTypeDeclaration(std::string_view scope, std::string_view name);
    void BeginBlock(const BlockKind& kind, std::string_view scope, std::string_view name);
    void ProcessEnumElement(std::string_view text);
    void ProcessTypeElement(std::string_view text);
    void ProcessEventDeclaration(
        std::string_view statement, std::string_view name, std::string_view scope);
    void
    ProcessDeclareStatement(std::string_view statement, const modSource::DeclareStatement& declare);
    void ProcessImplementsStatement(std::string_view library, std::string_view interfaceName);
    void
    ProcessConstDeclaration(std::string_view statement, std::string_view parent, ParserEvent event);
    void ProcessVariableDeclaration(
        std::string_view statement, std::string_view parent, ParserEvent event);
    void FireItemEvents(
        const ItemKind& kind,
        const VirtualObjects& items,
        std::string_view parent,
        ParserEvent event);
    void AddEventSource(const VirtualObject& variable);
    void FireArgumentEvents(const ArgumentKind& kind, const modSource::ArgumentInfo& info);
    /// Attaches the object for this one event.
    void
    FireEventFor(std::shared_ptr<VirtualObject> object, std::string_view name, ParserEvent event);

    // Procedures
    FileParserState State_ProcedureHeader();
    FileParserState State_BeginProcedure(const modSource::ProcedureDefinition& procedure);
    FileParserState State_ProcedureBodyLine();
    FileParserState EndProcedure();
    bool IsEventProcedure(std::string_view name) const;
    void ProcessProcedureArguments(const modSource::ArgumentInfo& info);
    void ProcessLineLabel(std::string_view line);

    VB6ParserState* m_parserState = nullptr;
    VirtualSourceFile* m_sourceFile = nullptr;
    IFileParserEvents* m_callback = nullptr;
    FileParserState m_currentState = FileParserState::None;

    std::int32_t m_complexityTotal = 0;
    std::int32_t m_complexityMaximum = 0;
    std::int32_t m_procedureCount = 0;
    std::int32_t m_complexity = 0;  // of the current procedure

    SourceLine m_line;
    LineType m_lineType = LineType::Blank;
    LineType m_previousLineType = LineType::CommentOnly;  // of the last line that was not blank
    std::int32_t m_sourceLineNumber = 0;                  // 1-based, physical
    bool m_isMultiStatement = false;
    std::string m_statementsText;            // the line of several statements
    std::string_view m_remainingStatements;  // of that text, after the current statement
    bool m_hasMoreStatements = false;        // the line has a further statement

    std::string m_layoutName;
    std::vector<std::string> m_layoutLines;
    std::vector<std::int32_t> m_layoutLineNumbers;  // the physical lines of `m_layoutLines`
    std::optional<LayoutReader> m_layoutReader;     // over the layout lines
    std::int32_t m_layoutCharacters = 0;
    std::int32_t m_controlOrdinal = 0;
    std::int32_t m_objectCount = 0;  // `End` lines of the layout

    /// The comment lines above the current line. It is shared with the parser state, so lines are only appended.
    std::shared_ptr<std::string> m_commentBlock;
    bool m_isHeaderCommentPending = true;
};

}  // namespace dorvik
