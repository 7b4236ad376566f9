#include "source/TextFileOpening.h"

#include "base/BasicError.h"
#include "foundation/Trap.h"

namespace dorvik {

bool TextFileOpening::IsMissing() const {
    return ErrorNumber == runtimeerror::kFileNotFound || ErrorNumber == runtimeerror::kPathNotFound;
}

TextFileOpening OpenTextFile(std::string_view filename, int codePage) {
    TextFileOpening opening;
    opening.ErrorNumber = runtimeerror::kPathFileAccess;
    Trap(
        {"TextFileOpening", "OpenTextFile"},
        [&] {
            opening.Reader = std::make_unique<TextFileReader>(filename, codePage);
            opening.ErrorNumber = 0;
        },
        [&](const BasicError& error) {
            opening.ErrorNumber = error.Number();
            return true;
        });
    return opening;
}

}  // namespace dorvik
