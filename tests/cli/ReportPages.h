#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// A report page as a browser reads it: its links and the places that links can lead to.
struct ReportPage {
    std::filesystem::path File;
    std::vector<std::string> Links;  // character references resolved, percent signs still encoded
    std::set<std::string> Ids;

    explicit ReportPage(std::filesystem::path file);
};

/// All pages below a folder.
std::vector<ReportPage> PagesBelow(const std::filesystem::path& folder);

/// What a browser opens for a link to a file, seen from its page; nothing is looked up.
std::filesystem::path TargetOf(const ReportPage& page, std::string_view link);

/// A sentence for each link of the pages that leads nowhere. Links to full paths are not looked at
/// unless asked for.
std::vector<std::string>
BrokenLinks(const std::vector<ReportPage>& pages, bool withFullPaths = true);

}  // namespace dorvik::test
