#pragma once

#include <cstdint>
#include <string_view>

namespace dorvik {

/// The kind of a source file, with the numbers that rules and results see. `None` is a file whose
/// kind is not known (yet).
enum class FileType : int {
    None = 0,
    Class = 1,
    Form = 2,
    Designer = 3,
    Module = 4,
    PropertyPage = 5,
    UserDocument = 6,
    UserControl = 7,
    MDIForm = 8,
};

/// The file type of a key of the project file ("Class", "MDIForm"), in any case; `None` for any other text.
FileType FileTypeFromKey(std::string_view key);

/// The key of a file type, as the project file writes it; empty for `None`.
std::string_view FileTypeKey(FileType type);

/// Whether files of that type begin with a layout: what forms, designers and controls show.
bool HasLayout(FileType type);

}  // namespace dorvik
