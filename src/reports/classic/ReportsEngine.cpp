// Set-up, and what all reports share.

#include "reports/classic/ReportsEngine.h"

#include "foundation/log/Trap.h"
#include "platform/host/OutputRefusal.h"
#include "reports/format/modReportFile.h"
#include "reports/format/modReportFormat.h"

namespace dorvik {

namespace {

constexpr std::int32_t kNoCategory = -1;

/// By status code from 1.
constexpr std::array<std::string_view, 4> kStatusDescriptions{
    "Unexpected Error",
    "Unknown Source File Name",
    "Unknown Source File Type",
    "Failed To Open Source File"};

}  // namespace

void ReportsEngine::Initialise(const SeverityTable& severities, const CategoryList& categories) {
    Trap({kModule, "Initialise"}, [&] {
        TakeSeverities(severities);
        m_categories.Clear();
        for (std::int32_t index = 1; index <= categories.Count(); ++index) {
            m_categories.Add(categories.Item(index), false);
        }
    });
}

std::string ReportsEngine::FormatNumber(double value, std::int32_t decimals, bool showZero) {
    return modReportFormat::FormatNumber(value, decimals, showZero);
}

std::string ReportsEngine::GetCategoryText(std::int32_t categoryId) const {
    if (categoryId == kNoCategory) {
        return "Unallocated";
    }
    const std::string key = CategoryList::CategoryIDToKey(categoryId);
    return m_categories.Contains(key) ? m_categories.Item(key)->Title() : std::string();
}

std::string_view ReportsEngine::GetReviewStatusDescription(std::int32_t status) {
    const bool isKnown =
        status >= 1 && static_cast<std::size_t>(status) <= kStatusDescriptions.size();
    return isKnown ? kStatusDescriptions[static_cast<std::size_t>(status) - 1]
                   : "Unknown Review Status Code";
}

void ReportsEngine::SaveReport(
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
    Trap({kModule, "SaveReport"}, save, [&](const BasicError& failure) {
        m_refusals[path] = OutputRefusal::SentenceIn(failure);
        return false;
    });
    (saved ? m_writtenReports : m_failedReports).push_back(path);
}

std::string ReportsEngine::RefusalOf(const std::string& page) const {
    const auto found = m_refusals.find(page);
    return found == m_refusals.end() ? std::string() : found->second;
}

}  // namespace dorvik
