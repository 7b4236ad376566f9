#pragma once

#include "ProjectReviewStatus.h"
#include "TimeSlice.h"
#include "parser/IFileParserEvents.h"
#include "review/IProjectReview.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

class EventActions;
class IFileParser;
class ITypeLibraries;
class ITypeLibrarySource;
class NamingConventionHelper;
class ResultsManager;
class ResultsReservations;
class SourceFileResults;
class VB6ParserState;
class VirtualProject;
class VirtualSourceFile;
class VirtualTypeLibrary;
enum class SourceFileStatus : std::int32_t;

/// Reviews one project from end to end: opens its results store, loads the type libraries of its
/// references and components, scans all files for global names, fires the project's own parser
/// events, drives one file parser for each selected file, and closes everything in the right order.
///
/// | state | the step                                          | next               |
/// |-------|---------------------------------------------------|--------------------|
/// | 7, 8  | loads the type library of the next reference      | 8, 9, 30           |
/// | 9, 10 | loads the type library of the next component      | 10, 11, 30         |
/// | 11, 12| scans the next file for global names              | 12, 13, 29, 30     |
/// | 13    | begins the project (event 1)                      | 34, 30             |
/// | 34    | all references (event 26 each)                    | 14                 |
/// | 14    | begins the source files (event 2)                 | 17, 25             |
/// | 17    | opens a source file                               | 35, 17, 25, 30     |
/// | 35    | one tick of the file parser                       | 35, 36, 30, 17, 25 |
/// | 36    | closes the source file                            | 17, 25, 30         |
/// | 25    | ends the source files (event 36)                  | 26                 |
/// | 26    | ends the project (event 37)                       | 27                 |
///
/// 27 is the complete project, 29 an error, 30 a cancelled review. After an error in a reference, a
/// component, a scan or a file the review continues with the next one.
///
/// If the review ends before the project is complete, for whatever reason, its results are deleted.
class VB6ProjectReview final : public IProjectReview, private IFileParserEvents {
public:
    /// `typeLibraries` may be null: no library can then be loaded. `reservations` receives the reservation of
    /// the finished results; null if the results are not read after the review. REQUIRES: both outlive this
    /// object.
    explicit VB6ProjectReview(
        ITypeLibrarySource* typeLibraries = nullptr, ResultsReservations* reservations = nullptr);
    ~VB6ProjectReview() override;

    void HookupCallback(IProjectReviewEvents* callback) override;
    std::int32_t InitialiseReview(
        std::shared_ptr<ReviewCriteria> criteria,
        ProgressInfo& progress,
        std::shared_ptr<Rulebase> rulebase,
        RuleEngine& ruleEngine,
        ReportsEngine& reports) override;
    std::int32_t LoadProject(std::int32_t projectIndex) override;
    SliceResult ReviewTimeSlice(std::int32_t ticks) override;
    void AbortReview() override;
    void UnhookCallback() override;
    void Dispose() override;

    /// The state of the machine, as in the table above.
    ProjectReviewStatus State() const { return m_state; }

private:
    void ParserEvent(dorvik::ParserEvent event) override;
    /// Fires an event of the project itself, as the file parser fires its own.
    void FireProjectEvent(dorvik::ParserEvent event);
    void ExecuteEventActions(dorvik::ParserEvent event);

    SliceResult ProjectReviewStep();
    ProjectReviewStatus DetermineProjectParserStatus();
    ProjectReviewStatus RecoverFromProjectError(ProjectReviewStatus state);
    ProjectReviewStatus SignalProjectProgress(ProjectReviewStatus status);
    ProjectReviewStatus MoveToNextSourceFile();

    ProjectReviewStatus State_BeginLoadReferences();
    ProjectReviewStatus State_LoadTypeLib_Reference();
    ProjectReviewStatus State_BeginLoadComponents();
    ProjectReviewStatus State_LoadTypeLib_Component();
    ProjectReviewStatus State_BeginPrescan();
    ProjectReviewStatus State_PrescanFile();
    ProjectReviewStatus State_BeginProject();
    ProjectReviewStatus State_Reference();
    ProjectReviewStatus State_BeginSourceFiles();
    ProjectReviewStatus State_LoadSourceFile();
    ProjectReviewStatus State_SourceFileTick();
    ProjectReviewStatus State_EndSourceFile(bool incomplete);
    ProjectReviewStatus State_EndSourceFiles();
    ProjectReviewStatus State_EndProject();

    bool OpenProject(std::int32_t projectIndex);
    /// Hands a library to the naming helper if it was loaded, and logs the outcome. `name` is for the log. False
    /// if the library is not used.
    bool AddTypeLibrary(
        const std::shared_ptr<VirtualTypeLibrary>& library, bool loaded, const std::string& name);
    /// Writes a last line to the review log and deletes the results.
    void AbortResults(std::string_view line);
    /// The same if this object is destroyed before the review has ended.
    void AbortUnfinishedResults();
    ProjectReviewStatus FailToConnect(SourceFileStatus status);
    void LogLine(std::string_view line);
    void DisconnectRules();
    VB6ParserState& ParserState();

    SliceGuard m_slices;
    bool m_areResultsAborted = false;
    IProjectReviewEvents* m_callback = nullptr;
    std::unique_ptr<IFileParser> m_fileParser;        // null between files
    std::shared_ptr<VirtualSourceFile> m_sourceFile;  // null between files
    std::shared_ptr<VirtualProject> m_project;
    std::unique_ptr<ResultsManager> m_resultsManager;  // null when nothing is left to abort
    std::unique_ptr<EventActions> m_eventActions;      // null without a results manager
    std::unique_ptr<SourceFileResults> m_fileResults;  // null without a results manager
    std::int32_t m_reviewedFileCount = 0;
    std::int32_t m_sourceFileIndex = 0;
    std::int32_t m_typeLibIndex = 0;
    ProjectReviewStatus m_state = ProjectReviewStatus::BeginLoadReferences;
    std::shared_ptr<ReviewCriteria> m_criteria;
    std::shared_ptr<Rulebase> m_rulebase;
    ProgressInfo* m_progress = nullptr;
    RuleEngine* m_ruleEngine = nullptr;
    ReportsEngine* m_reports = nullptr;
    ITypeLibrarySource* m_typeLibrarySource;
    ResultsReservations* m_reservations;
    std::unique_ptr<ITypeLibraries> m_typeLibraries;         // null without a source
    std::unique_ptr<NamingConventionHelper> m_namingHelper;  // only with naming conventions
};

}  // namespace dorvik
