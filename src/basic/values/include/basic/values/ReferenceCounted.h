#pragma once

#include <cstdint>
#include <utility>

namespace dorvik::basic {

/// What a `Ref` points to: a body that lives as long as someone refers to it. Scripts run on one
/// thread, so the count is a plain number.
class ReferenceCounted {
public:
    ReferenceCounted() = default;
    ReferenceCounted(const ReferenceCounted&) = delete;
    ReferenceCounted& operator=(const ReferenceCounted&) = delete;
    virtual ~ReferenceCounted() = default;

    void AddReference() const { ++m_references; }
    /// True when that was the last reference; the caller then destroys the body.
    bool DropReference() const { return --m_references == 0; }
    bool IsShared() const { return m_references > 1; }
    std::uint32_t References() const { return m_references; }

    /// Destroys a body that no one refers to. A chain of bodies (a collection in a collection in ...)
    /// is taken apart link by link, so that no script can exhaust the stack of the program with one.
    static void Destroy(const ReferenceCounted* body) noexcept;

private:
    mutable std::uint32_t m_references = 0;
};

/// Shared ownership of a body; null by default.
template <class T>
class Ref {
public:
    Ref() = default;
    explicit Ref(T* body) : m_body(body) {
        if (m_body) {
            m_body->AddReference();
        }
    }
    Ref(const Ref& other) : Ref(other.m_body) {}
    Ref(Ref&& other) noexcept : m_body(std::exchange(other.m_body, nullptr)) {}
    template <class Derived>
    Ref(const Ref<Derived>& other) : Ref(other.Get()) {}  // NOLINT(google-explicit-constructor)
    Ref& operator=(Ref other) noexcept {
        std::swap(m_body, other.m_body);
        return *this;
    }
    ~Ref() {
        if (m_body && m_body->DropReference()) {
            ReferenceCounted::Destroy(m_body);
        }
    }

    T* Get() const { return m_body; }
    T* operator->() const { return m_body; }
    T& operator*() const { return *m_body; }
    explicit operator bool() const { return m_body != nullptr; }

    /// Gives the reference away: the count stays, and the caller drops it some day.
    T* Detach() noexcept { return std::exchange(m_body, nullptr); }

private:
    T* m_body = nullptr;
};

template <class T, class... Arguments>
Ref<T> MakeRef(Arguments&&... arguments) {
    return Ref<T>(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace dorvik::basic
