#include "review/ProjectTraversal.h"

#include "criteria/ReviewCriteria.h"
#include "modProjectScope.h"
#include "parser/ScopeName.h"
#include "parser/VB6Parser.h"
#include "results/modTolerances.h"
#include "review/IProjectEventListener.h"
#include "source/VirtualSourceFile.h"

namespace dorvik {

ProjectTraversal::ProjectTraversal(
    VirtualProject& project, const ReviewCriteria& criteria, IProjectEventListener& listener)
    : m_project(project), m_criteria(criteria), m_listener(listener) {}

bool ProjectTraversal::Run() {
    modProjectScope::AttachProject(m_state, m_project);
    Fire(dorvik::ParserEvent::BeginProject);
    TraverseReferences();
    Fire(dorvik::ParserEvent::BeginSourceFiles);
    for (const auto& file : m_project.SourceFiles()) {
        TraverseFile(*file);
        if (m_stopped) {
            return false;
        }
    }
    Fire(dorvik::ParserEvent::EndSourceFiles);
    modTolerances::SetTolerancePassValue(
        *m_state.FindVirtualObject(scopename::kProjectFile), m_criteria, /*isProjectFile=*/true);
    Fire(dorvik::ParserEvent::EndProject);
    modProjectScope::DetachProject(m_state);
    return true;
}

void ProjectTraversal::TraverseReferences() {
    for (const auto& reference : m_project.References()) {
        // Nothing is authorised where there is no rulebase.
        modProjectScope::AttachReference(m_state, *reference, false);
        Fire(dorvik::ParserEvent::Reference);
        modProjectScope::DetachReference(m_state);
    }
}

void ProjectTraversal::TraverseFile(VirtualSourceFile& file) {
    modProjectScope::AttachFile(m_state, file);
    const SourceFileStatus status = file.Connect();
    m_file = &file;
    const bool complete = status == SourceFileStatus::Good && ParseFile(file);
    m_file = nullptr;
    if (complete) {
        CloseCompleteFile(file);
    } else {
        CloseIncompleteFile(file, status);
    }
    m_state.Detach(scopename::kDeclarations);
    m_state.Detach(scopename::kFile);
    file.Disconnect();
}

void ProjectTraversal::CloseIncompleteFile(VirtualSourceFile& file, SourceFileStatus status) {
    if (status != SourceFileStatus::Good) {
        file.SetReviewStatus(status);
    } else if (file.ReadingFailed()) {
        file.SetReviewStatus(SourceFileStatus::UnexpectedError);
    }
    m_listener.FileFailed(file);
    modProjectScope::DetachOpenObjects(m_state);
}

void ProjectTraversal::CloseCompleteFile(const VirtualSourceFile& file) {
    if (const auto& fault = file.FoundLayoutFault()) {
        m_listener.LayoutCut(file, *fault);
    }
    if (!m_criteria.KeepsKnownFaults()) {
        modProjectScope::DetachRemainingObjects(m_state);
    }
}

bool ProjectTraversal::ParseFile(VirtualSourceFile& file) {
    VB6Parser parser;
    parser.InitialiseSourceFileReview(file, m_state);
    parser.HookupCallback(*this);
    auto result = TickResult::Continue;
    while (result == TickResult::Continue && !m_stopped) {
        std::int32_t characters = 0;
        parser.ReviewTick(characters, result);
        m_stopped = m_listener.StopRequested();
    }
    parser.UnhookCallback();
    parser.Dispose();
    return m_stopped || result == TickResult::EndOfFile;
}

void ProjectTraversal::ParserEvent(dorvik::ParserEvent event) {
    m_listener.EventFired(event, m_state, m_file);
}

void ProjectTraversal::Fire(dorvik::ParserEvent event) {
    m_state.SetParserEvent(event);
    m_listener.EventFired(event, m_state, nullptr);
}

}  // namespace dorvik
