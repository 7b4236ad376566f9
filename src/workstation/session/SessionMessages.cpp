#include "workstation/session/SessionMessages.h"

namespace dorvik {

namespace {

MessageAnswer FirstButton(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok:
        case MessageButtons::OkCancel: return MessageAnswer::Ok;
        case MessageButtons::YesNo:
        case MessageButtons::YesNoCancel: return MessageAnswer::Yes;
    }
    return MessageAnswer::Ok;
}

}  // namespace

MessageAnswer SessionMessages::Show(const MessageText& message) {
    MessageAnswer answer = FirstButton(message.Buttons);
    if (!m_answers.empty()) {
        answer = m_answers.front();
        m_answers.pop_front();
    }
    m_boxes.push_back({message, answer});
    return answer;
}

}  // namespace dorvik
