#pragma once

#include "platform/host/UnfinishedFile.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class BasicError;
class FileInUseMark;

/// The file for the results of one project, and its place: reserved for this review, and made anew from the
/// template.
///
/// From before the old results are deleted on nobody else can begin a review of the project into this place,
/// until this object and all that share its `Reservation` are gone.
class ResultsFile {
public:
    /// `folder` empty: beside the project file.
    ResultsFile(std::string_view projectFile, std::string folder);

    /// The file's name; empty for a project file that has none.
    const std::string& Path() const { return m_path; }
    /// Reserves the place, opens the review log, and puts an empty results file there. False if there is no
    /// template, which is logged; every other failure is raised.
    bool Prepare(bool clearLog);
    /// The results are as complete as they will be: nothing is to be removed any more.
    void SetFinished() { m_unfinished.reset(); }

    /// Why the file could not be prepared, for a person who can do something about it; empty for a failure that
    /// only the log is told.
    std::string ReasonIn(const BasicError& failure) const;

    /// What keeps other reviews out; null before `Prepare`.
    const std::shared_ptr<FileInUseMark>& Reservation() const { return m_reservation; }

private:
    void ReservePlace(const std::string& log);
    bool CopyTemplate();

    std::string m_projectFile;
    std::string m_folder;
    std::string m_path;
    // Gone last: until then the file is this review's.
    std::shared_ptr<FileInUseMark> m_reservation;
    std::optional<UnfinishedFile> m_unfinished;  // between the file's first byte and its end
};

}  // namespace dorvik
