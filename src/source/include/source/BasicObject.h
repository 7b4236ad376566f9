#pragma once

#include <cstdint>
#include <string>

namespace dorvik {

/// A project, a file or a procedure as read back from a results database. A plain record: the
/// results queries fill it, lists of results sort and show it.
struct BasicObject {
    std::int32_t ObjectID = 0;
    std::string ObjectType;
    std::string Filename;
    std::string Path;
    std::string Name;
    std::string Scope;
    std::int32_t ViolationCount = 0;
    std::int32_t ViolationImpact = 0;
    std::int32_t SourceLines = 0;
    float CodeCommentRatio = 0;
    std::int32_t CyclomaticComplexity = 0;
};

}  // namespace dorvik
