#pragma once

#include <string>
#include <string_view>

namespace dorvik {

/// The text as a message names it: 'Form1.frm'.
inline std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

}  // namespace dorvik
