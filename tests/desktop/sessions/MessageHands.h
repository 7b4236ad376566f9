#pragma once

#include "Fallbacks.h"
#include "platform/host/IMessageBox.h"
#include "platform/host/ScopedInstall.h"
#include "workstation/forms/QtMessageBox.h"

#include <functional>

namespace dorvik {
class SessionMessages;
}

namespace dorvik::test {

/// The message boxes of a session, in windows: the button of the answer that the script has is clicked.
class MessageHands final : public IMessageBox {
public:
    /// While `isHeld` gives true, nothing is shown: a box gives time to timers. REQUIRES: all outlive this.
    MessageHands(SessionMessages& messages, Fallbacks& fallbacks, std::function<bool()> isHeld);

    MessageAnswer Show(const MessageText& message) override;

private:
    MessageAnswer Click(const MessageText& message, MessageAnswer answer);

    SessionMessages& m_messages;
    Fallbacks& m_fallbacks;
    std::function<bool()> m_isHeld;
    QtMessageBox m_box;
    ScopedInstall<IMessageBox> m_installed;
};

}  // namespace dorvik::test
