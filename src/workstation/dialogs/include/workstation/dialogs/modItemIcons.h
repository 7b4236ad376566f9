#pragma once

#include <string_view>

/// The names of the pictures that stand for projects and files.
namespace dorvik::modItemIcons {

/// Of a project by its type as the project file writes it: "AXDLL" for "OleDll"; "OTHER" for an unknown one.
std::string_view ProjectIconKeyFromType(std::string_view projectType);

/// Of a source file by the name of its type, "MDIForm" say; "OTHER" for an unknown one.
std::string_view IconFromSourceFileType(std::string_view fileType);

}  // namespace dorvik::modItemIcons
