#include "parser/VB6Parser.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "foundation/log/Trap.h"
#include "parser/IFileParserEvents.h"
#include "parser/VB6ParserState.h"
#include "platform/host/modHost.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"

#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VB6Parser";

constexpr bool IsCode(LineType type) {
    return type == LineType::Code || type == LineType::CodeWithComment;
}

}  // namespace

struct VB6Parser::StateRow {
    FileParserState State;
    std::string_view Name;
    StateOperation Operation;
};

void VB6Parser::InitialiseSourceFileReview(
    VirtualSourceFile& sourceFile, VB6ParserState& parserState) {
    m_sourceFile = &sourceFile;
    m_parserState = &parserState;
    m_currentState = FileParserState::BeginSourceFile;
    m_previousLineType = LineType::CommentOnly;
    m_isHeaderCommentPending = true;
}

void VB6Parser::HookupCallback(IFileParserEvents& callback) {
    m_callback = &callback;
}

void VB6Parser::Dispose() {
    m_sourceFile = nullptr;
    m_parserState = nullptr;
}

void VB6Parser::UnhookCallback() {
    m_callback = nullptr;
}

void VB6Parser::ReviewTick(std::int32_t& characters, TickResult& result) {
    characters = 0;
    result = TickResult::Continue;
    m_hasMoreStatements = false;
    m_remainingStatements = {};
    const bool isGood = Trap({kModule, "ReviewTick"}, [&] {
        FetchNextSourceLine(characters);
        RunStatements(characters, result);
    });
    if (!isGood) {
        result = TickResult::Failed;
    }
}

void VB6Parser::RunStatements(std::int32_t& characters, TickResult& result) {
    do {
        const FileParserState next = DetermineFileParserStatus();
        characters += std::exchange(m_layoutCharacters, 0);
        if (next == FileParserState::Failed) {
            result = TickResult::Failed;
            return;
        }
        if (next == FileParserState::Stopped) {
            result = TickResult::Stopped;
            return;
        }
        if (next == FileParserState::Finished) {
            result = TickResult::EndOfFile;
            return;
        }
        m_currentState = next;
        modHost::YieldToInput();
        // The input may have ended the review, and the parser with it.
        if (m_parserState == nullptr) {
            result = TickResult::Stopped;
            return;
        }
        if (m_isMultiStatement) {
            TakeNextStatement();
        }
    } while (m_hasMoreStatements);
}

FileParserState VB6Parser::DetermineFileParserStatus() {
    static constexpr StateRow kStates[] = {
        {FileParserState::ProcedureBodyLine,
         "State_ProcedureBodyLine",
         &VB6Parser::State_ProcedureBodyLine},
        {FileParserState::ProcedureHeader,
         "State_ProcedureHeader",
         &VB6Parser::State_ProcedureHeader},
        {FileParserState::DeclarationLine,
         "State_DeclarationLine",
         &VB6Parser::State_DeclarationLine},
        {FileParserState::EnumBodyLine, "State_EnumBodyLine", &VB6Parser::State_EnumBodyLine},
        {FileParserState::TypeBodyLine, "State_TypeBodyLine", &VB6Parser::State_TypeBodyLine},
        {FileParserState::Layout, "State_Layout", &VB6Parser::State_Layout},
        {FileParserState::SourceFileHeader,
         "State_SourceFileHeader",
         &VB6Parser::State_SourceFileHeader},
        {FileParserState::BeginSourceFile,
         "State_BeginSourceFile",
         &VB6Parser::State_BeginSourceFile},
        {FileParserState::EndSourceFile, "State_EndSourceFile", &VB6Parser::State_EndSourceFile},
    };
    for (const StateRow& row : kStates) {
        if (row.State == m_currentState) {
            return Trapped({kModule, row.Name}, FileParserState::Failed, [&] {
                return (this->*row.Operation)();
            });
        }
    }
    return m_currentState == FileParserState::Stopped ? FileParserState::Stopped
                                                      : FileParserState::Failed;
}

bool VB6Parser::NextSourceLineRequired(FileParserState state) const {
    switch (state) {
        case FileParserState::SourceFileHeader: return m_sourceFile->HasHeader();
        case FileParserState::DeclarationLine:
        case FileParserState::EnumBodyLine:
        case FileParserState::TypeBodyLine:
        case FileParserState::ProcedureBodyLine:
        case FileParserState::ProcedureHeader: return true;
        case FileParserState::None:
        case FileParserState::BeginSourceFile:
        case FileParserState::Layout:
        case FileParserState::EndSourceFile:
        case FileParserState::Failed:
        case FileParserState::Stopped:
        case FileParserState::Finished: return false;
    }
    return false;
}

void VB6Parser::FetchNextSourceLine(std::int32_t& characters) {
    if (!NextSourceLineRequired(m_currentState)) {
        return;
    }
    m_hasMoreStatements = ReadLineFromSourceFile(characters);
    if (m_hasMoreStatements) {
        SetFirstStatement(PublishSourceLine());
    } else {
        EndReading();
    }
}

void VB6Parser::EndReading() {
    if (m_currentState == FileParserState::DeclarationLine) {
        State_EndDeclarations();
    }
    m_currentState = FileParserState::EndSourceFile;
    m_parserState->ResetCurrentSourceLine();
}

bool VB6Parser::PublishSourceLine() {
    m_isMultiStatement = IsCode(m_lineType) && modSource::IsMultiStatementLine(m_line.Logical);
    m_parserState->SetCurrentSourceLine({
        .PhysicalText = m_line.Raw,
        .PhysicalLineCount = m_line.PhysicalLines,
        .LogicalText = m_line.Logical,
        .LineNumber = m_sourceLineNumber,
        .Type = m_lineType,
        .IsMultiStatement = m_isMultiStatement,
        .CommentBlock = m_commentBlock,
    });
    FireParserEvent(ParserEvent::SourceLine);
    if (m_currentState != FileParserState::ProcedureBodyLine || !IsCode(m_lineType) ||
        !modSource::IsLineLabel(m_line.Logical)) {
        return false;
    }
    ProcessLineLabel(m_line.Logical);
    return true;
}

void VB6Parser::SetFirstStatement(bool isLabelProcessed) {
    if (!m_isMultiStatement) {
        m_parserState->SetSourceStatement(m_line.Logical);
        m_hasMoreStatements = false;
        return;
    }
    // A copy, because the line that begins a layout is followed by lines that overwrite the buffer.
    m_statementsText = m_line.Logical;
    m_remainingStatements = m_statementsText;
    TakeNextStatement();
    if (isLabelProcessed) {
        TakeNextStatement();
    }
}

void VB6Parser::TakeNextStatement() {
    m_parserState->SetSourceStatement(
        modSource::NextStatementFromSourceLine(m_remainingStatements, m_hasMoreStatements));
}

bool VB6Parser::ReadLineFromSourceFile(std::int32_t& characters) {
    bool isLineRead = false;
    do {
        if (m_sourceFile->LineCountingEnabled()) {
            m_sourceLineNumber += m_line.PhysicalLines;
        }
        isLineRead = m_sourceFile->GetNextSourceLine(m_line);
        if (!isLineRead && m_sourceFile->ReadingFailed()) {
            // This is not the end of the file: the rest of it was not read.
            RaiseRuntimeError(runtimeerror::kDeviceError, m_sourceFile->Filename());
        }
        if (isLineRead) {
            characters = m_line.RawLength;
            ClassifyAndCountLine();
        }
    } while (isLineRead && m_lineType == LineType::Blank);
    if (m_sourceFile->LineCountingEnabled()) {
        UpdateCommentBlock(isLineRead);
    }
    return isLineRead;
}

void VB6Parser::ClassifyAndCountLine() {
    m_lineType = modSource::SourceLineType(m_line.Logical);
    if (m_sourceFile->LineCountingEnabled()) {
        m_parserState->IncrementLineStats(m_lineType);
        if (m_sourceLineNumber < 1) {
            m_sourceLineNumber = 1;
        }
    }
}

void VB6Parser::UpdateCommentBlock(bool isLineRead) {
    if (m_previousLineType != LineType::Blank && m_previousLineType != LineType::CommentOnly) {
        if (m_isHeaderCommentPending) {
            m_sourceFile->FileStats()->Properties().Add(
                propertyname::kHeaderComment,
                m_commentBlock == nullptr ? std::string() : *m_commentBlock,
                false);
        }
        m_commentBlock.reset();
        m_isHeaderCommentPending = false;
    }
    if (!isLineRead) {
        return;
    }
    if (m_lineType == LineType::CommentOnly) {
        if (m_commentBlock == nullptr) {
            m_commentBlock = std::make_shared<std::string>();
        }
        m_commentBlock->append(modText::Trim(m_line.Logical)).append(modText::kLineEnd);
    }
    m_previousLineType = m_lineType;
}

void VB6Parser::FireParserEvent(ParserEvent event) {
    m_parserState->SetParserEvent(event);
    if (m_callback != nullptr) {
        m_callback->ParserEvent(event);
    }
}

VirtualObject& VB6Parser::ObjectInScope(std::string_view name) const {
    VirtualObject* object = m_parserState->FindVirtualObject(name);
    if (object == nullptr) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return *object;
}

}  // namespace dorvik
