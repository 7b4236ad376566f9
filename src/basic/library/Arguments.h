#pragma once

#include "basic/values/RuntimeErrors.h"
#include "basic/values/Value.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace dorvik::basic {

/// What a built-in function or a member of an object is given: see `BuiltinFunction`.
using Arguments = std::span<const Value>;

/// Whether an optional argument was given.
inline bool IsGiven(Arguments arguments, std::size_t position) {
    return position < arguments.size() && !arguments[position].IsMissing();
}
/// The argument, `Missing` if it was left out.
const Value& ArgumentAt(Arguments arguments, std::size_t position);
/// The argument rounded half to even; `byDefault` if it was left out. Raises 6, 13, 94.
std::int32_t LongAt(Arguments arguments, std::size_t position);
std::int32_t LongAt(Arguments arguments, std::size_t position, std::int32_t byDefault);
bool BooleanAt(Arguments arguments, std::size_t position, bool byDefault);
/// Whether the argument, or what the object's default member gives, is Null.
bool IsNullAt(Arguments arguments, std::size_t position);

/// The text of an argument without a copy where it is a text already. REQUIRES: the value outlives this.
class TextArgument {
public:
    explicit TextArgument(const Value& value);  // 94 for Null, 13 for an Error
    TextArgument(Arguments arguments, std::size_t position);
    TextArgument(Arguments arguments, std::size_t position, std::string_view byDefault);
    TextArgument(const TextArgument&) = delete;
    TextArgument& operator=(const TextArgument&) = delete;

    std::string_view View() const { return m_view; }
    bool IsAscii() const;
    std::size_t Length() const;  // characters
    /// See `StringBody`.
    std::size_t OffsetOf(std::size_t character) const;
    std::size_t CharactersBefore(std::size_t offset) const;
    /// The value as a text, sharing the body where there is one.
    Value AsValue() const;

private:
    void Read(const Value& value);

    std::string m_buffer;
    std::string_view m_view;
    StringBody* m_body = nullptr;  // of the value, if that is a text
};

/// A text result. `TextResult` of a view checks nothing that is not new: a part of a text is shorter.
Value TextResult(std::string_view text);
Value TextResult(std::string&& text);
/// The same for a part of so many characters, which no one has to count then.
Value TextResult(std::string_view text, std::size_t characters);
/// Raises 14 for a text that would pass the string limit. Called before the text is made.
void CheckTextSize(std::size_t bytes);
/// The same for `count` times `bytes`.
void CheckTextSize(std::size_t count, std::size_t bytes);

}  // namespace dorvik::basic
