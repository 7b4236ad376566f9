#pragma once

#include "platform/host/modEncoding.h"
#include "settings/MRUUtils.h"
#include "workstation/application/Connect.h"
#include "workstation/controls/Event.h"
#include "workstation/desk/Findings.h"
#include "workstation/desk/ProjectExplorer.h"
#include "workstation/desk/ReviewComparison.h"
#include "workstation/filehost/FileHost.h"
#include "workstation/view/ResultsView.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace dorvik {

class IScreen;
class udocDorvik;

/// What is known of the last review.
enum class ReviewState : std::int32_t { None, Running, Done };

/// Everything that the window is about: the environment over files, the add-in in it, and what a person does with both.
/// What fails is shown in a message.
class Desk {
public:
    /// REQUIRES: `screen` outlives this, and the settings and message boxes are installed for as long.
    explicit Desk(IScreen& screen, int codePage = modEncoding::kDefaultCodePage);
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    /// Starts the add-in, with folders of type libraries for this run.
    void Start(std::vector<std::string> typeLibraryFolders = {});
    /// Ends a review in the background, so that the program can end.
    void BeginShutdown();

    FileHost& Host() { return m_host; }
    ProjectExplorer& Explorer() { return m_explorer; }
    IScreen& Screen() { return m_screen; }
    Connect& AddIn() { return *m_connect; }
    /// REQUIRES: the add-in is started, for all of these.
    WorkStationApp& App() { return *m_connect->App(); }
    udocDorvik& Document() const;
    ResultsView& Results() const;
    /// Clicks an item of the add-in's menu; nothing happens where there is none.
    void Click(std::string_view tag) const;

    /// Paths of this machine: projects (.vbp), groups (.vbg), folders, which stand for all projects below them, and results
    /// databases (.mdb). True where anything was opened.
    bool OpenPaths(const std::vector<std::string>& paths);
    /// Closes a project. False where the user has changes to save and decides against it.
    bool CloseProject(const std::string& name);
    /// Lets the user save each project that has changes. False where the user cancels, or where it cannot be saved.
    bool MayClose();
    /// Shows the code of a file at a line; 0 is where it was.
    void ShowCode(const std::string& project, const std::string& file, std::int32_t line);
    void ShowDesigner(const std::string& project, const std::string& file);
    /// The next violation of the list, or the one before, in the source.
    void GoToViolation(bool forward);
    /// A violation of a comparison in the source. One that is gone has no row in the list, only a line.
    void GoTo(const FoundViolation& violation);

    /// Paths of this machine, the latest first.
    std::vector<std::string> RecentFiles() const;
    ReviewState State() const { return m_state; }
    /// Of the last review with the results that there were before; null where there were none.
    const ReviewComparison* Comparison() const { return m_comparison.get(); }
    /// The violations of a file among those shown, for marks beside its lines.
    std::vector<FoundViolation> FindingsOf(const FileProject& project, const FileComponent& file);
    /// What there is to say about a violation that is shown; empty where it is not there.
    std::string AdviceOf(std::int32_t violationId) const;
    /// Makes a violation current in the list, if that shows it.
    void SelectViolation(std::int32_t violationId);
    /// Null for a component of no open project.
    FileProject* OwnerOf(const FileComponent& file);
    /// Saves what has changed in the project of a file.
    void SaveProjectOf(const FileComponent& file);
    /// Reads the counts of the results that are shown now.
    void RefreshFindings();

    Event<> RecentFilesChanged;
    Event<> StateChanged;
    Event<> ComparisonChanged;
    Event<> FindingsChanged;

private:
    void ReviewBegins();
    void ReviewEnded();
    void SetState(ReviewState state);
    void Remember(const std::string& path);
    bool OpenResults(const std::string& path);

    FileHost m_host;
    ProjectExplorer m_explorer;
    IScreen& m_screen;
    int m_codePage;
    std::unique_ptr<Connect> m_connect;
    MRUUtils m_recent;
    ReviewState m_state = ReviewState::None;
    std::string m_comparedDatabase;
    std::vector<FoundViolation> m_before;
    bool m_hasBefore = false;
    std::unique_ptr<ReviewComparison> m_comparison;
    ShownReview m_shown;
    std::string m_shownProject;  // its file
    std::vector<Subscription> m_events;
};

}  // namespace dorvik
