#pragma once

#include "source/LineType.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// A source line as the parser passes it to its state. The views need to be valid for that call only.
struct CurrentSourceLine {
    std::string_view PhysicalText;  // as in the file, CR LF where lines were joined
    std::int32_t PhysicalLineCount = 0;
    std::string_view LogicalText;
    std::int32_t LineNumber = 0;  // 1-based, physical
    LineType Type = LineType::None;
    bool IsMultiStatement = false;
    /// The comment lines directly above the line, each with CR LF; none where there is no block.
    /// Shared and not copied, because a block grows line by line and may be as long as the file. The owner only
    /// appends to it, so the text that it has now does not change.
    std::shared_ptr<const std::string> CommentBlock;
};

}  // namespace dorvik
