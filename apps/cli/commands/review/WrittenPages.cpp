#include "cli/commands/review/WrittenPages.h"

#include "cli/output/Console.h"
#include "cli/output/modTerminalText.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/modLog.h"
#include "foundation/text/modUtilFunctions.h"
#include "reports/classic/ReportsEngine.h"

#include <algorithm>
#include <map>

namespace dorvik {

namespace {

/// As many pages are named one by one.
constexpr std::size_t kNamedPages = 10;

std::string Shown(std::string_view path) {
    return modTerminalText::Harmless(modConsole::ShownPath(path));
}

}  // namespace

void WrittenPages::Add(const std::string& page) {
    if (m_keys.insert(page).second) {
        m_pages.push_back(page);
    } else {
        m_replaced.insert(page);
    }
}

void WrittenPages::Add(const std::vector<std::string>& pages) {
    for (const std::string& page : pages) {
        Add(page);
    }
}

bool WrittenPages::Contains(const std::string& page) const {
    return m_keys.contains(page);
}

void WrittenPages::AddFailed(
    const std::string& page, const std::string& what, const std::string& reason) {
    const auto isPage = [&page](const FailedPage& failed) {
        return failed.Page == page;
    };
    if (std::none_of(m_failed.begin(), m_failed.end(), isPage)) {
        m_failed.push_back({page, what, reason});
    }
}

void WrittenPages::AddFailed(const ReportsEngine& engine) {
    for (const std::string& page : engine.FailedReports()) {
        AddFailed(page, "the page of a source file", engine.RefusalOf(page));
    }
}

void WrittenPages::Print() const {
    if (m_pages.size() <= kNamedPages) {
        for (const std::string& page : m_pages) {
            modConsole::Print("Wrote '" + Shown(page) + "'\n");
        }
        return;
    }
    std::map<std::string, std::size_t> folders;
    for (const std::string& page : m_pages) {
        ++folders[modUtilFunctions::PathFromFilename(page)];
    }
    for (const auto& [folder, count] : folders) {
        modConsole::Print(
            "Wrote " + std::to_string(count) + (count == 1 ? " page" : " pages") + " into '" +
            Shown(modUtilFunctions::RemoveBackslash(folder)) + "'\n");
    }
}

void WrittenPages::ReportReplaced() const {
    if (m_replaced.empty()) {
        return;
    }
    const std::string first = "the page '" + modConsole::ShownPath(*m_replaced.begin()) + "'";
    const std::size_t others = m_replaced.size() - 1;
    modConsole::PrintError(
        first +
        (others == 0   ? " was"
         : others == 1 ? " and 1 other were"
                       : " and " + std::to_string(others) + " others were") +
        " written more than once, because files of the same name share a page; only the last was "
        "kept");
}

void WrittenPages::ReportFailed() const {
    for (const FailedPage& failed : m_failed) {
        const std::string why =
            failed.Reason.empty()
                ? " (see the log '" + modConsole::ShownPath(modLog::Log().LogFilePath()) + "')"
                : ": " + failed.Reason;
        modConsole::PrintError(
            failed.What + " was not written to '" + modConsole::ShownPath(failed.Page) + "'" + why);
    }
}

}  // namespace dorvik
