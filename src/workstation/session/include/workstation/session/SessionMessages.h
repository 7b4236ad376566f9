#pragma once

#include "platform/host/IMessageBox.h"

#include <deque>
#include <utility>
#include <vector>

namespace dorvik {

/// The message boxes of a session: keeps what they say and answers as the script has it.
class SessionMessages final : public IMessageBox {
public:
    struct Box {
        MessageText Message;
        MessageAnswer Answer = MessageAnswer::Ok;
    };

    /// For the next box without an answer; a box for which there is none answers with its first button.
    void Answer(MessageAnswer answer) { m_answers.push_back(answer); }
    MessageAnswer Show(const MessageText& message) override;

    const std::vector<Box>& Boxes() const { return m_boxes; }
    void Forget() { m_boxes.clear(); }

private:
    std::deque<MessageAnswer> m_answers;
    std::vector<Box> m_boxes;
};

}  // namespace dorvik
