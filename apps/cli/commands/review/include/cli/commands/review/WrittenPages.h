#pragma once

#include <set>
#include <string>
#include <vector>

namespace dorvik {

class ReportsEngine;

/// The pages that a command wrote, for its last words about them. Paths are the program's own.
class WrittenPages {
public:
    void Add(const std::string& page);
    void Add(const std::vector<std::string>& pages);
    bool Contains(const std::string& page) const;
    /// Notes a page that should have been written; `what` begins its sentence ("the report of 'X'"), and
    /// `reason` ends it where there is one that helps more than the log. Of several notes of one page the
    /// first is.
    void
    AddFailed(const std::string& page, const std::string& what, const std::string& reason = {});
    /// The same for whatever else the engine could not write.
    void AddFailed(const ReportsEngine& engine);
    /// True unless a page was noted as failed.
    bool Complete() const { return m_failed.empty(); }
    bool Empty() const { return m_pages.empty(); }

    /// Says on standard output which pages there are: a line for each of a few, a line for each folder
    /// otherwise.
    void Print() const;
    /// Says on standard error that pages have replaced others of the same name, if any has.
    void ReportReplaced() const;
    /// Says on standard error which pages could not be written, a sentence for each.
    void ReportFailed() const;

private:
    struct FailedPage {
        std::string Page;
        std::string What;
        std::string Reason;
    };

    std::vector<std::string> m_pages;  // each once
    std::set<std::string> m_keys;      // the same, to be found
    std::set<std::string> m_replaced;  // those that were written more than once
    std::vector<FailedPage> m_failed;
};

}  // namespace dorvik
