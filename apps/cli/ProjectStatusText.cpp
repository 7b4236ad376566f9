#include "cli/ProjectStatusText.h"

#include "cli/Console.h"

namespace dorvik {

std::string ProjectStatusText(std::string_view filename, ProjectLoadStatus status) {
    const std::string name = "'" + modConsole::ShownPath(filename) + "'";
    switch (status) {
        case ProjectLoadStatus::NotFound: return "the project file " + name + " does not exist";
        case ProjectLoadStatus::NotOpened: return "the project file " + name + " cannot be opened";
        case ProjectLoadStatus::LineFailed:
            return "the project file " + name +
                   " holds a line that cannot be understood, such as a key or a source file named "
                   "twice";
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
        case SourceFileStatus::UnexpectedError:
            return "the source file " + name + " cannot be opened";
        case SourceFileStatus::NameUnknown:
        case SourceFileStatus::TypeUnknown:
        case SourceFileStatus::Good: break;
    }
    return "the source file " + name + " was reviewed only in part, because of an unexpected error";
}

}  // namespace dorvik
