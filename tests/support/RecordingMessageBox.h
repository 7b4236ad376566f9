#pragma once

#include "platform/IMessageBox.h"
#include "platform/ScopedInstall.h"

#include <vector>

namespace dorvik::test {

/// Keeps the messages that the program shows, as long as this lives, instead of showing them.
class RecordingMessageBox final : public IMessageBox {
public:
    RecordingMessageBox() : m_installed(*this) {}

    void Show(const MessageText& message) override { Messages.push_back(message); }

    std::vector<MessageText> Messages;

private:
    ScopedInstall<IMessageBox> m_installed;
};

}  // namespace dorvik::test
