#include "source/FileType.h"

#include "base/modTextCase.h"

namespace dorvik {

namespace {

struct FileTypeRow {
    FileType Type;
    std::string_view Key;
};

constexpr FileTypeRow kFileTypes[] = {
    {FileType::Class, "Class"},
    {FileType::Form, "Form"},
    {FileType::Designer, "Designer"},
    {FileType::Module, "Module"},
    {FileType::PropertyPage, "PropertyPage"},
    {FileType::UserDocument, "UserDocument"},
    {FileType::UserControl, "UserControl"},
    {FileType::MDIForm, "MDIForm"},
};

}  // namespace

FileType FileTypeFromKey(std::string_view key) {
    for (const FileTypeRow& row : kFileTypes) {
        if (modTextCase::Equal(row.Key, key)) {
            return row.Type;
        }
    }
    return FileType::None;
}

std::string_view FileTypeKey(FileType type) {
    for (const FileTypeRow& row : kFileTypes) {
        if (row.Type == type) {
            return row.Key;
        }
    }
    return {};
}

bool HasLayout(FileType type) {
    switch (type) {
        case FileType::Form:
        case FileType::Designer:
        case FileType::PropertyPage:
        case FileType::UserDocument:
        case FileType::UserControl:
        case FileType::MDIForm: return true;
        case FileType::None:
        case FileType::Class:
        case FileType::Module: return false;
    }
    return false;
}

}  // namespace dorvik
