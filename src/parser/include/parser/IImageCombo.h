#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// One entry of a drop-down list with icons.
struct ImageComboItem {
    std::string Key;
    std::string_view Text;         // lives as long as the program
    std::string_view IconKey;      // lives as long as the program
    std::int32_t Indentation = 0;  // levels
};

/// What filling a drop-down list needs of it. Screens and tests implement it.
class IImageCombo {
public:
    virtual ~IImageCombo() = default;

    virtual void Clear() = 0;
    /// Adds the item behind the last one.
    virtual void AddItem(const ImageComboItem& item) = 0;
};

}  // namespace dorvik
