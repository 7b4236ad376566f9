#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

class BasicError;

/// What a results database could not do: how many rows and answers were lost, and why the first one was. A
/// verdict cannot be trusted where there is anything.
class StoreFailures {
public:
    std::int32_t Count() const { return m_count; }
    /// The number of the first failure; 0 where there is none, or where it never came to the database.
    std::int32_t FirstNumber() const { return m_firstNumber; }
    /// The first reason as a user understands it, such as "no room is left on the disk". Empty where there is none.
    const std::string& Reason() const { return m_reason; }

    void AddCount() { ++m_count; }
    /// Keeps the reason, unless one is there already.
    void NoteReason(std::int32_t number);
    void NoteReason(const BasicError& failure);
    void NoteReason(std::string_view reason);

private:
    std::int32_t m_count = 0;
    std::int32_t m_firstNumber = 0;
    std::string m_reason;
};

}  // namespace dorvik
