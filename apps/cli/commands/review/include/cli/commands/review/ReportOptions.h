#pragma once

#include <string>

namespace dorvik {

/// Which report pages a review writes, as the command line says it.
struct ReportOptions {
    static constexpr const char* kNone = "none";
    static constexpr const char* kSummary = "summary";
    static constexpr const char* kDetailed = "detailed";
    static constexpr const char* kClassic = "classic";
    static constexpr const char* kModern = "modern";

    std::string Detail = kNone;
    std::string Style = kClassic;
    std::string Folder;      // empty: beside each project
    std::string BatchTitle;  // empty: one is made up where a batch page is written

    bool Wanted() const { return Detail != kNone; }
    bool IsModern() const { return Style == kModern; }
};

}  // namespace dorvik
