#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The numbered errors of the system itself, which argument checks raise to their caller.
namespace dorvik::modKyErrors {

inline constexpr std::int32_t kyErrNoSuchItem = static_cast<std::int32_t>(0x80040202);
inline constexpr std::int32_t kyErrKeyInUse = static_cast<std::int32_t>(0x80040203);
inline constexpr std::int32_t kyErrNoFilename = static_cast<std::int32_t>(0x80040204);
inline constexpr std::int32_t kyErrRegistryType = static_cast<std::int32_t>(0x8004026A);
inline constexpr std::int32_t kyErrRegistryKey = static_cast<std::int32_t>(0x8004026B);

/// The text of a numbered error, "%KEY%" still in it; empty for a number that is none of them.
std::string_view ErrorText(std::int32_t number);

/// Raises the numbered error with its text. `source` is "Class::Procedure"; `key` replaces "%KEY%".
[[noreturn]] void
RaiseError(std::int32_t number, std::string_view source, std::string_view key = {});

}  // namespace dorvik::modKyErrors
