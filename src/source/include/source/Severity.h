#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace dorvik {

/// How grave a violation is. The numbers are those of rulebases and of results databases.
enum class Severity : std::int32_t { Critical = 1, High = 2, Medium = 3, Low = 4, Information = 5 };

/// All of them, the gravest first.
inline constexpr std::array kSeverities{
    Severity::Critical, Severity::High, Severity::Medium, Severity::Low, Severity::Information};

/// The position of a severity in `kSeverities`, from 0.
constexpr std::size_t IndexOf(Severity severity) {
    return static_cast<std::size_t>(severity) - 1;
}
static_assert(kSeverities[IndexOf(Severity::Information)] == Severity::Information);

/// The number that a rulebase and a results database have for it.
constexpr std::int32_t NumberOf(Severity severity) {
    return static_cast<std::int32_t>(severity);
}

/// The severity of a number from outside; nothing for a number that is none.
constexpr std::optional<Severity> SeverityOf(std::int32_t number) {
    if (number < NumberOf(kSeverities.front()) || number > NumberOf(kSeverities.back())) {
        return std::nullopt;
    }
    return static_cast<Severity>(number);
}

}  // namespace dorvik
