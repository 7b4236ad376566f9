#include "workstation/forms/QtMessageBox.h"

#include "modMessagePicture.h"
#include "workstation/look/modQt.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include <memory>

namespace dorvik {

namespace {

struct ButtonRow {
    QMessageBox::StandardButton Button;
    MessageAnswer Answer;
};

constexpr ButtonRow kButtons[] = {
    {QMessageBox::Ok, MessageAnswer::Ok},
    {QMessageBox::Cancel, MessageAnswer::Cancel},
    {QMessageBox::Yes, MessageAnswer::Yes},
    {QMessageBox::No, MessageAnswer::No}};

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok: return QMessageBox::Ok;
        case MessageButtons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
        case MessageButtons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case MessageButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton ButtonOf(MessageAnswer answer) {
    for (const ButtonRow& row : kButtons) {
        if (row.Answer == answer) {
            return row.Button;
        }
    }
    return QMessageBox::NoButton;
}

}  // namespace

MessageAnswer QtMessageBox::Show(const MessageText& message) {
    QWidget* const modal = QApplication::activeModalWidget();
    QMessageBox& box = modQt::Make<QMessageBox>(modal != nullptr ? modal : m_owner.data());
    // What the box belongs to may go while it is open, and the box with it.
    const QPointer<QMessageBox> kept(&box);
    box.setIconPixmap(modMessagePicture::Picture(message.Icon, box));
    box.setAccessibleDescription(modQt::Text(modMessagePicture::Spoken(message.Icon)));
    box.setWindowTitle(modQt::Text(message.Title));
    box.setTextFormat(Qt::PlainText);
    box.setText(modQt::Text(message.Text));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setStandardButtons(ButtonsOf(message.Buttons));
    box.setEscapeButton(ButtonOf(Refusal(message.Buttons)));
    const int pressed = box.exec();
    const std::unique_ptr<QMessageBox> gone(kept.data());
    for (const ButtonRow& row : kButtons) {
        if (gone != nullptr && row.Button == pressed) {
            return row.Answer;
        }
    }
    return Refusal(message.Buttons);
}

}  // namespace dorvik
