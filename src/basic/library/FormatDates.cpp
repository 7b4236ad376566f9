#include "FormatDates.h"

#include "Arguments.h"
#include "FormatPattern.h"
#include "base/CalendarNames.h"
#include "base/modTextCase.h"
#include "basic/values/DateSerial.h"
#include "basic/values/DateText.h"

#include <algorithm>

namespace dorvik::basic::modFormatDates {

namespace {

using modDateSerial::DateParts;

constexpr std::string_view kShortDate = "m/d/yyyy";
constexpr std::string_view kLongDate = "dddd, mmmm d, yyyy";
constexpr std::string_view kLongTime = "h:mm:ss AM/PM";

struct NamedFormat {
    std::string_view Name;
    std::string_view Pattern;
};

constexpr NamedFormat kNamedFormats[] = {
    {"General Date", "c"},
    {"Long Date", kLongDate},
    {"Medium Date", "dd-mmm-yy"},
    {"Short Date", kShortDate},
    {"Long Time", kLongTime},
    {"Medium Time", "hh:mm AM/PM"},
    {"Short Time", "hh:mm"},
};

std::string Padded(int number, std::size_t width) {
    const std::string text = std::to_string(number);
    return std::string(width - std::min(width, text.size()), '0') + text;
}

/// Writes one date by one pattern.
class Writer {
public:
    Writer(std::string_view pattern, double date, const WeekCount& weeks)
        : m_pattern(pattern),
          m_date(date),
          m_weeks(weeks),
          m_parts(modDateSerial::PartsOf(date)),
          m_day(modDateSerial::Split(date).Day),
          m_hasHalves(HasHalfDayMark(pattern)) {}

    std::string Write() {
        while (m_position < m_pattern.size()) {
            CheckTextSize(m_text.size());
            if (modFormatPattern::TakeLiteral(m_pattern, m_position, m_text)) {
                continue;
            }
            if (const auto mark = modFormatPattern::HalfDayMark(m_pattern, m_position);
                !mark.empty()) {
                WriteHalfDay(mark);
                m_position += mark.size();
                continue;
            }
            m_position += WriteToken(modFormatPattern::Lower(m_pattern[m_position]));
        }
        return std::move(m_text);
    }

private:
    static bool HasHalfDayMark(std::string_view pattern) {
        std::string literal;
        for (std::size_t position = 0; position < pattern.size();) {
            if (modFormatPattern::TakeLiteral(pattern, position, literal)) {
                continue;
            }
            if (!modFormatPattern::HalfDayMark(pattern, position).empty()) {
                return true;
            }
            ++position;
        }
        return false;
    }

    std::size_t Run(std::size_t most) const {
        return modFormatPattern::RunLength(m_pattern, m_position, most);
    }

    void WriteNested(std::string_view pattern) { m_text += ByPattern(pattern, m_date, m_weeks); }

    /// The number of characters that the token takes.
    std::size_t WriteToken(char letter) {
        const bool followsHour = m_followsHour;
        m_followsHour = false;
        switch (letter) {
            case 'c': m_text += DateToText(m_date); return 1;
            case 'd': return WriteDay(Run(6));
            case 'w': return WriteWeek(Run(2));
            case 'm': return WriteMonth(Run(4), followsHour);
            case 'q': m_text += std::to_string((m_parts.Month - 1) / 3 + 1); return 1;
            case 'y': return WriteYear(Run(4));
            case 'h': return WriteHour(Run(2));
            case 'n': return WriteNumber(m_parts.Minute, Run(2));
            case 's': return WriteNumber(m_parts.Second, Run(2));
            case 't':
                if (Run(5) == 5) {
                    WriteNested(kLongTime);
                    return 5;
                }
                break;
            default: break;
        }
        m_followsHour = followsHour;  // what is not a token separates nothing
        m_text += m_pattern[m_position];
        return 1;
    }

    std::size_t WriteNumber(int number, std::size_t width) {
        m_text += Padded(number, width);
        return width;
    }

    std::size_t WriteDay(std::size_t length) {
        const std::string_view name = WeekdayNameOf(modDateSerial::WeekdayOf(m_day));
        switch (length) {
            case 1:
            case 2: return WriteNumber(m_parts.Day, length);
            case 3: m_text += ShortName(name); break;
            case 4: m_text += name; break;
            case 5: WriteNested(kShortDate); break;
            default: WriteNested(kLongDate); break;
        }
        return length;
    }

    std::size_t WriteWeek(std::size_t length) {
        const int number =
            length == 1 ? modDateWeeks::WeekdayFrom(m_day, m_weeks.FirstDay)
                        : modDateWeeks::WeekOfYear(m_day, m_weeks.FirstDay, m_weeks.FirstWeek);
        m_text += std::to_string(number);
        return length;
    }

    /// Right after the hours, with nothing but separators between, these are the minutes.
    std::size_t WriteMonth(std::size_t length, bool followsHour) {
        if (length <= 2) {
            return WriteNumber(followsHour ? m_parts.Minute : m_parts.Month, length);
        }
        const std::string_view name = MonthNameOf(m_parts.Month);
        m_text += length == 3 ? ShortName(name) : name;
        return length;
    }

    std::size_t WriteYear(std::size_t length) {
        if (length == 1) {
            m_text += std::to_string(modDateWeeks::DayOfYear(m_day));
            return 1;
        }
        return length == 4 ? WriteNumber(m_parts.Year, 4) : WriteNumber(m_parts.Year % 100, 2);
    }

    std::size_t WriteHour(std::size_t length) {
        m_followsHour = true;
        return WriteNumber(m_hasHalves ? (m_parts.Hour + 11) % 12 + 1 : m_parts.Hour, length);
    }

    /// In the case of the pattern; "A/P" is one letter.
    void WriteHalfDay(std::string_view mark) {
        const bool isMorning = m_parts.Hour < 12;
        const bool isCapital = mark.front() == 'A' || mark.size() == 4;
        std::string half = isMorning ? "AM" : "PM";
        half.resize(mark.size() == 3 ? 1 : 2);
        m_text += isCapital ? half : modTextCase::ToLower(half);
    }

    std::string_view m_pattern;
    double m_date;
    const WeekCount& m_weeks;
    DateParts m_parts;
    std::int64_t m_day;
    bool m_hasHalves;  // the hours go to 12
    bool m_followsHour = false;
    std::size_t m_position = 0;
    std::string m_text;
};

}  // namespace

std::string ByPattern(std::string_view pattern, double date, const WeekCount& weeks) {
    return Writer(pattern, date, weeks).Write();
}

std::optional<std::string_view> NamedPattern(std::string_view name) {
    for (const NamedFormat& format : kNamedFormats) {
        if (modTextCase::Equal(format.Name, name)) {
            return format.Pattern;
        }
    }
    return std::nullopt;
}

}  // namespace dorvik::basic::modFormatDates
