// The states of the source files: opening, parsing and closing one after another.
#include "SourceFileResults.h"
#include "VB6ProjectReview.h"
#include "base/BasicError.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/ResultsManager.h"
#include "foundation/log/Trap.h"
#include "modProjectScope.h"
#include "parser/ScopeName.h"
#include "parser/VB6Parser.h"
#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VB6ProjectReview";
constexpr std::int32_t kReportsForEveryFile = 2;

}  // namespace

ProjectReviewStatus VB6ProjectReview::State_BeginSourceFiles() {
    return Trapped({kModule, "State_BeginSourceFiles"}, ProjectReviewStatus::IsError, [&] {
        FireProjectEvent(dorvik::ParserEvent::BeginSourceFiles);
        const std::int32_t selected = m_project->SourceFiles().SelectedCount();
        m_progress->BeginSourceFiles(selected);
        // One report for each file, and the project report itself.
        m_progress->BeginSourceFileReports(
            m_criteria->ReportOption() == kReportsForEveryFile ? selected + 1 : 0);
        m_sourceFileIndex = 0;
        m_reviewedFileCount = 0;
        return MoveToNextSourceFile();
    });
}

ProjectReviewStatus VB6ProjectReview::State_LoadSourceFile() {
    return Trapped({kModule, "State_LoadSourceFile"}, ProjectReviewStatus::IsError, [&] {
        m_sourceFile = m_project->SourceFiles().Item(m_sourceFileIndex);
        m_fileResults->BeginFile(*m_sourceFile);
        modProjectScope::AttachFile(ParserState(), *m_sourceFile);
        const SourceFileStatus connected = m_sourceFile->Connect();
        if (connected != SourceFileStatus::Good) {
            return FailToConnect(connected);
        }
        m_progress->BeginSourceFile(
            m_sourceFile->Name(), m_sourceFile->Filename(), m_sourceFile->Size());
        const ProjectReviewStatus signalled =
            SignalProjectProgress(ProjectReviewStatus::IsSourceFileOpened);
        if (signalled != ProjectReviewStatus::IsSourceFileOpened) {
            return signalled;
        }
        m_fileParser = std::make_unique<VB6Parser>();
        m_fileParser->InitialiseSourceFileReview(*m_sourceFile, ParserState());
        m_fileParser->HookupCallback(*this);
        return ProjectReviewStatus::SourceFileTick;
    });
}

ProjectReviewStatus VB6ProjectReview::FailToConnect(SourceFileStatus status) {
    ++m_project->Outcome().FileErrors;
    m_sourceFile->SetReviewStatus(status);
    return State_EndSourceFile(true);
}

ProjectReviewStatus VB6ProjectReview::State_SourceFileTick() {
    std::int32_t charactersDone = 0;
    auto result = TickResult::Failed;
    m_fileParser->ReviewTick(charactersDone, result);
    switch (result) {
        case TickResult::Continue:
            m_progress->UpdateSourceFileProgress(charactersDone);
            return ProjectReviewStatus::SourceFileTick;
        case TickResult::Stopped: return ProjectReviewStatus::IsAbort;
        case TickResult::EndOfFile: return ProjectReviewStatus::EndSourceFile;
        case TickResult::Failed: break;
    }
    return RecoverFromProjectError(ProjectReviewStatus::SourceFileTick);
}

ProjectReviewStatus VB6ProjectReview::State_EndSourceFile(bool incomplete) {
    return Trapped({kModule, "State_EndSourceFile"}, ProjectReviewStatus::IsError, [&] {
        if (!m_sourceFile) {
            // A first attempt failed when the file was closed already; the project ends here.
            RaiseRuntimeError(runtimeerror::kObjectNotSet);
        }
        if (incomplete) {
            m_fileResults->CloseIncompleteFile(/*isParsed=*/m_fileParser != nullptr);
        } else {
            m_fileResults->CloseCompleteFile();
        }
        ParserState().Detach(scopename::kDeclarations);
        ParserState().Detach(scopename::kFile);
        if (m_fileParser) {
            m_fileParser->UnhookCallback();
            m_fileParser->Dispose();
            m_fileParser.reset();
        }
        m_sourceFile->Disconnect();
        m_sourceFile->SetProject(nullptr);
        m_fileResults->EndFile();
        m_sourceFile.reset();
        m_progress->EndSourceFile();
        const ProjectReviewStatus signalled =
            SignalProjectProgress(ProjectReviewStatus::IsSourceFileClosed);
        return signalled == ProjectReviewStatus::IsSourceFileClosed ? MoveToNextSourceFile()
                                                                    : signalled;
    });
}

ProjectReviewStatus VB6ProjectReview::State_EndSourceFiles() {
    return Trapped({kModule, "State_EndSourceFiles"}, ProjectReviewStatus::IsError, [&] {
        FireProjectEvent(dorvik::ParserEvent::EndSourceFiles);
        return ProjectReviewStatus::EndProject;
    });
}

}  // namespace dorvik
