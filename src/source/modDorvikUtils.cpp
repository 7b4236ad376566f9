#include "source/modDorvikUtils.h"

#include "base/modTextCase.h"

namespace dorvik::modDorvikUtils {

bool IsVBPFile(std::string_view filename) {
    return modTextCase::EndsWith(filename, "VBP");
}

}  // namespace dorvik::modDorvikUtils
