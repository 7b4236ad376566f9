#pragma once

#include "basic/syntax/CompileError.h"
#include "basic/syntax/ScriptOrigin.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::basic {

/// Numbers of the compile errors that the compiler itself finds.
namespace compileerror {
inline constexpr std::int32_t kNotDefined = 35;
inline constexpr std::int32_t kUndeclared = 500;
inline constexpr std::int32_t kOther = 1002;
inline constexpr std::int32_t kInvalidExit = 1039;
inline constexpr std::int32_t kControlVariable = 1040;
inline constexpr std::int32_t kRedefined = 1041;
inline constexpr std::int32_t kParenthesesAtSub = 1044;
inline constexpr std::int32_t kConstantExpected = 1045;
inline constexpr std::int32_t kPropertyArguments = 1051;
inline constexpr std::int32_t kPropertyNeedsArgument = 1054;
}  // namespace compileerror

/// Collects what the compiler has to say about a module.
class Diagnostics {
public:
    explicit Diagnostics(std::span<const ScriptOrigin> origins) : m_origins(origins) {}

    void Error(std::int32_t number, SourcePlace place, std::string text, std::string name = {});
    void Warn(SourcePlace place, std::string text);
    /// A name that has two definitions; the message names both locations.
    void Redefined(std::string_view name, SourcePlace second, SourcePlace first);

    std::vector<CompileError> Errors;
    std::vector<CompileWarning> Warnings;

private:
    std::string LineText(SourcePlace place) const;

    std::span<const ScriptOrigin> m_origins;
};

/// The script that a line of the module came from; null if that is not known.
const ScriptOrigin* FindOrigin(std::span<const ScriptOrigin> origins, std::int32_t line);

}  // namespace dorvik::basic
