#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {

/// What the work bench asked of the environment, each call a text: `show-designer P F`, `select-control P F NAME [INDEX]`,
/// `show-line P F LINE`, `properties`, `references`, `save P`. Only the last ones are kept.
class HostCallList {
public:
    static constexpr std::size_t kMost = 10'000;

    void Add(std::string call) {
        if (m_calls.size() == kMost) {
            m_calls.erase(m_calls.begin());
        }
        m_calls.push_back(std::move(call));
    }
    const std::vector<std::string>& Calls() const { return m_calls; }
    /// Those since the last time.
    std::vector<std::string> Take() { return std::exchange(m_calls, {}); }

private:
    std::vector<std::string> m_calls;
};

}  // namespace dorvik
