#include "CompareMode.h"

namespace dorvik::basic {

bool IgnoresCaseAt(Arguments arguments, std::size_t position, bool byDefault) {
    if (!IsGiven(arguments, position)) {
        return byDefault;
    }
    const std::int32_t mode = LongAt(arguments, position);
    if (mode != 0 && mode != 1) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return mode == 1;
}

}  // namespace dorvik::basic
