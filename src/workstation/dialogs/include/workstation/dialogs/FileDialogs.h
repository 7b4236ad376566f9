#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class IScreen;

/// The kinds of file that a dialog can ask for. A number without a name has no filter.
enum class FileKind : std::int32_t {
    Rulebase = 1,
    Batch = 2,
    Project = 3,
    ProjectGroup = 4,
    ProjectOrGroup = 5,
    Component = 6,
    Library = 7,
    Log = 8,
    ResultsDatabase = 9,
    RulebaseDocument = 11
};

/// The dialogs that ask for a file, with the filters of each kind of file.
class FileDialogs {
public:
    /// REQUIRES: `screen` outlives this.
    explicit FileDialogs(IScreen& screen) : m_screen(screen) {}

    /// Nothing where the user cancels. `startAt` is a folder or file, empty for the dialog's own choice.
    std::optional<std::string>
    GetOpenFileName(FileKind kind, std::string_view title, std::string_view startAt = {});
    /// The same for a file to be written. Only rulebases and batch files are: nothing is asked for any other kind.
    std::optional<std::string>
    GetSaveFileName(FileKind kind, std::string_view title, std::string_view startAt = {});

private:
    std::optional<std::string>
    Ask(FileKind kind, std::string_view title, std::string_view startAt, bool forSaving);

    IScreen& m_screen;
};

}  // namespace dorvik
