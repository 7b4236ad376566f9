#include "basic/values/KnownFailure.h"

#include "basic/values/NumberInText.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>
#include <iterator>

namespace dorvik::basic {

namespace {

constexpr bool IsNumberKind(DeclaredKind kind) {
    constexpr DeclaredKind kNumbers[] = {
        DeclaredKind::Byte,
        DeclaredKind::Integer,
        DeclaredKind::Long,
        DeclaredKind::Single,
        DeclaredKind::Double,
        DeclaredKind::Currency};
    return std::find(std::begin(kNumbers), std::end(kNumbers), kind) != std::end(kNumbers);
}

}  // namespace

std::int32_t KnownFailure(const Value& value, DeclaredKind kind) {
    if (!IsNumberKind(kind)) {
        return 0;
    }
    if (value.Type() == ValueType::Null) {
        return runtimeerror::kInvalidUseOfNull;
    }
    // A number that is too large for a Double is one, too.
    const bool isNumber = value.Type() != ValueType::String || IsNumericText(value.AsText()) ||
                          NumberInText::Read(value.AsText());
    return isNumber ? 0 : runtimeerror::kTypeMismatch;
}

}  // namespace dorvik::basic
