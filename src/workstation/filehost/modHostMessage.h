#pragma once

#include <string>

/// The messages of the environment over files.
namespace dorvik::modHostMessage {

/// A box with an exclamation mark and one button.
void ShowWarning(const std::string& text);

}  // namespace dorvik::modHostMessage
