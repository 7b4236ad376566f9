#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// One of the double-byte code pages 932, 936, 949 and 950. A second byte may look like "[", "_" or
/// a letter; it belongs to its character and is never seen alone.
///
/// The characters come from the C library's converter, but one pair at a time into a table: given a
/// whole text, the converter skips some pairs that it cannot convert and over others not, so
/// that no one can tell where to go on.
class DoubleBytePage {
public:
    /// Null for any other code page, and for one that the C library of this machine does not offer.
    /// The page lives to the end of the program.
    static const DoubleBytePage* Find(int codePage);

    /// A pair without a character, and each byte that neither begins a pair nor is a character,
    /// becomes U+FFFD.
    std::string Decode(std::string_view bytes) const;
    /// Nothing where the page lacks a character.
    std::optional<std::string> Encode(std::string_view text) const;

private:
    struct Layout;
    class Converter;

    static std::unique_ptr<const DoubleBytePage> Load(const Layout& layout);
    DoubleBytePage(const Layout& layout, const Converter& converter);
    bool BeginsPair(std::string_view bytes) const;
    void FillCodes();
    void AddCode(char16_t character, unsigned code);

    const Layout* m_layout;
    std::array<char16_t, 128> m_singles{};  // by byte, from 80 on
    std::vector<char16_t> m_pairs;          // by first byte, from 80 on, and second byte
    std::vector<std::uint16_t>
        m_codes;  // by character: a byte, or a pair as one number; 0 for none
};

}  // namespace dorvik
