#pragma once

namespace dorvik {

/// What kind of line a physical or logical source line is. The numbers are seen by rules and stored.
enum class LineType : int {
    Blank = 0,
    CommentOnly = 1,
    CodeWithComment = 2,
    Code = 3,
    Continued = 4,  ///< code that continues in the next physical line
    None = 5        ///< no line is current
};

}  // namespace dorvik
