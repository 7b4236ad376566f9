#pragma once

#include "platform/host/MessageText.h"

namespace dorvik {

/// Shows a message to the person in front of the program and comes back with the button that was
/// pressed. Without one installed, messages are shown nowhere and answered by `Refusal`.
class IMessageBox {
public:
    virtual ~IMessageBox() = default;
    virtual MessageAnswer Show(const MessageText& message) = 0;
};

}  // namespace dorvik
