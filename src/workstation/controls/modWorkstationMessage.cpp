#include "workstation/controls/modWorkstationMessage.h"

#include "platform/host/modHost.h"

#include <utility>

namespace dorvik::modWorkstationMessage {

MessageAnswer Show(MessageIcon icon, std::string text, MessageButtons buttons) {
    return modHost::ShowMessage({icon, "Dorvik Workstation", std::move(text), buttons});
}

}  // namespace dorvik::modWorkstationMessage
