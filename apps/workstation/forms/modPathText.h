#pragma once

#include <QString>

#include <string>
#include <string_view>

/// The models have the program's own paths, a person reads and types those of the machine.
namespace dorvik::modPathText {

/// As it is where the path is none of this machine.
QString Shown(std::string_view path);
/// The program's path for what was typed, or chosen in a dialog.
std::string Typed(const QString& text);

}  // namespace dorvik::modPathText
