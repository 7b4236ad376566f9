#include "base/BasicError.h"

#include <array>
#include <utility>

namespace dorvik {

namespace {

constexpr std::array<std::pair<std::int32_t, const char*>, 10> kTexts{{
    {runtimeerror::kInvalidProcedureCall, "Invalid procedure call or argument"},
    {runtimeerror::kOverflow, "Overflow"},
    {runtimeerror::kSubscriptOutOfRange, "Subscript out of range"},
    {runtimeerror::kTypeMismatch, "Type mismatch"},
    {runtimeerror::kFileNotFound, "File not found"},
    {runtimeerror::kDiskFull, "Disk full"},
    {runtimeerror::kPermissionDenied, "Permission denied"},
    {runtimeerror::kPathFileAccess, "Path/File access error"},
    {runtimeerror::kPathNotFound, "Path not found"},
    {runtimeerror::kObjectNotSet, "Object variable or With block variable not set"},
}};

}  // namespace

std::string RuntimeErrorText(std::int32_t number) {
    for (const auto& [candidate, text] : kTexts) {
        if (candidate == number) {
            return text;
        }
    }
    return "Application-defined or object-defined error";
}

void RaiseRuntimeError(std::int32_t number, const std::string& detail) {
    std::string text = RuntimeErrorText(number);
    if (!detail.empty()) {
        text += ": '" + detail + "'";
    }
    throw BasicError(number, text);
}

}  // namespace dorvik
