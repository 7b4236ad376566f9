#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

class BasicError;

/// How many rows and answers of a results database were lost, and why the first one was. After any loss no
/// verdict can be trusted.
class StoreFailures {
public:
    std::int32_t Count() const { return m_count; }
    /// The error number of the first failure; 0 if there is none, or if it happened before the database was
    /// reached.
    std::int32_t FirstNumber() const { return m_firstNumber; }
    /// The first reason in words for the user, such as "no room is left on the disk"; empty without a failure.
    const std::string& Reason() const { return m_reason; }

    void AddCount() { ++m_count; }
    /// Stores the reason of the first failure; later ones are ignored.
    void NoteReason(std::int32_t number);
    void NoteReason(const BasicError& failure);
    void NoteReason(std::string_view reason);

private:
    std::int32_t m_count = 0;
    std::int32_t m_firstNumber = 0;
    std::string m_reason;
};

}  // namespace dorvik
