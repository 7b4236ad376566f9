#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Texts out of chance for progress tests, the same ones in every run: any bytes, or a stew of the
/// pieces that the functions under test look for.
class RandomText {
public:
    std::size_t Number(std::size_t below) { return m_engine() % below; }

    std::string Bytes(std::size_t length) {
        std::string text(length, '\0');
        for (char& character : text) {
            character = static_cast<char>(m_engine() & 0xFFU);
        }
        return text;
    }

    std::string Pieces(const std::vector<std::string_view>& pieces, std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) {
            text += pieces[Number(pieces.size())];
        }
        return text;
    }

private:
    std::mt19937 m_engine{20011231};
};

inline const std::vector<std::string_view> kSourcePieces = {
    " ",         " ",        "\t",        "'",       "\"",          "\"",          ":",
    ": Rem ",    ",",        ", ",        "(",       ")",           "()",          "_",
    "=",         " = ",      "10",        "x",       "Rem",         "Rem ",        "Private ",
    "PUBLIC ",   "static",   "Friend ",   "Global ", "Sub ",        "Sub",         "Function ",
    "Property ", "Get ",     "End ",      "Enum ",   "Type ",       "Const ",      "Dim ",
    "Event ",    "Declare ", " Lib ",     " Alias ", "Implements ", "a.b",         " As ",
    "As",        "New ",     "Optional ", "ByVal ",  "ParamArray ", "WithEvents ", "*",
    "$",         "{",        ";",         "#",       "\xC3\xA9",    "\xC4\xB0",    "\xE2\x84\xAA",
    "\xFF",      "\xE3\x81", "Object = ", "Begin ",  "EndProperty"};

}  // namespace dorvik
