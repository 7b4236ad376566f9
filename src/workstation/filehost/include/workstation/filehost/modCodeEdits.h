#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

class FileCodeModule;

/// What an editor of code does with whole lines.
namespace modCodeEdits {

/// The blanks and tabs that a line begins with.
std::string_view Indentation(std::string_view line);

/// Makes comments of lines by an apostrophe in front of each, as one step to be undone. Lines outside the module are
/// ignored.
void Comment(FileCodeModule& module, std::int32_t first, std::int32_t last);
/// Takes the first apostrophe from each line that is a comment.
void Uncomment(FileCodeModule& module, std::int32_t first, std::int32_t last);

}  // namespace modCodeEdits

}  // namespace dorvik
