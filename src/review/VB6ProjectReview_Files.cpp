// The files' part of the review: opening, ticking and closing one source file after another.
#include "VB6ProjectReview.h"
#include "base/BasicError.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/EventActions.h"
#include "enforcement/ResultsManager.h"
#include "foundation/log/Trap.h"
#include "modProjectScope.h"
#include "parser/ScopeName.h"
#include "parser/VB6Parser.h"
#include "results/ResultsDB.h"
#include "results/modTolerances.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"

#include <utility>

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
        m_skippedRulesAt = 0;
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
    m_project->SetFileErrors(m_project->FileErrors() + 1);
    m_sourceFile->SetReviewStatus(status);
    return State_EndSourceFile(true);
}

ProjectReviewStatus VB6ProjectReview::State_SourceFileTick() {
    std::int32_t charactersDone = 0;
    auto result = TickResult::Failed;
    m_fileParser->ReviewTick(charactersDone, result);
    switch (result) {
        case TickResult::GoesOn:
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
        LogLayoutFault();
        if (incomplete) {
            CloseIncompleteFile();
        } else {
            CloseCompleteFile();
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
        m_sourceFile.reset();
        m_progress->EndSourceFile();
        const ProjectReviewStatus signalled =
            SignalProjectProgress(ProjectReviewStatus::IsSourceFileClosed);
        return signalled == ProjectReviewStatus::IsSourceFileClosed ? MoveToNextSourceFile()
                                                                    : signalled;
    });
}

void VB6ProjectReview::LogLayoutFault() {
    if (const auto& fault = m_sourceFile->FoundLayoutFault()) {
        LogLine(
            m_sourceFile->Filename() + ": the layout was read only in part, because " +
            fault->Clause() + ".");
    }
}

void VB6ProjectReview::CloseIncompleteFile() {
    if (m_sourceFile->ReadingFailed()) {
        // The file failed, not something in it; as if it could not have been opened.
        m_project->SetFileErrors(m_project->FileErrors() + 1);
        m_sourceFile->SetReviewStatus(SourceFileStatus::UnexpectedError);
    }
    LogLine(m_sourceFile->Filename() + " review incomplete due to unexpected error.");
    UnreviewedFile unreviewed{m_sourceFile->Filename(), m_sourceFile->ReviewStatus()};
    if (m_fileParser) {
        unreviewed.LastLine = m_sourceFile->PhysicalLine();
    }
    if (const auto& fault = m_sourceFile->FoundLayoutFault()) {
        unreviewed.Reason = "because " + fault->Clause();
    } else {
        unreviewed.Reason = m_sourceFile->Unreadable();
    }
    m_project->AddUnreviewedFile(std::move(unreviewed));
    m_resultsManager->ResultsDB().SetupVObjectResults(scopename::kFile, *m_sourceFile->FileStats());
    LogFileResults();
    modProjectScope::DetachOpenObjects(ParserState());
}

void VB6ProjectReview::CloseCompleteFile() {
    if (m_sourceFile->FileStats()->ObjectID() == 0) {
        m_project->AddUnreviewedFile(
            {m_sourceFile->Filename(), m_sourceFile->ReviewStatus(), /*IsStored=*/false});
    }
    if (m_skippedRulesAt > 0) {
        m_project->AddUnreviewedFile(
            {m_sourceFile->Filename(),
             SourceFileStatus::Good,
             /*IsStored=*/true,
             "because rules were skipped at line " + std::to_string(m_skippedRulesAt) +
                 " for an unexpected error; the review log says why"});
    }
    if (const auto& fault = m_sourceFile->FoundLayoutFault()) {
        m_project->AddCutLayout({m_sourceFile->Filename(), *fault});
    }
    if (m_criteria->KeepsKnownFaults()) {
        return;
    }
    if (const std::string left = modProjectScope::DetachLeftObjects(ParserState()); !left.empty()) {
        LogLine(m_sourceFile->Filename() + " left attached at its end, and now detached: " + left);
    }
}

void VB6ProjectReview::MeasureTolerances(VirtualObject& object, bool isProjectFile) {
    if (!modTolerances::SetTolerancePassValue(object, *m_criteria, isProjectFile)) {
        m_resultsManager->ResultsDB().NoteLoss("a measure could not be taken, as the log tells");
    }
}

void VB6ProjectReview::LogFileResults() {
    if (const auto file = ParserState().GetVirtualObject(scopename::kFile)) {
        const bool isCut = m_sourceFile->FoundLayoutFault() && !m_criteria->KeepsKnownFaults();
        const bool isWhole = m_skippedRulesAt == 0 && !isCut;
        if (!isWhole && file->Properties().Contains(propertyname::kAverageCyclomatic)) {
            // The results show by this that a file was reviewed to its end.
            file->Properties().Remove(propertyname::kAverageCyclomatic);
        }
        MeasureTolerances(*file, /*isProjectFile=*/false);
    }
    m_resultsManager->LogVirtualObjectResults(scopename::kDeclarations);
    m_resultsManager->LogVirtualObjectResults(scopename::kFile);
}

ProjectReviewStatus VB6ProjectReview::State_EndSourceFiles() {
    return Trapped({kModule, "State_EndSourceFiles"}, ProjectReviewStatus::IsError, [&] {
        FireProjectEvent(dorvik::ParserEvent::EndSourceFiles);
        return ProjectReviewStatus::EndProject;
    });
}

}  // namespace dorvik
