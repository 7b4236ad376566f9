#include "workstation/window/Desk.h"

#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHostPath.h"
#include "source/ProjectFinder.h"
#include "workstation/application/WorkStationApp.h"
#include "workstation/controls/modWorkstationMessage.h"
#include "workstation/host/modViolationSearch.h"
#include "workstation/ide/IDEHelper.h"
#include "workstation/ide/IDEMenus.h"
#include "workstation/ide/udocDorvik.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "Desk";
constexpr std::string_view kRecentName = "Desktop";
constexpr std::size_t kMostSentences = 10;

/// Runs `body`; what it raises is shown to the user.
bool Shown(std::string_view operation, const std::function<void()>& body) {
    return Trap({kModule, operation}, body, [](const BasicError& failure) {
        modWorkstationMessage::Show(MessageIcon::Exclamation, failure.what());
        return true;
    });
}

void ShowSentences(const std::vector<std::string>& sentences) {
    std::string text;
    for (std::size_t i = 0; i < std::min(sentences.size(), kMostSentences); ++i) {
        text += (text.empty() ? "" : "\r\n") + sentences[i];
    }
    if (sentences.size() > kMostSentences) {
        text += "\r\n... and " + std::to_string(sentences.size() - kMostSentences) + " more.";
    }
    if (!text.empty()) {
        modWorkstationMessage::Show(MessageIcon::Exclamation, text);
    }
}

std::string_view WithoutFolder(std::string_view path) {
    const std::size_t separator = path.find_last_of("\\/");
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

}  // namespace

Desk::Desk(IScreen& screen, int codePage)
    : m_host(codePage),
      m_explorer(m_host),
      m_screen(screen),
      m_codePage(codePage),
      m_connect(std::make_unique<Connect>()) {
    m_recent.SetAppName(kRecentName);
}

Desk::~Desk() {
    m_events.clear();
    m_connect.reset();
}

void Desk::Start(std::vector<std::string> typeLibraryFolders) {
    m_connect->AddinInstance_OnConnection(m_host, ConnectMode::Startup, m_screen);
    App().SetTypeLibraryFolders(std::move(typeLibraryFolders));
    m_events.push_back(App().ReviewBegins.Subscribe([this] { ReviewBegins(); }));
    m_events.push_back(App().ReviewEnded.Subscribe([this] { ReviewEnded(); }));
    m_connect->AddinInstance_OnStartupComplete();
    m_host.Events().StartupComplete.Raise();
}

void Desk::BeginShutdown() {
    m_connect->AddinInstance_OnBeginShutdown();
}

udocDorvik& Desk::Document() const {
    return *m_connect->IDEHelper()->DorvikUserDocument();
}

ResultsView& Desk::Results() const {
    return Document().Results();
}

void Desk::Click(std::string_view tag) const {
    const IDEMenus* const menus = m_connect->IDEHelper()->DorvikMenus();
    CommandControl* const menu = menus == nullptr ? nullptr : menus->DorvikMenu();
    if (menu == nullptr) {
        return;
    }
    menu->Click();  // what is enabled is known once the menu has opened
    if (CommandControl* const item = menu->FindTag(tag)) {
        item->Click();
    }
}

// ---- projects ----

bool Desk::OpenPaths(const std::vector<std::string>& paths) {
    bool isAnyOpened = false;
    std::vector<std::string> projects;
    std::vector<std::string> faults;
    for (const std::string& path : paths) {
        const bool isDatabase = modTextCase::EndsWith(path, ".mdb");
        if (isDatabase) {
            isAnyOpened = OpenResults(path) || isAnyOpened;
            continue;
        }
        FoundProjects found = modProjectFinder::FindProjects({path}, m_codePage);
        if (!found.Filenames.empty()) {
            Remember(path);
        }
        std::ranges::move(found.Filenames, std::back_inserter(projects));
        std::ranges::move(found.Errors, std::back_inserter(faults));
    }
    ShowSentences(faults);
    Shown("OpenPaths", [&] { isAnyOpened = m_host.Open(projects) || isAnyOpened; });
    return isAnyOpened;
}

bool Desk::OpenResults(const std::string& path) {
    return Shown("OpenResults", [&] {
        const std::string file = modHostPath::ToProgram(modHostPath::FromUser(path), m_codePage);
        App().OpenResults(file);
        m_connect->IDEHelper()->SetWorkbenchVisible(true);
        Remember(path);
    });
}

bool Desk::CloseProject(const std::string& name) {
    bool isClosed = false;
    Shown("CloseProject", [&] {
        FileProject& project = m_host.Project(name);
        if (project.IsDirty()) {
            const MessageAnswer answer = modWorkstationMessage::Show(
                MessageIcon::Question,
                "Project '" + name + "' has changes.\r\rDo you want to save them?",
                MessageButtons::YesNoCancel);
            if (answer == MessageAnswer::Cancel ||
                (answer == MessageAnswer::Yes && !project.Save())) {
                return;
            }
        }
        m_host.CloseProject(name);
        isClosed = true;
    });
    return isClosed;
}

bool Desk::MayClose() {
    for (std::int32_t index = 1; index <= m_host.ProjectCount(); ++index) {
        FileProject& project = m_host.Project(index);
        if (!project.IsDirty()) {
            continue;
        }
        const MessageAnswer answer = modWorkstationMessage::Show(
            MessageIcon::Question,
            "Project '" + project.Name() + "' has changes.\r\rDo you want to save them?",
            MessageButtons::YesNoCancel);
        if (answer == MessageAnswer::Cancel || (answer == MessageAnswer::Yes && !project.Save())) {
            return false;
        }
    }
    return true;
}

// ---- places in the source ----

void Desk::ShowCode(const std::string& project, const std::string& file, std::int32_t line) {
    if (m_host.FindComponent(file) == nullptr) {
        return;  // a project, or nothing
    }
    Shown("ShowCode", [&] {
        m_host.SelectFile(file);
        FileCodePane& pane = m_host.Project(project).Component(file).CodeModule().CodePane();
        pane.Show();
        if (line > 0) {
            pane.SetTopLine(line);
            pane.SetSelection({line, 1, line, 1});
        }
        pane.Window().SetFocus();
    });
}

void Desk::ShowDesigner(const std::string& project, const std::string& file) {
    if (m_host.FindComponent(file) == nullptr) {
        return;
    }
    Shown("ShowDesigner", [&] {
        m_host.SelectFile(file);
        if (FileHostWindow* const window =
                m_host.Project(project).Component(file).DesignerWindow()) {
            window->SetVisible(true);
            window->SetFocus();
        }
    });
}

void Desk::GoToViolation(bool forward) {
    Grid& list = Document().Controls().List;
    const std::size_t rows = list.RowCount();
    std::size_t row = list.CurrentRow().value_or(forward ? rows - 1 : 0);
    for (std::size_t step = 0; step < rows; ++step) {
        row = forward ? (row + 1) % rows : (row + rows - 1) % rows;
        if (list.GroupRow(row)) {
            continue;
        }
        list.SetCurrentRow(row);
        // A violation of the project itself has no place in the source.
        const std::optional<ViolationDetails> details = Results().GetViolationDetails();
        if (details && !details->File.empty()) {
            Document().cmdGotoSource_Click();
            return;
        }
    }
}

void Desk::GoTo(const FoundViolation& violation) {
    Shown("GoTo", [&] {
        FileComponent* const file =
            violation.File.empty() ? nullptr : m_host.FindComponent(violation.File);
        if (file == nullptr) {
            return;
        }
        const modViolationSearch::StoredPlace place{
            violation.Text, violation.Line, violation.Location, violation.Procedure};
        const std::int32_t line = modViolationSearch::Find(file->CodeModule(), place).Line;
        m_host.SelectFile(violation.File);
        FileCodePane& pane = file->CodeModule().CodePane();
        pane.Show();
        pane.SetTopLine(std::max(line, 1));
        pane.SetSelection({std::max(line, 1), 1, std::max(line, 1), 1});
        pane.Window().SetFocus();
    });
}

void Desk::SelectViolation(std::int32_t violationId) {
    Grid& list = Document().Controls().List;
    for (std::size_t row = 0; row < list.DataRowCount(); ++row) {
        if (list.KeyOfDataRow(row) == violationId) {
            list.ChooseDataRow(row);
            return;
        }
    }
}

FileProject* Desk::OwnerOf(const FileComponent& file) {
    for (std::int32_t number = 1; number <= m_host.ProjectCount(); ++number) {
        FileProject& project = m_host.Project(number);
        for (std::int32_t index = 1; index <= project.ComponentCount(); ++index) {
            if (&project.Component(index) == &file) {
                return &project;
            }
        }
    }
    return nullptr;
}

void Desk::SaveProjectOf(const FileComponent& file) {
    FileProject* const project = OwnerOf(file);
    if (project != nullptr && project->IsDirty()) {
        project->Save();
    }
}

// ---- recent files ----

std::vector<std::string> Desk::RecentFiles() const {
    std::vector<std::string> files;
    for (std::int32_t index = 1; index <= m_recent.Count(); ++index) {
        files.push_back(m_recent.Item(index));
    }
    return files;
}

void Desk::Remember(const std::string& path) {
    Trap({kModule, "Remember"}, [&] {
        m_recent.Add(modHostPath::Shown(modHostPath::FromUser(path)));
    });
    RecentFilesChanged.Raise();
}

// ---- reviews and their results ----

void Desk::SetState(ReviewState state) {
    m_state = state;
    StateChanged.Raise();
}

void Desk::ReviewBegins() {
    m_comparedDatabase = Results().Shown().DatabaseFile;
    m_hasBefore = !m_comparedDatabase.empty() && modFiles::FileExists(m_comparedDatabase);
    m_before = m_hasBefore ? modFindings::Read(m_comparedDatabase) : std::vector<FoundViolation>();
    SetState(ReviewState::Running);
}

void Desk::ReviewEnded() {
    const ShownReview shown = Results().Shown();
    std::unique_ptr<ReviewComparison> comparison;
    if (m_hasBefore && Results().ResultsAvailable() &&
        modTextCase::Equal(shown.DatabaseFile, m_comparedDatabase)) {
        comparison = std::make_unique<ReviewComparison>(
            std::exchange(m_before, {}), modFindings::Read(shown.DatabaseFile));
    }
    m_before.clear();
    // The one before is shown until its successor is.
    const std::unique_ptr<ReviewComparison> before =
        std::exchange(m_comparison, std::move(comparison));
    ComparisonChanged.Raise();
    SetState(Results().ResultsAvailable() ? ReviewState::Done : ReviewState::None);
}

void Desk::RefreshFindings() {
    const bool isAvailable = Results().ResultsAvailable();
    m_shown = isAvailable ? Results().Shown() : ShownReview();
    ProjectFindingCounts counts;
    if (isAvailable) {
        counts = modFindings::ReadCounts(m_shown.DatabaseFile, m_shown.Filter);
    }
    m_shownProject = counts.ProjectFile;
    m_explorer.SetCounts(std::move(counts));
    FindingsChanged.Raise();
}

std::string Desk::AdviceOf(std::int32_t violationId) const {
    return modFindings::ReadAdvice(m_shown.DatabaseFile, violationId);
}

std::vector<FoundViolation>
Desk::FindingsOf(const FileProject& project, const FileComponent& file) {
    if (m_shown.DatabaseFile.empty() || !modTextCase::Equal(m_shownProject, project.PathOnDisk())) {
        return {};
    }
    return modFindings::ReadFile(
        m_shown.DatabaseFile, WithoutFolder(file.FileName()), m_shown.Filter);
}

}  // namespace dorvik
