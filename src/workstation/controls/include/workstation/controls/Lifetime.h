#pragma once

#include <memory>
#include <utility>

namespace dorvik {

/// Says after an object gave way to input whether it is still there: a member of the object, watched by the code that
/// continues. All on one thread.
class Lifetime {
public:
    class Watch {
    public:
        explicit Watch(std::weak_ptr<const bool> life) : m_life(std::move(life)) {}
        bool IsOver() const { return m_life.expired(); }

    private:
        std::weak_ptr<const bool> m_life;
    };

    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    Watch Watched() const { return Watch(m_life); }

private:
    std::shared_ptr<const bool> m_life = std::make_shared<const bool>(true);
};

}  // namespace dorvik
