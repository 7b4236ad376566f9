#pragma once

#include <string>
#include <string_view>

namespace dorvik {

/// What several texts have in common at both ends. A character of several bytes is never divided.
class CommonEnds {
public:
    void Add(std::string_view text);

    const std::string& Head() const { return m_head; }
    const std::string& Tail() const { return m_tail; }
    /// What is between both ends. REQUIRES: `text` was added.
    std::string_view MiddleOf(std::string_view text) const;

private:
    bool m_any = false;
    bool m_alike = true;  // all texts so far are the same one: it is the head
    std::string m_head;
    std::string m_tail;
};

}  // namespace dorvik
