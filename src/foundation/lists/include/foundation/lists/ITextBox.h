#pragma once

#include <cstdint>
#include <string>

namespace dorvik {

/// A text box of a dialog, as far as the text functions need one.
class ITextBox {
public:
    virtual ~ITextBox() = default;

    virtual std::string Text() const = 0;
    /// `start` is the number of characters before the selection.
    virtual void SetSelection(std::int32_t start, std::int32_t length) = 0;
};

}  // namespace dorvik
