#pragma once

#include <map>
#include <string>

namespace dorvik::test {

/// How often something was left to the models that a user does by hand, by what it was.
class Fallbacks {
public:
    /// Gives false, which leaves it to the models.
    bool Leave(const std::string& what) {
        ++m_counts[what];
        return false;
    }
    const std::map<std::string, int>& Counts() const { return m_counts; }

private:
    std::map<std::string, int> m_counts;
};

}  // namespace dorvik::test
