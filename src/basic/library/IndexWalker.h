#pragma once

#include "basic/values/ScriptObject.h"

#include <functional>

namespace dorvik::basic {

/// Traverses a list that does not change: the elements 0 to `count` - 1 as a function gives them.
class IndexWalker final : public ScriptIterator {
public:
    IndexWalker(std::size_t count, std::function<Value(std::size_t)> elementAt)
        : m_count(count), m_elementAt(std::move(elementAt)) {}

    bool Next(Value& element) override {
        if (m_next == m_count) {
            return false;
        }
        element = m_elementAt(m_next++);
        return true;
    }

private:
    std::size_t m_count;
    std::size_t m_next = 0;
    std::function<Value(std::size_t)> m_elementAt;
};

}  // namespace dorvik::basic
