#pragma once

#include "source/FileType.h"

#include <string_view>

/// The kinds of source file as dialogs list them. MDI forms are among the forms.
namespace dorvik::modFileKinds {

struct FileKindRow {
    std::string_view Text;
    FileType Type;
    FileType OtherType = FileType::None;  // listed with it

    bool Has(FileType type) const {
        return type != FileType::None && (type == Type || type == OtherType);
    }
};

/// In the order shown.
inline constexpr FileKindRow kKinds[] = {
    {"Forms", FileType::Form, FileType::MDIForm},
    {"Modules", FileType::Module},
    {"Class Modules", FileType::Class},
    {"Designers", FileType::Designer},
    {"Property Pages", FileType::PropertyPage},
    {"User Controls", FileType::UserControl},
    {"User Documents", FileType::UserDocument},
};

}  // namespace dorvik::modFileKinds
