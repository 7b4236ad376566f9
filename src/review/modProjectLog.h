#pragma once

#include <string_view>

namespace dorvik {

class ReviewLog;
class VirtualProject;

/// What a review writes to the review log about its project as a whole.
namespace modProjectLog {

/// Writes a line without a prefix. A line that cannot be written does not stop the review, and costs no results;
/// `modLog::FirstUnwritten` reports it.
void LogLine(const ReviewLog& log, std::string_view line);

/// The first lines: which project, and when.
void LogBegin(const ReviewLog& log, std::string_view projectFile);
/// The last lines: when, and what failed during the review.
void LogEnd(const ReviewLog& log, const VirtualProject& project);

}  // namespace modProjectLog

}  // namespace dorvik
