#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dorvik {

/// The properties of a form or control as its layout has them. Names are looked for without regard to case; one of a block
/// of properties has the block's name in front: "Font.Size".
class DesignerProperties {
public:
    /// `value` as it is written: `"a ""text"""`, `-1  'True`, `&H80000005&`, `"f.frx":0000`.
    void Add(std::string name, std::string_view value);

    /// Null where there is none.
    const std::string* Find(std::string_view name) const;
    /// Without quotes and comment; empty where there is none, and for one that is kept in another file.
    std::string Text(std::string_view name) const;
    std::optional<double> Number(std::string_view name) const;
    std::int32_t WholeNumber(std::string_view name, std::int32_t otherwise = 0) const;
    bool Flag(std::string_view name, bool otherwise) const;
    /// Red, green and blue in the lowest three bytes from above: 0xRRGGBB. The colours of the system are those of a plain
    /// desktop.
    std::uint32_t Colour(std::string_view name, std::uint32_t otherwise) const;

private:
    std::vector<std::pair<std::string, std::string>> m_values;
};

}  // namespace dorvik
