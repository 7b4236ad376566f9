#pragma once

#include "platform/host/IMessageBox.h"
#include "platform/host/ScopedInstall.h"

#include <vector>

namespace dorvik::test {

/// Keeps the messages that the program shows, as long as this lives, instead of showing them, and answers
/// questions by agreeing to nothing.
class RecordingMessageBox final : public IMessageBox {
public:
    RecordingMessageBox() : m_installed(*this) {}

    MessageAnswer Show(const MessageText& message) override {
        Messages.push_back(message);
        return Refusal(message.Buttons);
    }

    std::vector<MessageText> Messages;

private:
    ScopedInstall<IMessageBox> m_installed;
};

}  // namespace dorvik::test
