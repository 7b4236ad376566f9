#include "basic/RuntimeErrors.h"

#include <string>

namespace dorvik::basic {

void RaiseError(std::int32_t number) {
    RaiseRuntimeError(number);
}

void RaiseLimit(std::int32_t number, std::string_view limit) {
    throw BasicError(number, RuntimeErrorText(number) + " (" + std::string(limit) + ")");
}

}  // namespace dorvik::basic
