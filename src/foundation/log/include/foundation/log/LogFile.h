#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace dorvik {

/// The single text log, through which errors, events and review traces pass. Lines go to the error
/// log, or to the review log while one is active. A line reads, fields separated by "#":
///
///     21/11/26 14:05:09#DVKWork      (6.02.0001)#Event #No element at position 5#KyXMLElement::ElementAtPosition
///
/// The file is open only while a line is written, so a crash loses nothing and others may read it.
/// A log whose target path is empty writes nowhere. There is no handler in here: a failure to write
/// reaches the caller. Nothing is written through a link.
///
/// Both logs have a limit. An error log that is full gets the name "Error.log.1", in place of the last one
/// that did, and a new one is begun. A review log that is full gets one last line that says so, and what
/// follows until its end is lost.
class LogFile {
public:
    static constexpr std::int64_t kMostBytesOfErrorLog = 1'000'000;
    static constexpr std::int64_t kMostBytesOfReviewLog = 64'000'000;

    /// First word of every line; at first the name of this component. Padded or cut to 12 characters.
    const std::string& Component() const { return m_component; }
    void SetComponent(std::string_view component) { m_component = component; }

    /// No message box is shown while this is true; false at first.
    bool Quiet() const { return m_quiet; }
    void SetQuiet(bool quiet) { m_quiet = quiet; }

    /// Version text of every line, for example "6.02.0001"; empty until set.
    const std::string& ComponentVersion() const { return m_componentVersion; }
    void SetComponentVersion(std::string_view version) { m_componentVersion = version; }

    /// Path of the error log, in the program's form; empty until set. (The property that the class
    /// lends its own name to; a member function cannot carry it.)
    const std::string& LogFilePath() const { return m_logFilePath; }
    void SetLogFilePath(std::string_view path) { m_logFilePath = path; }

    /// Unless `Quiet`, shows "Error <number> - <description> in function <procedure> module <module>"
    /// in a box with the critical icon first. Then writes a line of the category "Error" with the
    /// message "<number> - <description>".
    void LogBasicError(
        std::int32_t number,
        std::string_view description,
        std::string_view procedure,
        std::string_view module);
    /// The same for a caught failure. One that is not a `BasicError` has the language's number for it:
    /// 7 when memory ran out, 51 (an internal error) otherwise.
    void LogBasicError(
        const std::exception& failure, std::string_view procedure, std::string_view module);

    /// Category "Setup". Unless `Quiet`, the message is shown first in a box with the warning icon.
    void
    LogSetupError(std::string_view message, std::string_view procedure, std::string_view module);
    /// Category "Debug".
    void
    LogDebugTrace(std::string_view message, std::string_view procedure, std::string_view module);
    /// Category "Assert". Writes a line only when the condition is false.
    void LogAssert(
        bool condition,
        std::string_view message,
        std::string_view procedure,
        std::string_view module);
    /// Category "Event".
    void LogEvent(std::string_view message, std::string_view procedure, std::string_view module);

    /// Writes a complete line unchanged. The end of the line is added.
    void LogMessage(std::string_view line);

    /// Lines go to `reviewLog` from now on; `clearLog` empties that file first.
    void SetReviewLog(std::string_view reviewLog, bool clearLog);
    /// Lines go to the error log again.
    void CloseReview();
    /// True between `SetReviewLog` and `CloseReview`.
    bool ReviewLogActive() const { return m_reviewLogActive; }
    /// Empty while no review log is active.
    const std::string& ReviewLogPath() const { return m_reviewLogPath; }

private:
    void AppendToErrorLog(std::string_view line) const;
    void AppendToReviewLog(std::string_view line);
    void LogEntry(
        std::string_view category,
        std::string_view message,
        std::string_view procedure,
        std::string_view module);

    std::string m_component = "DVKWork";
    std::string m_componentVersion;
    std::string m_logFilePath;
    std::string m_reviewLogPath;
    bool m_reviewLogActive = false;
    bool m_reviewLogIsFull = false;
    bool m_quiet = false;
};

}  // namespace dorvik
