#include "foundation/log/LogFile.h"

#include "base/BasicError.h"
#include "base/DateTime.h"
#include "base/modUtf8.h"
#include "platform/host/modFiles.h"
#include "platform/host/modHost.h"

#include <new>

namespace dorvik {

namespace {

constexpr std::size_t kComponentWidth = 12;
constexpr std::size_t kCategoryWidth = 6;

/// Of a line that would fill a log by itself.
constexpr std::size_t kMostCharactersAtLimit = 10'000;

constexpr std::int32_t kOutOfMemory = 7;
constexpr std::int32_t kInternalError = 51;

/// The text padded with blanks, or cut, to exactly `width` characters.
std::string InField(std::string_view text, std::size_t width) {
    std::string field(modUtf8::Left(text, width));
    field.append(width - modUtf8::Length(field), ' ');
    return field;
}

std::int32_t NumberOf(const std::exception& failure) {
    if (const auto* numbered = dynamic_cast<const BasicError*>(&failure)) {
        return numbered->Number();
    }
    return dynamic_cast<const std::bad_alloc*>(&failure) != nullptr ? kOutOfMemory : kInternalError;
}

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += part;
    }
    return text;
}

}  // namespace

void LogFile::LogBasicError(
    std::int32_t number,
    std::string_view description,
    std::string_view procedure,
    std::string_view module) {
    const std::string message = Joined({std::to_string(number), " - ", description});
    if (!m_quiet) {
        modHost::ShowMessage(
            {MessageIcon::Critical,
             "Dorvik Unexpected Error",
             Joined({"Error ", message, " in function ", procedure, " module ", module})});
    }
    LogEntry("Error", message, procedure, module);
}

void LogFile::LogBasicError(
    const std::exception& failure, std::string_view procedure, std::string_view module) {
    LogBasicError(NumberOf(failure), failure.what(), procedure, module);
}

void LogFile::LogSetupError(
    std::string_view message, std::string_view procedure, std::string_view module) {
    if (!m_quiet) {
        modHost::ShowMessage(
            {MessageIcon::Exclamation, "Dorvik Setup Error", std::string(message)});
    }
    LogEntry("Setup", message, procedure, module);
}

void LogFile::LogDebugTrace(
    std::string_view message, std::string_view procedure, std::string_view module) {
    LogEntry("Debug", message, procedure, module);
}

void LogFile::LogAssert(
    bool condition, std::string_view message, std::string_view procedure, std::string_view module) {
    if (!condition) {
        LogEntry("Assert", message, procedure, module);
    }
}

void LogFile::LogEvent(
    std::string_view message, std::string_view procedure, std::string_view module) {
    LogEntry("Event", message, procedure, module);
}

void LogFile::LogMessage(std::string_view line) {
    if (m_reviewLogActive) {
        AppendToReviewLog(line);
    } else {
        AppendToErrorLog(line);
    }
}

void LogFile::AppendToErrorLog(std::string_view line) const {
    const auto append = [&] {
        return modFiles::AppendLine(m_logFilePath, line, kMostBytesOfErrorLog);
    };
    if (m_logFilePath.empty() || append()) {
        return;
    }
    // A log that is small still is not full: the line is long.
    modFiles::TurnOver(m_logFilePath, m_logFilePath + ".1", kMostBytesOfErrorLog / 2);
    if (!append()) {
        modFiles::AppendLine(m_logFilePath, modUtf8::Left(line, kMostCharactersAtLimit));
    }
}

void LogFile::AppendToReviewLog(std::string_view line) {
    if (m_reviewLogPath.empty() || m_reviewLogIsFull ||
        modFiles::AppendLine(m_reviewLogPath, line, kMostBytesOfReviewLog)) {
        return;
    }
    m_reviewLogIsFull = true;
    modFiles::AppendLine(
        m_reviewLogPath,
        "The review log has reached its limit of 64 MB; what follows in this review is not logged. "
        "Empty the log before the next one.");
}

void LogFile::SetReviewLog(std::string_view reviewLog, bool clearLog) {
    m_reviewLogPath = reviewLog;
    m_reviewLogActive = true;
    m_reviewLogIsFull = false;
    if (clearLog) {
        modFiles::EmptyFile(m_reviewLogPath);
    }
}

void LogFile::CloseReview() {
    m_reviewLogPath.clear();
    m_reviewLogActive = false;
}

void LogFile::LogEntry(
    std::string_view category,
    std::string_view message,
    std::string_view procedure,
    std::string_view module) {
    LogMessage(Joined(
        {modDateText::LogStamp(modHost::Now()),
         "#",
         InField(m_component, kComponentWidth),
         " (",
         m_componentVersion,
         ")#",
         InField(category, kCategoryWidth),
         "#",
         message,
         "#",
         module,
         "::",
         procedure}));
}

}  // namespace dorvik
