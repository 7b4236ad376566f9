#include "support/CapturedLog.h"

#include "foundation/log/modLog.h"
#include "support/LineText.h"

#include <algorithm>

namespace dorvik::test {

namespace {

constexpr std::string_view kFilename = "Error.log";

/// What stands behind the second "#".
std::string EntryOf(const std::string& line) {
    const std::size_t component = line.find('#');
    const std::size_t category = line.find('#', component + 1);
    return category == std::string::npos ? line : line.substr(category + 1);
}

}  // namespace

CapturedLog::CapturedLog() : m_before(modLog::Install(&m_log)) {
    m_log.SetQuiet(true);
    m_log.SetLogFilePath(m_folder.Path(kFilename));
}

CapturedLog::~CapturedLog() {
    modLog::Install(m_before);
}

std::vector<std::string> CapturedLog::Lines() const {
    return LinesOf(m_folder.Read(kFilename));
}

std::vector<std::string> CapturedLog::Entries() const {
    std::vector<std::string> entries = Lines();
    std::transform(entries.begin(), entries.end(), entries.begin(), EntryOf);
    return entries;
}

bool CapturedLog::Contains(std::string_view text) const {
    const std::vector<std::string> entries = Entries();
    return std::any_of(entries.begin(), entries.end(), [&](const std::string& entry) {
        return entry.find(text) != std::string::npos;
    });
}

void CapturedLog::Clear() {
    m_folder.Write(kFilename, "");
}

}  // namespace dorvik::test
