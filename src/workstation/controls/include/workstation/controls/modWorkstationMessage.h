#pragma once

#include "platform/host/IMessageBox.h"

#include <string>

/// The message boxes of the work bench: its name is their title.
namespace dorvik::modWorkstationMessage {

MessageAnswer Show(MessageIcon icon, std::string text, MessageButtons buttons = MessageButtons::Ok);

}  // namespace dorvik::modWorkstationMessage
