#pragma once

#include "workstation/host/ICodeModule.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Finds the line of a stored violation again in code that may have changed since the review.
namespace dorvik::modViolationSearch {

/// What a violation has about its place.
struct StoredPlace {
    std::string SourceLine;  // all physical lines of the statement; empty without a line
    std::int32_t SourceLineNumber = 0;
    std::int32_t Location = 0;   // a number of `Location`
    std::string LocationMember;  // the procedure
};

enum class Failure { None, ProcedureMissing, LineMissing };

struct Result {
    std::int32_t Line = 0;  // 0 where it was not found
    Failure Why = Failure::None;

    friend bool operator==(const Result&, const Result&) = default;
};

/// The line at which the violation was stored if it is still there, otherwise the first line with its text in the
/// declarations or the procedure in which it was. Of a statement only its first physical line is compared.
Result Find(const ICodeModule& module, const StoredPlace& place);

/// The message to the user; empty for `None`.
std::string_view MessageOf(Failure failure);

}  // namespace dorvik::modViolationSearch
