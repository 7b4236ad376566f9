#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace dorvik {

/// Ends a subscription to an event when it is destroyed. It may outlive the event.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> end) : m_end(std::move(end)) {}
    Subscription(Subscription&& other) noexcept : m_end(std::exchange(other.m_end, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        End();
        m_end = std::exchange(other.m_end, nullptr);
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { End(); }

    void End() {
        if (const auto end = std::exchange(m_end, nullptr)) {
            end();
        }
    }

private:
    std::function<void()> m_end;
};

/// Something that happens to an object, for its subscribers, in the order of the subscriptions.
///
/// A handler may subscribe, end its own subscription or another, and destroy the event: one that is ended
/// meanwhile is not called any more, one that is new is called from the next time on. What a handler
/// raises reaches the caller of `Raise`. All on one thread.
template <typename... Arguments>
class Event {
public:
    using Handler = std::function<void(Arguments...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    [[nodiscard]] Subscription Subscribe(Handler handler) {
        const std::int64_t number = ++m_handlers->LastNumber;
        m_handlers->Entries.push_back(
            {number, std::make_shared<const Handler>(std::move(handler))});
        return Subscription([handlers = std::weak_ptr<Handlers>(m_handlers), number] {
            if (const auto kept = handlers.lock()) {
                std::erase_if(
                    kept->Entries, [number](const Entry& entry) { return entry.Number == number; });
            }
        });
    }

    void Raise(Arguments... arguments) const {
        const auto kept = m_handlers;  // a handler may destroy this event
        const std::vector<Entry> entries = kept->Entries;
        for (const Entry& entry : entries) {
            if (kept->Has(entry.Number)) {
                (*entry.Call)(arguments...);
            }
        }
    }

private:
    struct Entry {
        std::int64_t Number = 0;
        std::shared_ptr<const Handler> Call;
    };
    struct Handlers {
        std::vector<Entry> Entries;
        std::int64_t LastNumber = 0;

        bool Has(std::int64_t number) const {
            return std::any_of(Entries.begin(), Entries.end(), [number](const Entry& entry) {
                return entry.Number == number;
            });
        }
    };

    std::shared_ptr<Handlers> m_handlers = std::make_shared<Handlers>();
};

}  // namespace dorvik
