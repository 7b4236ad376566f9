#include "ReportOutput.h"

#include "foundation/log/Trap.h"
#include "platform/host/OutputRefusal.h"
#include "reports/format/modReportFile.h"

namespace dorvik {

void ReportOutput::SaveReport(
    const HTMLHelper2& html,
    std::string_view projectFile,
    ReportKind kind,
    std::string_view folder,
    std::string_view sourceFile,
    std::string_view name) {
    const OutputPlace place =
        modDorvikUtils::ReportPlace(projectFile, kind, folder, sourceFile, name);
    const std::string path = place.Path();
    bool saved = false;
    const auto save = [&] {
        modReportFile::Write(place, html.DocumentText());
        saved = true;
    };
    Trap({"ReportsEngine", "SaveReport"}, save, [&](const BasicError& failure) {
        m_refusals[path] = OutputRefusal::SentenceIn(failure);
        return false;
    });
    (saved ? m_written : m_failed).push_back(path);
}

std::string ReportOutput::RefusalOf(const std::string& page) const {
    const auto found = m_refusals.find(page);
    return found == m_refusals.end() ? std::string() : found->second;
}

}  // namespace dorvik
