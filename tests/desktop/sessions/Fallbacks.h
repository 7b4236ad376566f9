#pragma once

#include <map>
#include <string>
#include <utility>

namespace dorvik::test {

/// How often something was left to the models that a user does by hand, by what it was.
class Fallbacks {
public:
    /// What is done without a widget, and done all the same.
    void Count(const std::string& what) { ++m_counts[what]; }
    /// Gives false, which leaves it to the models.
    bool Leave(const std::string& what) {
        Count(what);
        ++m_open;
        return false;
    }
    /// The models have refused something; what was not left to them before is of no account.
    void Refused() { m_open -= m_open > 0 ? 1 : 0; }
    /// How much was left since the last call that the models have not refused.
    int TakeDone() { return std::exchange(m_open, 0); }
    const std::map<std::string, int>& Counts() const { return m_counts; }

private:
    std::map<std::string, int> m_counts;
    int m_open = 0;
};

}  // namespace dorvik::test
