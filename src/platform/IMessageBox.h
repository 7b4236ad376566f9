#pragma once

#include "platform/MessageText.h"

namespace dorvik {

/// Shows a message to the person in front of the program and comes back when it has been read.
/// Without one installed, messages are shown nowhere.
class IMessageBox {
public:
    virtual ~IMessageBox() = default;
    virtual void Show(const MessageText& message) = 0;
};

}  // namespace dorvik
