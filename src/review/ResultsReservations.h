#pragma once

#include <deque>
#include <memory>

namespace dorvik {

class FileInUseMark;

/// Keeps other reviews out of the results of the projects that a review has finished, as long as somebody
/// still reads them: for the page of the batch, the summary. One review owns it.
class ResultsReservations {
public:
    /// Each costs an open file, so of a long row the first ones are given up.
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
