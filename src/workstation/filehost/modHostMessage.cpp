#include "modHostMessage.h"

#include "platform/host/modHost.h"

namespace dorvik::modHostMessage {

void ShowWarning(const std::string& text) {
    MessageText message;
    message.Icon = MessageIcon::Exclamation;
    message.Title = "Dorvik Workstation";
    message.Text = text;
    modHost::ShowMessage(message);
}

}  // namespace dorvik::modHostMessage
