#pragma once

#include <string>

namespace dorvik {

/// The picture beside the text of a message box, with the numbers that the reviewed language uses.
enum class MessageIcon : int {
    None = 0,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64
};

/// The buttons under the text, with the numbers that the reviewed language uses.
enum class MessageButtons : int { Ok = 0, OkCancel = 1, YesNoCancel = 3, YesNo = 4 };

/// The button that was pressed, with the numbers that the reviewed language uses. A box that is
/// closed without a button answers as `Refusal` does.
enum class MessageAnswer : int { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// The answer that agrees to nothing: that of a box which no one sees.
constexpr MessageAnswer Refusal(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok: return MessageAnswer::Ok;
        case MessageButtons::OkCancel:
        case MessageButtons::YesNoCancel: return MessageAnswer::Cancel;
        case MessageButtons::YesNo: return MessageAnswer::No;
    }
    return MessageAnswer::Cancel;
}

/// What a message box says, and what it lets its reader answer.
struct MessageText {
    MessageIcon Icon = MessageIcon::None;
    std::string Title;
    std::string Text;
    MessageButtons Buttons = MessageButtons::Ok;

    friend bool operator==(const MessageText&, const MessageText&) = default;
};

}  // namespace dorvik
