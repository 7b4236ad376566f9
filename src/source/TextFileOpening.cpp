#include "source/TextFileOpening.h"

#include "base/BasicError.h"

namespace dorvik {

bool TextFileOpening::IsMissing() const {
    return ErrorNumber == runtimeerror::kFileNotFound || ErrorNumber == runtimeerror::kPathNotFound;
}

TextFileOpening OpenTextFile(std::string_view filename, int codePage) {
    TextFileOpening opening;
    // Not a trap: nothing is hidden, the number is the answer, and the caller tells it.
    try {
        opening.Reader = std::make_unique<TextFileReader>(filename, codePage);
    } catch (const BasicError& error) {
        opening.ErrorNumber = error.Number();
    }
    return opening;
}

}  // namespace dorvik
