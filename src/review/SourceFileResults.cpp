#include "SourceFileResults.h"

#include "criteria/ReviewCriteria.h"
#include "enforcement/ResultsManager.h"
#include "modProjectLog.h"
#include "modProjectResults.h"
#include "modProjectScope.h"
#include "parser/ScopeName.h"
#include "results/ResultsDB.h"
#include "source/PropertyName.h"
#include "source/VirtualObject.h"
#include "source/VirtualProject.h"
#include "source/VirtualSourceFile.h"

#include <algorithm>
#include <string>
#include <utility>

namespace dorvik {

namespace {

constexpr const char* kWhySkipped = " because of an unexpected error; see the review log";

}  // namespace

void SourceFileResults::BeginFile(VirtualSourceFile& file) {
    m_file = &file;
    m_skippedRulesAt = 0;
}

void SourceFileResults::NoteSkippedRules() {
    if (m_file == nullptr) {
        m_project.Outcome().UnreviewedFiles.push_back(
            {m_project.Filename(),
             SourceFileStatus::Good,
             /*IsStored=*/true,
             std::string("because rules were skipped") + kWhySkipped});
    } else if (m_skippedRulesAt == 0) {
        m_skippedRulesAt = std::max(m_file->PhysicalLine(), 1);
    }
}

void SourceFileResults::LogLayoutFault() {
    if (const auto& fault = m_file->FoundLayoutFault()) {
        modProjectLog::LogLine(
            m_results.Log(),
            m_file->Filename() + ": the layout was read only in part, because " + fault->Clause() +
                ".");
    }
}

void SourceFileResults::CloseIncompleteFile(bool isParsed) {
    LogLayoutFault();
    if (m_file->ReadingFailed()) {
        // The file failed, not something in it; as if it could not have been opened.
        ++m_project.Outcome().FileErrors;
        m_file->SetReviewStatus(SourceFileStatus::UnexpectedError);
    }
    modProjectLog::LogLine(
        m_results.Log(), m_file->Filename() + " review incomplete due to unexpected error.");
    UnreviewedFile unreviewed{m_file->Filename(), m_file->ReviewStatus()};
    if (isParsed) {
        unreviewed.LastLine = m_file->PhysicalLine();
    }
    if (const auto& fault = m_file->FoundLayoutFault()) {
        unreviewed.Reason = "because " + fault->Clause();
    } else {
        unreviewed.Reason = m_file->Unreadable();
    }
    m_project.Outcome().UnreviewedFiles.push_back(std::move(unreviewed));
    m_results.ResultsDB().Writer().SetupVObjectResults(scopename::kFile, *m_file->FileStats());
    LogFileResults();
    modProjectScope::DetachOpenObjects(m_results.ParserState());
}

void SourceFileResults::CloseCompleteFile() {
    LogLayoutFault();
    if (m_file->FileStats()->ObjectID() == 0) {
        m_project.Outcome().UnreviewedFiles.push_back(
            {m_file->Filename(), m_file->ReviewStatus(), /*IsStored=*/false});
    }
    if (m_skippedRulesAt > 0) {
        m_project.Outcome().UnreviewedFiles.push_back(
            {m_file->Filename(),
             SourceFileStatus::Good,
             /*IsStored=*/true,
             "because rules were skipped at line " + std::to_string(m_skippedRulesAt) +
                 kWhySkipped});
    }
    if (const auto& fault = m_file->FoundLayoutFault()) {
        m_project.Outcome().CutLayouts.push_back({m_file->Filename(), *fault});
    }
    if (m_criteria.KeepsKnownFaults()) {
        return;
    }
    if (const std::string left = modProjectScope::DetachRemainingObjects(m_results.ParserState());
        !left.empty()) {
        modProjectLog::LogLine(
            m_results.Log(),
            m_file->Filename() + " left attached at its end, and now detached: " + left);
    }
}

void SourceFileResults::LogFileResults() {
    if (const auto file = m_results.ParserState().GetVirtualObject(scopename::kFile)) {
        const bool isCut = m_file->FoundLayoutFault() && !m_criteria.KeepsKnownFaults();
        const bool isWhole = m_skippedRulesAt == 0 && !isCut;
        if (!isWhole && file->Properties().Contains(propertyname::kAverageCyclomatic)) {
            // This property marks a file that was reviewed completely.
            file->Properties().Remove(propertyname::kAverageCyclomatic);
        }
        modProjectResults::MeasureTolerances(m_results, m_criteria, *file, /*isProjectFile=*/false);
    }
    m_results.LogVirtualObjectResults(scopename::kDeclarations);
    m_results.LogVirtualObjectResults(scopename::kFile);
}

}  // namespace dorvik
