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

/// What a message box says.
struct MessageText {
    MessageIcon Icon = MessageIcon::None;
    std::string Title;
    std::string Text;

    friend bool operator==(const MessageText&, const MessageText&) = default;
};

}  // namespace dorvik
