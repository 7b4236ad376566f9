#include "results/ResultsDB.h"

namespace dorvik {

bool ResultsDB::OpenReview(const std::string& filename, std::chrono::milliseconds patience) {
    m_reviewOpen = false;
    m_keys = {};
    m_writer.Reset();
    m_store.Trap({ResultsStore::kModule, "OpenReview"}, [&] {
        if (!m_store.OpenDatabase(filename, patience)) {
            return;
        }
        if (const std::optional<ReviewKeys> keys = m_review.GetReviewKeys()) {
            m_keys = *keys;
            m_reviewOpen = true;
        }
    });
    if (!m_reviewOpen) {
        CloseReview();
    }
    return m_reviewOpen;
}

void ResultsDB::CloseReview() {
    m_reviewOpen = false;
    m_filter.Clear();
    m_writer.Reset();
    m_store.CloseDatabase();
}

}  // namespace dorvik
