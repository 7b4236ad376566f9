#pragma once

#include <deque>
#include <memory>

namespace dorvik {

class FileInUseMark;

/// Keeps other reviews from replacing the results of finished projects while they are still read, for the page of
/// the batch and for the summary. One review owns it.
class ResultsReservations {
public:
    /// Each keeps a file open. Beyond this number the oldest reservations are released.
    static constexpr std::size_t kMost = 250;

    void Keep(std::shared_ptr<FileInUseMark> reservation) {
        m_kept.push_back(std::move(reservation));
        if (m_kept.size() > kMost) {
            m_kept.pop_front();
        }
    }

private:
    std::deque<std::shared_ptr<FileInUseMark>> m_kept;
};

}  // namespace dorvik
