#pragma once

#include <cstdint>
#include <string_view>

/// The numbers of the compile errors, all that are documented.
namespace dorvik::basic::parseerror {

inline constexpr std::int32_t kUnknownProcedure = 35;
inline constexpr std::int32_t kUndeclaredName = 500;
inline constexpr std::int32_t kOutOfMemory = 1001;
inline constexpr std::int32_t kSyntax = 1002;
inline constexpr std::int32_t kExpectedColon = 1003;
inline constexpr std::int32_t kExpectedLeftParenthesis = 1005;
inline constexpr std::int32_t kExpectedRightParenthesis = 1006;
inline constexpr std::int32_t kExpectedRightBracket = 1007;
inline constexpr std::int32_t kExpectedIdentifier = 1010;
inline constexpr std::int32_t kExpectedEqual = 1011;
inline constexpr std::int32_t kExpectedIf = 1012;
inline constexpr std::int32_t kExpectedTo = 1013;
inline constexpr std::int32_t kExpectedEnd = 1014;
inline constexpr std::int32_t kExpectedFunction = 1015;
inline constexpr std::int32_t kExpectedSub = 1016;
inline constexpr std::int32_t kExpectedThen = 1017;
inline constexpr std::int32_t kExpectedWend = 1018;
inline constexpr std::int32_t kExpectedLoop = 1019;
inline constexpr std::int32_t kExpectedNext = 1020;
inline constexpr std::int32_t kExpectedCase = 1021;
inline constexpr std::int32_t kExpectedSelect = 1022;
inline constexpr std::int32_t kExpectedExpression = 1023;
inline constexpr std::int32_t kExpectedStatement = 1024;
inline constexpr std::int32_t kExpectedEndOfStatement = 1025;
inline constexpr std::int32_t kExpectedInteger = 1026;
inline constexpr std::int32_t kExpectedWhileOrUntil = 1027;
inline constexpr std::int32_t kExpectedWhileUntilOrEnd = 1028;
inline constexpr std::int32_t kExpectedWith = 1029;
inline constexpr std::int32_t kIdentifierTooLong = 1030;
inline constexpr std::int32_t kInvalidNumber = 1031;
inline constexpr std::int32_t kInvalidCharacter = 1032;
inline constexpr std::int32_t kLoopWithoutDo = 1038;
inline constexpr std::int32_t kInvalidExit = 1039;
inline constexpr std::int32_t kInvalidForVariable = 1040;
inline constexpr std::int32_t kNameRedefined = 1041;
inline constexpr std::int32_t kMustBeFirst = 1042;
inline constexpr std::int32_t kParenthesesInCall = 1044;
inline constexpr std::int32_t kExpectedLiteral = 1045;
inline constexpr std::int32_t kExpectedIn = 1046;
inline constexpr std::int32_t kExpectedLetSetGet = 1049;
inline constexpr std::int32_t kExpectedProperty = 1050;
inline constexpr std::int32_t kInconsistentProperty = 1051;
inline constexpr std::int32_t kPropertyNeedsArgument = 1054;
inline constexpr std::int32_t kUnexpectedNext = 1055;

/// The text of a number, "Expected 'Then'"; "Syntax error" for one without.
std::string_view TextOf(std::int32_t number);

}  // namespace dorvik::basic::parseerror
