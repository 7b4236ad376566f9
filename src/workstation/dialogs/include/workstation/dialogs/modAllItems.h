#pragma once

#include "workstation/controls/ComboBox.h"

#include <string_view>

/// The entry of a files box that stands for all source files.
namespace dorvik::modAllItems {

inline constexpr std::string_view kKey = "~AllItems~";
/// Also of the entry for all procedures of a file.
inline constexpr std::string_view kImage = "AllItems";

ComboItem AllFiles();

}  // namespace dorvik::modAllItems
