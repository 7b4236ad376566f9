#include "MessageHands.h"

#include "modUserHands.h"
#include "workstation/look/modQt.h"
#include "workstation/session/SessionMessages.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

namespace dorvik::test {

namespace {

QMessageBox::StandardButton ButtonWith(MessageAnswer answer) {
    switch (answer) {
        case MessageAnswer::Ok: return QMessageBox::Ok;
        case MessageAnswer::Cancel: return QMessageBox::Cancel;
        case MessageAnswer::Yes: return QMessageBox::Yes;
        case MessageAnswer::No: return QMessageBox::No;
    }
    return QMessageBox::NoButton;
}

}  // namespace

MessageHands::MessageHands(
    SessionMessages& messages, Fallbacks& fallbacks, std::function<bool()> isHeld)
    : m_messages(messages),
      m_fallbacks(fallbacks),
      m_isHeld(std::move(isHeld)),
      m_installed(*this) {}

MessageAnswer MessageHands::Show(const MessageText& message) {
    const MessageAnswer answer = m_messages.Show(message);
    if (m_isHeld()) {
        m_fallbacks.Count("message while a review runs in the background");
        return answer;
    }
    return Click(message, answer);
}

MessageAnswer MessageHands::Click(const MessageText& message, MessageAnswer answer) {
    QTimer::singleShot(0, QApplication::instance(), [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            ADD_FAILURE() << "no box shows: " << message.Text;
            return;
        }
        EXPECT_EQ(modQt::Utf8(box->text()), message.Text);
        if (QAbstractButton* const button = box->button(ButtonWith(answer))) {
            modUserHands::Click(*button);
        } else {
            ADD_FAILURE() << "no such button: " << message.Text;
            box->reject();
        }
    });
    const MessageAnswer clicked = m_box.Show(message);
    EXPECT_EQ(clicked, answer) << message.Text;
    return clicked;
}

}  // namespace dorvik::test
