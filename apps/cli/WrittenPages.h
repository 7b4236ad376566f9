#pragma once

#include <set>
#include <string>
#include <vector>

namespace dorvik {

/// The pages that a command wrote, for its last words about them. Paths are the program's own.
class WrittenPages {
public:
    void Add(const std::string& page);
    void Add(const std::vector<std::string>& pages);
    bool Contains(const std::string& page) const;

    /// Says on standard output which pages there are: a line for each of a few, a line for each folder
    /// otherwise.
    void Print() const;
    /// Says on standard error that pages have replaced others of the same name, if any has.
    void TellReplaced() const;

private:
    std::vector<std::string> m_pages;  // each once
    std::set<std::string> m_keys;      // the same, to be found
    std::set<std::string> m_replaced;  // those that were written more than once
};

}  // namespace dorvik
