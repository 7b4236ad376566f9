#pragma once

#include <string>
#include <string_view>

/// How the lines of a source file make logical ones: a line that ends in " _" continues in the next one.
namespace dorvik::modLogicalLine {

/// Whether the line continues in the next one.
bool IsContinued(std::string_view physicalLine);
/// A continued line without its last character, and without the blanks before and after that.
std::string_view WithoutContinuation(std::string_view continuedLine);
/// Adds the next line, one blank before it. It is trimmed unless it is the begin of the logical line.
void AppendJoined(std::string& logical, std::string_view text);
/// Required: only digits at the very first column are a line number.
void RemoveLineNumber(std::string& logical);

}  // namespace dorvik::modLogicalLine
