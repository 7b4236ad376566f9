#include "cli/ReportPages.h"

#include <fstream>
#include <iterator>

namespace dorvik::test {

namespace fs = std::filesystem;

namespace {

std::string ReadAll(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void AppendUtf8(std::string& text, unsigned long codePoint) {
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        text += static_cast<char>(0xC0 | (codePoint >> 6));
        text += static_cast<char>(0x80 | (codePoint & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (codePoint >> 12));
        text += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (codePoint & 0x3F));
    }
}

/// "&#223;" as the character, as a browser reads an attribute.
std::string WithoutReferences(std::string_view text) {
    std::string result;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const std::size_t end = text.find(';', place);
        if (text.substr(place, 2) == "&#" && end != std::string_view::npos) {
            AppendUtf8(result, std::stoul(std::string(text.substr(place + 2, end - place - 2))));
            place = end;
        } else {
            result += text[place];
        }
    }
    return result;
}

std::string WithoutPercents(std::string_view text) {
    std::string result;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (text[place] == '%' && place + 2 < text.size()) {
            result +=
                static_cast<char>(std::stoi(std::string(text.substr(place + 1, 2)), nullptr, 16));
            place += 2;
        } else {
            result += text[place];
        }
    }
    return result;
}

/// The values of an attribute throughout a page.
std::vector<std::string> Values(std::string_view page, std::string_view attribute) {
    const std::string begin = " " + std::string(attribute) + "=\"";
    std::vector<std::string> values;
    for (std::size_t place = page.find(begin); place != std::string_view::npos;
         place = page.find(begin, place + 1)) {
        const std::size_t start = place + begin.size();
        values.push_back(WithoutReferences(page.substr(start, page.find('"', start) - start)));
    }
    return values;
}

const ReportPage* PageOf(const std::vector<ReportPage>& pages, const fs::path& file) {
    for (const ReportPage& page : pages) {
        if (page.File == file) {
            return &page;
        }
    }
    return nullptr;
}

}  // namespace

ReportPage::ReportPage(fs::path file) : File(std::move(file)) {
    const std::string text = ReadAll(File);
    Links = Values(text, "href");
    for (std::string& id : Values(text, "id")) {
        Ids.insert(std::move(id));
    }
}

std::vector<ReportPage> PagesBelow(const fs::path& folder) {
    std::vector<ReportPage> pages;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".html") {
            pages.emplace_back(entry.path());
        }
    }
    return pages;
}

fs::path TargetOf(const ReportPage& page, std::string_view link) {
    const std::string path = WithoutPercents(link.substr(0, link.find_first_of("#?")));
    return path.empty() ? page.File : (page.File.parent_path() / path).lexically_normal();
}

std::vector<std::string> BrokenLinks(const std::vector<ReportPage>& pages, bool withFullPaths) {
    std::vector<std::string> broken;
    for (const ReportPage& page : pages) {
        for (const std::string& link : page.Links) {
            if (link.starts_with('/') && !withFullPaths) {
                continue;
            }
            const fs::path target = TargetOf(page, link);
            const std::size_t anchor = link.find('#');
            const ReportPage* const found = PageOf(pages, target);
            const bool meets =
                anchor == std::string::npos ||
                (found != nullptr && found->Ids.contains(WithoutPercents(link.substr(anchor + 1))));
            if (!fs::is_regular_file(target) || !meets) {
                broken.push_back(page.File.string() + " links to '" + link + "'");
            }
        }
    }
    return broken;
}

}  // namespace dorvik::test
