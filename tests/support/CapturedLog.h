#pragma once

#include "foundation/log/LogFile.h"
#include "support/TemporaryFolder.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// A quiet log of its own for one test, the installed one as long as this lives. What was installed
/// before comes back at the end.
class CapturedLog {
public:
    CapturedLog();
    ~CapturedLog();
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;

    LogFile& Log() { return m_log; }
    /// The path of the file that the lines go to.
    const std::string& Path() const { return m_log.LogFilePath(); }

    /// The lines of the error log so far, without line ends.
    std::vector<std::string> Lines() const;
    /// The lines without time stamp and component: "Event #message#module::procedure".
    std::vector<std::string> Entries() const;
    /// True if an entry holds this text.
    bool Contains(std::string_view text) const;
    void Clear();

private:
    TemporaryFolder m_folder;
    LogFile m_log;
    LogFile* m_before;
};

}  // namespace dorvik::test
