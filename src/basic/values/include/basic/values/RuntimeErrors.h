#pragma once

#include "base/BasicError.h"

#include <cstdint>
#include <string_view>

/// The run-time errors that only scripts meet. Their texts are with all others in
/// `RuntimeErrorText`.
namespace dorvik::runtimeerror {
inline constexpr std::int32_t kReturnWithoutGoSub = 3;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kArrayFixedOrLocked = 10;
inline constexpr std::int32_t kDivisionByZero = 11;
inline constexpr std::int32_t kOutOfStringSpace = 14;
inline constexpr std::int32_t kUserInterrupt = 18;
inline constexpr std::int32_t kResumeWithoutError = 20;
inline constexpr std::int32_t kOutOfStackSpace = 28;
inline constexpr std::int32_t kProcedureNotDefined = 35;
inline constexpr std::int32_t kInternalError = 51;
inline constexpr std::int32_t kForLoopNotInitialised = 92;
inline constexpr std::int32_t kInvalidPattern = 93;
inline constexpr std::int32_t kInvalidUseOfNull = 94;
inline constexpr std::int32_t kObjectRequired = 424;
inline constexpr std::int32_t kCannotCreateObject = 429;
inline constexpr std::int32_t kNoSuchMember = 438;
inline constexpr std::int32_t kNoNamedArguments = 446;
inline constexpr std::int32_t kNamedArgumentNotFound = 448;
inline constexpr std::int32_t kArgumentNotOptional = 449;
inline constexpr std::int32_t kWrongArgumentCount = 450;
inline constexpr std::int32_t kNoPropertyLet = 451;
inline constexpr std::int32_t kKeyInUse = 457;
inline constexpr std::int32_t kTypeNotSupported = 458;
inline constexpr std::int32_t kVariableUndefined = 500;
inline constexpr std::int32_t kPatternSyntax = 5017;
inline constexpr std::int32_t kUnexpectedQuantifier = 5018;
inline constexpr std::int32_t kExpectedBracket = 5019;
inline constexpr std::int32_t kExpectedParenthesis = 5020;
inline constexpr std::int32_t kElementNotFound = 32811;
}  // namespace dorvik::runtimeerror

namespace dorvik::basic {

/// The script has used up what the host gives it: memory, the length of a text, or calls within each other. The type
/// decides, and not the text, which a script can give to errors of its own.
class LimitError final : public BasicError {
public:
    using BasicError::BasicError;
};

/// A `BasicError` of that number with its own text.
[[noreturn]] void RaiseError(std::int32_t number);
/// The same with the reason after the text, in parentheses.
[[noreturn]] void RaiseError(std::int32_t number, std::string_view reason);
/// A `LimitError`; its text names the limit: "Out of memory (the limit of ...)".
[[noreturn]] void RaiseLimit(std::int32_t number, std::string_view limit);

}  // namespace dorvik::basic
