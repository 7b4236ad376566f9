#include "TextFileOpening.h"

#include "base/BasicError.h"
#include "foundation/log/Trap.h"

namespace dorvik {

bool TextFileOpening::IsMissing() const {
    return ErrorNumber == runtimeerror::kFileNotFound || ErrorNumber == runtimeerror::kPathNotFound;
}

void TextFileOpening::Raise(std::string_view filename) const {
    std::string text = RuntimeErrorText(ErrorNumber) + ": '" + std::string(filename) + "'";
    if (!Unreadable.empty()) {
        text += " " + Unreadable;
    }
    throw BasicError(ErrorNumber, text);
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
            if (const auto* unreadable = dynamic_cast<const UnreadableText*>(&error)) {
                opening.Unreadable = modTextForm::WhyUnreadable(unreadable->Form());
            }
            return true;
        });
    return opening;
}

}  // namespace dorvik
