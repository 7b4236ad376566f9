// The states of the project itself: opening, type libraries, global names, references, closing.
#include "ResultsReservations.h"
#include "SourceFileResults.h"
#include "VB6ProjectReview.h"
#include "base/BasicError.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "criteria/ProgressInfo.h"
#include "criteria/ReviewAction.h"
#include "criteria/ReviewCriteria.h"
#include "enforcement/AuthorisationEnforcement.h"
#include "enforcement/EventActions.h"
#include "enforcement/NamingConventionHelper.h"
#include "enforcement/ResultsManager.h"
#include "enforcement/RuleEngine.h"
#include "enforcement/VirtualTypeLibrary.h"
#include "foundation/log/Trap.h"
#include "foundation/text/modUtilFunctions.h"
#include "modProjectLog.h"
#include "modProjectResults.h"
#include "modProjectScope.h"
#include "parser/ScopeName.h"
#include "parser/VB6ParserState.h"
#include "platform/host/ITypeLibrarySource.h"
#include "platform/host/modHost.h"
#include "reports/classic/ReportsEngine.h"
#include "results/ResultsDB.h"
#include "rulebase/model/Rulebase.h"
#include "source/VirtualObject.h"
#include "source/VirtualProject.h"

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VB6ProjectReview";

/// The action codes that a project review sets; the progress window words them.

/// The object at that index of a list. The lists of an open project are filled by the caller of the review, and
/// may contain null.
template <typename Object>
std::shared_ptr<Object> ObjectAt(const ObjectKeyedArrayList<Object>& list, std::int32_t index) {
    std::shared_ptr<Object> object = list.Item(index);
    if (!object) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    return object;
}

}  // namespace

std::int32_t VB6ProjectReview::LoadProject(std::int32_t projectIndex) {
    bool opened = false;
    const bool ended = Trap({kModule, "LoadProject"}, [&] { opened = OpenProject(projectIndex); });
    if (!ended && m_project) {
        m_project->Outcome().ReviewStatus = 1;
        m_resultsManager->AbortReview();
    }
    if (opened) {
        m_slices.Open();
    }
    return opened ? 0 : 1;
}

bool VB6ProjectReview::OpenProject(std::int32_t projectIndex) {
    if (!m_criteria) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);  // before `InitialiseReview`
    }
    m_resultsManager = std::make_unique<ResultsManager>();
    m_project = m_criteria->ProjectList().Item(projectIndex);
    const std::string filename = m_project->Filename();
    m_resultsManager->SetProject(m_project.get());
    m_eventActions =
        std::make_unique<EventActions>(*m_criteria, *m_rulebase, *m_ruleEngine, *m_resultsManager);
    m_fileResults = std::make_unique<SourceFileResults>(*m_project, *m_criteria, *m_resultsManager);
    if (m_criteria->ReviewType() == ReviewType_Batch) {
        const ProjectLoadStatus status = m_project->LoadProject(filename);
        if (status != ProjectLoadStatus::Good) {
            m_project->Outcome().ReviewStatus = static_cast<std::int32_t>(status);
            return false;
        }
        for (std::int32_t index = 1; index <= m_project->SourceFiles().Count(); ++index) {
            m_project->SourceFiles().SetSelected(index, true);
        }
    }
    if (!m_resultsManager->BeginReview(filename, *m_criteria, *m_rulebase)) {
        m_project->Outcome().ResultsLost = {0, m_resultsManager->ResultsDB().Failures().Reason()};
        m_project->Outcome().ReviewStatus = 1;
        return false;
    }
    modProjectLog::LogBegin(m_resultsManager->Log(), filename);
    m_ruleEngine->SetResultsManager(m_resultsManager.get());
    const auto& files = m_project->SourceFiles();
    m_progress->LoadProject(m_project->Name(), filename, files.Count());
    LogLine(
        files.SelectedCount() < files.Count() ? "Review: Selected files." : "Review: All files.");
    if (m_criteria->LoadCriteria().NamingConventions()) {
        m_namingHelper = std::make_unique<NamingConventionHelper>();
        m_namingHelper->SetRulebase(m_rulebase.get());
        m_namingHelper->SetScope(&ParserState(), &m_resultsManager->Log());
        m_eventActions->SetNamingHelper(*m_namingHelper);
        if (m_typeLibrarySource != nullptr) {
            m_typeLibraries =
                m_typeLibrarySource->ForProject(modUtilFunctions::PathFromFilename(filename));
        }
        m_state = ProjectReviewStatus::BeginLoadReferences;
    } else {
        m_state = ProjectReviewStatus::BeginProject;
    }
    return true;
}

ProjectReviewStatus VB6ProjectReview::State_BeginLoadReferences() {
    m_progress->SetAction(reviewaction::kLoadingReferences);
    m_typeLibIndex = 0;
    return State_LoadTypeLib_Reference();
}

ProjectReviewStatus VB6ProjectReview::State_LoadTypeLib_Reference() {
    return Trapped({kModule, "State_LoadTypeLib_Reference"}, ProjectReviewStatus::IsError, [&] {
        ++m_typeLibIndex;
        if (m_typeLibIndex > m_project->References().Count()) {
            return SignalProjectProgress(ProjectReviewStatus::BeginLoadComponents);
        }
        const ProjectReviewStatus signalled =
            SignalProjectProgress(ProjectReviewStatus::LoadTypeLibReference);
        if (signalled == ProjectReviewStatus::LoadTypeLibReference) {
            const auto reference = ObjectAt(m_project->References(), m_typeLibIndex);
            const auto library = std::make_shared<VirtualTypeLibrary>(m_typeLibraries.get());
            const bool loaded = library->LoadVirtualReferenceTypeLib(*reference);
            if (!AddTypeLibrary(library, loaded, "reference '" + reference->Description + "'")) {
                ++m_project->Outcome().ReferenceErrors;
            }
        }
        return signalled;
    });
}

bool VB6ProjectReview::AddTypeLibrary(
    const std::shared_ptr<VirtualTypeLibrary>& library, bool loaded, const std::string& name) {
    const bool isAdded = loaded && m_namingHelper->AddTypeLibrary(library->Name(), library);
    LogLine((isAdded ? "Successfully loaded " : "Failed to load ") + name);
    return isAdded;
}

ProjectReviewStatus VB6ProjectReview::State_BeginLoadComponents() {
    m_progress->SetAction(reviewaction::kLoadingComponents);
    m_typeLibIndex = 0;
    return State_LoadTypeLib_Component();
}

ProjectReviewStatus VB6ProjectReview::State_LoadTypeLib_Component() {
    return Trapped({kModule, "State_LoadTypeLib_Component"}, ProjectReviewStatus::IsError, [&] {
        ++m_typeLibIndex;
        if (m_typeLibIndex > m_project->Components().Count()) {
            m_progress->BeginPreScan();
            return SignalProjectProgress(ProjectReviewStatus::BeginPrescan);
        }
        const ProjectReviewStatus signalled =
            SignalProjectProgress(ProjectReviewStatus::LoadTypeLibComponent);
        if (signalled == ProjectReviewStatus::LoadTypeLibComponent) {
            const auto component = ObjectAt(m_project->Components(), m_typeLibIndex);
            const auto library = std::make_shared<VirtualTypeLibrary>(m_typeLibraries.get());
            const bool loaded = library->LoadVirtualComponentTypeLib(*component);
            if (!AddTypeLibrary(library, loaded, "component '" + component->Filename + "'")) {
                ++m_project->Outcome().ComponentErrors;
            }
        }
        return signalled;
    });
}

ProjectReviewStatus VB6ProjectReview::State_BeginPrescan() {
    m_progress->SetAction(reviewaction::kExtractingNames);
    m_sourceFileIndex = 0;
    return State_PrescanFile();
}

ProjectReviewStatus VB6ProjectReview::State_PrescanFile() {
    return Trapped({kModule, "State_PrescanFile"}, ProjectReviewStatus::IsError, [&] {
        ++m_sourceFileIndex;
        if (m_sourceFileIndex > m_project->SourceFiles().Count()) {
            return ProjectReviewStatus::BeginProject;
        }
        const auto file = ObjectAt(m_project->SourceFiles(), m_sourceFileIndex);
        m_progress->PreScanFile(file->Name(), file->Filename());
        const ProjectReviewStatus signalled =
            SignalProjectProgress(ProjectReviewStatus::PrescanFile);
        if (signalled == ProjectReviewStatus::PrescanFile &&
            m_namingHelper->ExtractGlobalNames(*file) != 0) {
            LogLine("Failed to extract global names for source file " + file->Filename());
            return ProjectReviewStatus::IsError;
        }
        return signalled;
    });
}

ProjectReviewStatus VB6ProjectReview::State_BeginProject() {
    return Trapped({kModule, "State_BeginProject"}, ProjectReviewStatus::IsError, [&] {
        modProjectScope::AttachProject(ParserState(), *m_project);
        m_progress->SetAction(reviewaction::kReviewing);
        m_progress->BeginProject();
        const ProjectReviewStatus signalled =
            SignalProjectProgress(ProjectReviewStatus::BeginProject);
        if (signalled != ProjectReviewStatus::BeginProject) {
            return signalled;
        }
        FireProjectEvent(dorvik::ParserEvent::BeginProject);
        return ProjectReviewStatus::Reference;
    });
}

ProjectReviewStatus VB6ProjectReview::State_Reference() {
    return Trapped({kModule, "State_Reference"}, ProjectReviewStatus::IsError, [&] {
        for (std::int32_t index = 1; index <= m_project->References().Count(); ++index) {
            const auto reference = ObjectAt(m_project->References(), index);
            AuthorisationEnforcement& authorisation = m_eventActions->Authorisation();
            const auto verdict = authorisation.FindReference(*reference);
            modProjectScope::AttachReference(ParserState(), *reference, verdict.Authorised);
            if (m_criteria->LoadCriteria().AuthorisedReferences()) {
                authorisation.EnforceAuthorisedReference(*reference, verdict);
            }
            FireProjectEvent(dorvik::ParserEvent::Reference);
            modProjectScope::DetachReference(ParserState());
        }
        return ProjectReviewStatus::BeginSourceFiles;
    });
}

ProjectReviewStatus VB6ProjectReview::State_EndProject() {
    return Trapped({kModule, "State_EndProject"}, ProjectReviewStatus::IsError, [&] {
        if (const auto projectFile = ParserState().GetVirtualObject(scopename::kProjectFile)) {
            modProjectResults::MeasureTolerances(
                *m_resultsManager, *m_criteria, *projectFile, /*isProjectFile=*/true);
        }
        if (m_project->Outcome().HasErrors()) {
            m_project->Outcome().ReviewStatus = 1;
        }
        FireProjectEvent(dorvik::ParserEvent::EndProject);
        modProjectScope::DetachProject(ParserState());
        modProjectResults::RecordLosses(*m_project, *m_resultsManager);
        modProjectLog::LogEnd(m_resultsManager->Log(), *m_project);
        // At the end of a large project the work before this line takes long, and so does the work after it.
        modHost::YieldToInput();
        m_resultsManager->EndReview(m_ruleEngine->RuleExecutionCount());
        modProjectResults::RecordLosses(*m_project, *m_resultsManager);  // those of the end itself
        if (m_criteria->ReportOption() > 0) {
            m_reports->CreateProjectReport(*m_project, *m_criteria, *m_progress);
        }
        DisconnectRules();
        if (m_reservations != nullptr) {
            m_reservations->Keep(m_resultsManager->Reservation());
        }
        m_resultsManager->SetProject(nullptr);
        m_fileResults.reset();
        m_eventActions.reset();
        m_resultsManager.reset();
        m_project.reset();
        return ProjectReviewStatus::IsProjectComplete;
    });
}

void VB6ProjectReview::DisconnectRules() {
    m_ruleEngine->SetResultsManager(nullptr);
    if (m_namingHelper) {
        m_namingHelper->SetScope(nullptr, nullptr);
    }
}

}  // namespace dorvik
