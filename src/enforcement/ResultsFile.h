#pragma once

#include "platform/host/UnfinishedFile.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class BasicError;
class FileInUseMark;

/// The results file of one project: reserves it for this review and creates it from the template.
///
/// The reservation is made before the old results are deleted. No other review can write the file until this object
/// and all that share its `Reservation` are destroyed.
class ResultsFile {
public:
    /// `folder` empty: in the folder of the project file.
    ResultsFile(std::string_view projectFile, std::string folder);

    /// The name of the results file; empty if there is none for the project file.
    const std::string& Path() const { return m_path; }
    /// Reserves the file, opens the review log, and copies the template. False if there is no template, which is
    /// logged; every other failure is raised.
    bool Prepare(bool clearLog);
    /// The review has ended: the file is not deleted with this object.
    void SetFinished() { m_unfinished.reset(); }

    /// Why the file could not be prepared, for a failure that the user can remedy; empty for any other, which is
    /// only logged.
    std::string ReasonIn(const BasicError& failure) const;

    /// The reservation of the results file; null before `Prepare`.
    const std::shared_ptr<FileInUseMark>& Reservation() const { return m_reservation; }

private:
    void ReserveOutput(const std::string& log);
    bool CopyTemplate();

    std::string m_projectFile;
    std::string m_folder;
    std::string m_path;
    // Destroyed last: until then no other review can write the file.
    std::shared_ptr<FileInUseMark> m_reservation;
    std::optional<UnfinishedFile> m_unfinished;  // between the file's first byte and its end
};

}  // namespace dorvik
