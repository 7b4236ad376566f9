#include "cli/commands/review/ProjectStatusText.h"

#include "base/modUtf8.h"
#include "cli/output/Console.h"

namespace dorvik {

namespace {

/// Why an existing file was not opened, or not read any further.
std::string UnreadText(const UnreviewedFile& file, const std::string& name) {
    if (!file.Reason.empty()) {
        return name + " " + file.Reason;
    }
    if (file.LastLine > 0) {
        return name + " could not be read after line " + std::to_string(file.LastLine) +
               "; see the review log";
    }
    return name + " cannot be opened";
}

std::string InPartText(const UnreviewedFile& file, const std::string& name) {
    const std::string text = name + " was reviewed only in part, ";
    if (!file.Reason.empty()) {
        return text + file.Reason;
    }
    const std::string place =
        file.LastLine > 0 ? "up to line " + std::to_string(file.LastLine) + ", " : std::string();
    return text + place + "because of an unexpected error; the review log says why";
}

/// As much of a line as a sentence takes.
constexpr std::size_t kShownLine = 60;

std::string ShownLine(const VirtualProject::Line& line) {
    if (line.Number == 0) {
        return " has a line that cannot be parsed";
    }
    const std::string_view shown = modUtf8::Left(line.Text, kShownLine);
    return " cannot be parsed from line " + std::to_string(line.Number) + " on, which is '" +
           std::string(shown) + (shown.size() < line.Text.size() ? "...'" : "'");
}

}  // namespace

std::string ProjectStatusText(std::string_view filename, const VirtualProject& project) {
    const std::string name = "'" + modConsole::ShownPath(filename) + "'";
    switch (project.LoadStatus()) {
        case ProjectLoadStatus::NotFound: return "the project file " + name + " does not exist";
        case ProjectLoadStatus::NotOpened:
            return "the project file " + name + " " +
                   (project.Unreadable().empty() ? "cannot be opened" : project.Unreadable());
        case ProjectLoadStatus::LineFailed:
            return "the project file " + name + ShownLine(project.FailedLine()) +
                   " (one possible reason is a key or a source file that is named twice)";
        case ProjectLoadStatus::Good: break;
    }
    return "the project " + name + " could not be reviewed";
}

std::string SourceFileStatusText(const UnreviewedFile& file) {
    const std::string name = "'" + modConsole::ShownPath(file.Filename) + "'";
    if (!file.IsStored) {
        return "the results of the source file " + name +
               " could not be stored; the review log says why";
    }
    switch (file.Status) {
        case SourceFileStatus::NotFound: return "the source file " + name + " does not exist";
        case SourceFileStatus::UnexpectedError: return "the source file " + UnreadText(file, name);
        case SourceFileStatus::NameUnknown:
        case SourceFileStatus::TypeUnknown:
        case SourceFileStatus::Good: break;
    }
    return "the source file " + InPartText(file, name);
}

std::string CutLayoutText(std::string_view filename, const LayoutFault& fault) {
    return "the layout of the source file '" + modConsole::ShownPath(filename) +
           "' was read only in part, because " + fault.Clause();
}

}  // namespace dorvik
