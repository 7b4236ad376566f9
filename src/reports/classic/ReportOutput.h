#pragma once

#include "reports/format/HTMLHelper2.h"
#include "reports/format/modReportFilename.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Writes pages to files and lists those that were written and those that failed, by full path.
class ReportOutput {
public:
    /// Replaces an earlier report of that name. A failure is logged.
    void SaveReport(
        const HTMLHelper2& html,
        std::string_view projectFile,
        ReportKind kind,
        std::string_view folder,
        std::string_view sourceFile = {},
        std::string_view name = {});
    /// A page that failed before it could be saved.
    void AddFailed(std::string page) { m_failed.push_back(std::move(page)); }

    /// In the order of writing.
    const std::vector<std::string>& Written() const { return m_written; }
    const std::vector<std::string>& Failed() const { return m_failed; }
    /// Why a page could not be written, if another file or folder is in its way; otherwise empty.
    std::string RefusalOf(const std::string& page) const;

private:
    std::vector<std::string> m_written;
    std::vector<std::string> m_failed;
    std::map<std::string, std::string> m_refusals;  // by page
};

}  // namespace dorvik
