#include "basic/values/RuntimeErrors.h"

#include <string>

namespace dorvik::basic {

namespace {

std::string TextWith(std::int32_t number, std::string_view reason) {
    return RuntimeErrorText(number) + " (" + std::string(reason) + ")";
}

}  // namespace

void RaiseError(std::int32_t number) {
    RaiseRuntimeError(number);
}

void RaiseError(std::int32_t number, std::string_view reason) {
    throw BasicError(number, TextWith(number, reason));
}

void RaiseLimit(std::int32_t number, std::string_view limit) {
    throw LimitError(number, TextWith(number, limit));
}

}  // namespace dorvik::basic
