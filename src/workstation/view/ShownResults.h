#pragma once

#include "results/ResultsDB.h"
#include "workstation/view/ResultsView.h"

#include <memory>
#include <string>

namespace dorvik {

/// The results database that the work bench shows, and what goes with it.
class ShownResults {
public:
    ShownResults();
    ~ShownResults();
    ShownResults(const ShownResults&) = delete;
    ShownResults& operator=(const ShownResults&) = delete;

    /// The names of what is shown, which its owner keeps.
    ShownReview Review;

    ResultsDB& DB() { return *m_database; }
    bool Available() const { return m_available; }
    /// False where the file is not a database of this version; a message says so.
    bool Open(const std::string& file);
    /// One that is open already.
    void Take(std::unique_ptr<ResultsDB> database);
    void Close();
    /// The sort fields have changed in the settings.
    void ReadSortFields();

    const CategorySeverityLists& Lists() const { return m_lists; }
    /// Empty for a category that the review did not have.
    std::string CategoryTitle(std::int32_t id) const;
    std::string SeverityTitle(std::int32_t level) const;

private:
    void ReadCriteria();

    std::unique_ptr<ResultsDB> m_database;
    CategorySeverityLists m_lists;
    bool m_available = false;
};

}  // namespace dorvik
