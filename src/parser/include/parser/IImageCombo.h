#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// One entry of a drop-down list with icons.
struct ImageComboItem {
    std::string Key;
    std::string_view Text;         // a constant
    std::string_view IconKey;      // a constant
    std::int32_t Indentation = 0;  // levels
};

/// The operations with which a drop-down list is filled. Windows and tests implement it.
class IImageCombo {
public:
    virtual ~IImageCombo() = default;

    virtual void Clear() = 0;
    /// Adds the item after the last one.
    virtual void AddItem(const ImageComboItem& item) = 0;
};

}  // namespace dorvik
