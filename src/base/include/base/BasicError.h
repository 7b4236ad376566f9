#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace dorvik {

/// Run-time error numbers of the reviewed language that the system itself raises or distinguishes.
namespace runtimeerror {
inline constexpr std::int32_t kInvalidProcedureCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kDeviceError = 57;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathFileAccess = 75;
inline constexpr std::int32_t kPathNotFound = 76;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kInvalidFileFormat = 321;
}  // namespace runtimeerror

/// A failure with a number, as the reviewed language reports failures: either one of `runtimeerror`
/// or one of `modKyErrors`. `what()` is the description; `Source` names the raising "Class::Procedure"
/// for the numbered errors of argument checks and is empty elsewhere.
class BasicError : public std::runtime_error {
public:
    BasicError(std::int32_t number, const std::string& description, std::string source = {})
        : std::runtime_error(description), m_number(number), m_source(std::move(source)) {}

    std::int32_t Number() const { return m_number; }
    const std::string& Source() const { return m_source; }

private:
    std::int32_t m_number;
    std::string m_source;
};

/// The language's own text for a run-time error, for example "File not found" for 53;
/// "Application-defined or object-defined error" for a number without one.
std::string RuntimeErrorText(std::int32_t number);

/// A `BasicError` of that number with its own text, `detail` (a file name, say) appended in quotes.
[[noreturn]] void RaiseRuntimeError(std::int32_t number, const std::string& detail = {});

}  // namespace dorvik
