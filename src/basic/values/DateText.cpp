#include "basic/values/DateText.h"

#include "base/CalendarNames.h"
#include "base/modTextCase.h"
#include "basic/values/DateSerial.h"
#include "platform/host/modHost.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <span>

namespace dorvik::basic {

namespace {

enum class TokenKind : std::uint8_t { Number, Word, Mark };
struct Token {
    TokenKind Kind = TokenKind::Mark;
    int Number = 0;
    std::size_t Digits = 0;
    std::string_view Text;

    bool IsMark(char mark) const { return Kind == TokenKind::Mark && Text.front() == mark; }
};
using Tokens = std::span<const Token>;

constexpr std::size_t kMostTokens = 12;
constexpr std::size_t kMostDigits = 4;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

/// Cuts a text into numbers, words and single other characters; blanks only part them.
class Tokeniser {
public:
    /// False if there are more tokens or digits than any date has.
    bool Read(std::string_view text) {
        while (!text.empty()) {
            if (text.front() == ' ') {
                text.remove_prefix(1);
                continue;
            }
            const Token token = First(text);
            if (m_count == kMostTokens || token.Digits > kMostDigits) {
                return false;
            }
            m_tokens[m_count++] = token;
            text.remove_prefix(token.Text.size());
        }
        return true;
    }
    Tokens Found() const { return {m_tokens.data(), m_count}; }

private:
    static Token First(std::string_view text) {
        Token token;
        std::size_t size = 1;
        if (IsDigit(text.front())) {
            token.Kind = TokenKind::Number;
            for (size = 0; size < text.size() && IsDigit(text[size]); ++size) {
                token.Number = size < kMostDigits ? token.Number * 10 + (text[size] - '0') : 0;
            }
            token.Digits = size;
        } else if (IsLetter(text.front())) {
            token.Kind = TokenKind::Word;
            while (size < text.size() && IsLetter(text[size])) {
                ++size;
            }
        }
        token.Text = text.substr(0, size);
        return token;
    }

    std::array<Token, kMostTokens> m_tokens{};
    std::size_t m_count = 0;
};

bool IsNumberAt(Tokens tokens, std::size_t position) {
    return position < tokens.size() && tokens[position].Kind == TokenKind::Number;
}

enum class HalfOfDay : std::uint8_t { None, Am, Pm };

HalfOfDay HalfAt(Tokens tokens, std::size_t position) {
    if (position >= tokens.size() || tokens[position].Kind != TokenKind::Word) {
        return HalfOfDay::None;
    }
    if (modTextCase::Equal(tokens[position].Text, "AM")) {
        return HalfOfDay::Am;
    }
    return modTextCase::Equal(tokens[position].Text, "PM") ? HalfOfDay::Pm : HalfOfDay::None;
}

/// Where the time is among the tokens, and what it says.
struct TimeFound {
    std::size_t Begin = 0;
    std::size_t End = 0;  // Begin: no time
    std::int64_t Seconds = 0;
};

/// The hour of the clock of 24 hours; nothing if there is no such hour.
std::optional<int> HourOf(int hour, HalfOfDay half) {
    if (half == HalfOfDay::None) {
        return hour <= 23 ? std::optional(hour) : std::nullopt;
    }
    if (hour > 12) {
        return std::nullopt;
    }
    return hour % 12 + (half == HalfOfDay::Pm ? 12 : 0);
}

/// The time whose hour is the token at `begin`. Nothing if it is none.
std::optional<TimeFound> ReadTime(Tokens tokens, std::size_t begin) {
    std::array<int, 3> parts{};
    std::size_t position = begin;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!IsNumberAt(tokens, position) || tokens[position].Digits > 2) {
            return std::nullopt;
        }
        parts.at(i) = tokens[position++].Number;
        if (position >= tokens.size() || !tokens[position].IsMark(':') || i + 1 == parts.size()) {
            break;
        }
        ++position;
    }
    const HalfOfDay half = HalfAt(tokens, position);
    position += half == HalfOfDay::None ? 0 : 1;
    const std::optional<int> hour = HourOf(parts[0], half);
    if (!hour || parts[1] > 59 || parts[2] > 59) {
        return std::nullopt;
    }
    return TimeFound{begin, position, *hour * std::int64_t{3600} + parts[1] * 60 + parts[2]};
}

/// The first time among the tokens; an empty one if there is none, nothing if it is malformed.
std::optional<TimeFound> FindTime(Tokens tokens) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].IsMark(':') || HalfAt(tokens, i) != HalfOfDay::None) {
            return i == 0 ? std::nullopt : ReadTime(tokens, i - 1);
        }
    }
    return TimeFound{};
}

std::optional<std::int64_t> DayOf(std::int64_t year, int month, int day) {
    if (month < 1 || month > 12 || year < 100 || year > 9999 || day < 1 ||
        day > modDateSerial::DaysInMonth(year, month)) {
        return std::nullopt;
    }
    return modDateSerial::DayNumber(year, month, day);
}

std::int64_t YearOf(const Token& token) {
    return token.Digits <= 2 ? modDateSerial::FullYear(token.Number) : token.Number;
}

bool CanOnlyBeYear(const Token& token) {
    return token.Digits > 2 || token.Number > 31;
}

/// Month before day, unless the month is none and the other order makes a date.
std::optional<std::int64_t> DayInEitherOrder(std::int64_t year, int month, int day) {
    return month > 12 ? DayOf(year, day, month) : DayOf(year, month, day);
}

int MonthOf(std::string_view word) {
    for (int month = 1; month <= 12; ++month) {
        if (modTextCase::Equal(word, MonthNameOf(month)) ||
            modTextCase::Equal(word, ShortName(MonthNameOf(month)))) {
            return month;
        }
    }
    return 0;
}

/// The numbers and the month's name of a date, the marks between them checked.
struct DateFound {
    std::array<Token, 3> Numbers{};
    std::size_t Count = 0;
    int Month = 0;  // by its name; 0 without
};

bool IsDateMark(const Token& token) {
    return token.IsMark('/') || token.IsMark('-') || token.IsMark(',');
}

bool Put(const Token& token, DateFound& found) {
    if (token.Kind == TokenKind::Number) {
        if (found.Count == found.Numbers.size()) {
            return false;
        }
        found.Numbers.at(found.Count++) = token;
        return true;
    }
    const bool isFirstName = found.Month == 0;
    found.Month = MonthOf(token.Text);
    return isFirstName && found.Month != 0;
}

/// Numbers alone are parted by "/" or by "-", always the same; with a name, blanks and commas do too.
bool AreMarksRight(Tokens tokens, bool hasName) {
    char mark = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool isMark = tokens[i].Kind == TokenKind::Mark;
        const bool isBetween = i % 2 == 1;
        if (!hasName && isMark != isBetween) {
            return false;
        }
        if (!isMark) {
            continue;
        }
        const char found = tokens[i].Text.front();
        const bool isDouble = i > 0 && tokens[i - 1].Kind == TokenKind::Mark;
        if (!IsDateMark(tokens[i]) || i == 0 || i + 1 == tokens.size() || isDouble ||
            (!hasName && (found == ',' || (mark != 0 && mark != found)))) {
            return false;
        }
        mark = found;
    }
    return true;
}

std::optional<std::int64_t> NamedMonthDate(const DateFound& found, int currentYear) {
    const Token& first = found.Numbers[0];
    const Token& second = found.Numbers[1];
    if (found.Count == 1) {
        const auto day = DayOf(currentYear, found.Month, CanOnlyBeYear(first) ? 0 : first.Number);
        return day ? day : DayOf(YearOf(first), found.Month, 1);
    }
    if (found.Count != 2) {
        return std::nullopt;
    }
    const auto dayFirst =
        CanOnlyBeYear(first) ? std::nullopt : DayOf(YearOf(second), found.Month, first.Number);
    return dayFirst ? dayFirst : DayOf(YearOf(first), found.Month, second.Number);
}

std::optional<std::int64_t> NumericDate(const DateFound& found, int currentYear) {
    const auto& [first, second, third] = found.Numbers;
    if (found.Count == 2) {
        return CanOnlyBeYear(second) ? DayOf(YearOf(second), first.Number, 1)
                                     : DayInEitherOrder(currentYear, first.Number, second.Number);
    }
    if (found.Count != 3) {
        return std::nullopt;
    }
    return CanOnlyBeYear(first) ? DayInEitherOrder(YearOf(first), second.Number, third.Number)
                                : DayInEitherOrder(YearOf(third), first.Number, second.Number);
}

std::optional<std::int64_t> ReadDay(Tokens tokens, int currentYear) {
    DateFound found;
    for (const Token& token : tokens) {
        if (token.Kind != TokenKind::Mark && !Put(token, found)) {
            return std::nullopt;
        }
    }
    const bool hasName = found.Month != 0;
    if (!AreMarksRight(tokens, hasName)) {
        return std::nullopt;
    }
    return hasName ? NamedMonthDate(found, currentYear) : NumericDate(found, currentYear);
}

}  // namespace

std::optional<double> ReadDate(std::string_view text, int currentYear) {
    Tokeniser tokeniser;
    if (!tokeniser.Read(text) || tokeniser.Found().empty()) {
        return std::nullopt;
    }
    const Tokens tokens = tokeniser.Found();
    const std::optional<TimeFound> time = FindTime(tokens);
    if (!time) {
        return std::nullopt;
    }
    const Tokens before = tokens.first(time->Begin);
    const Tokens behind = tokens.subspan(time->End);
    if (before.empty() && behind.empty()) {
        return modDateSerial::Combine(0, time->Seconds);
    }
    if (!before.empty() && !behind.empty()) {
        return std::nullopt;
    }
    const auto day = ReadDay(before.empty() ? behind : before, currentYear);
    return day ? std::optional(modDateSerial::Combine(*day, time->Seconds)) : std::nullopt;
}

std::optional<double> ReadDate(std::string_view text) {
    return ReadDate(text, modHost::Now().Year);
}

std::string DateToText(double serial) {
    const modDateSerial::DateParts parts = modDateSerial::PartsOf(serial);
    const modDateSerial::DayAndSecond split = modDateSerial::Split(serial);
    std::array<char, 48> buffer{};
    int size = 0;
    if (split.Day != 0) {
        size = std::snprintf(
            buffer.data(), buffer.size(), "%d/%d/%d", parts.Month, parts.Day, parts.Year);
    }
    if (split.Day == 0 || split.Second != 0) {
        size += std::snprintf(
            buffer.data() + size,
            buffer.size() - static_cast<std::size_t>(size),
            "%s%d:%02d:%02d %s",
            size == 0 ? "" : " ",
            (parts.Hour + 11) % 12 + 1,
            parts.Minute,
            parts.Second,
            parts.Hour < 12 ? "AM" : "PM");
    }
    return {buffer.data(), static_cast<std::size_t>(size)};
}

std::string_view ShortName(std::string_view name) {
    return name.substr(0, 3);
}

}  // namespace dorvik::basic
