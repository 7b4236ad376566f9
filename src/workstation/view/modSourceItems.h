#pragma once

#include "base/Variant.h"
#include "source/BasicObject.h"
#include "workstation/controls/ComboBox.h"

#include <cstdint>
#include <string>
#include <string_view>

/// How source files and procedures are shown in boxes and lists.
namespace dorvik::modSourceItems {

inline constexpr std::string_view kProjectFileTag = "VBPFile";
inline constexpr std::string_view kSourceFileTag = "SourceFile";
inline constexpr std::string_view kBlankItemTag = "BlankItem";
inline constexpr std::string_view kProcedureTag = "Procedure";

/// The item that stands for all procedures of a file, by the key of the file.
ComboItem AllProceduresItem(std::int32_t sourceId);
/// A source file or, under the name of the project, the project file.
ComboItem
FileItem(const BasicObject& file, std::string_view projectName, std::string_view projectType);
/// A procedure, or the layout or declarations of a file.
ComboItem ProcedureItem(const BasicObject& procedure);

/// Whether a row of the procedures is the layout or the declarations.
bool IsSection(const BasicObject& procedure);
/// " [7]" for a figure above 0, otherwise empty.
std::string FigureText(const Variant& figure);
/// The text with another name, the figure after it kept.
std::string WithName(std::string_view text, std::string_view name);
/// Whether the text of an item is for that name, with or without a figure.
bool IsNamed(std::string_view text, std::string_view name);
/// The number that a key begins with.
std::int32_t IdOfKey(std::string_view key);
bool IsAllFiles(const ComboItem& item);
/// Whether the item has no procedures to choose from: all files, or the project file.
bool IsWhole(const ComboItem& item);

}  // namespace dorvik::modSourceItems
