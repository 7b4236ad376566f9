#include "Arguments.h"

#include "base/modUtf8.h"
#include "basic/values/Characters.h"
#include "basic/values/Coercion.h"
#include "basic/values/MemoryMeter.h"

#include <limits>

namespace dorvik::basic {

const Value& ArgumentAt(Arguments arguments, std::size_t position) {
    static const Value missing = Value::Missing();
    return position < arguments.size() ? arguments[position] : missing;
}

std::int32_t LongAt(Arguments arguments, std::size_t position) {
    const Value& value = ArgumentAt(arguments, position);
    if (value.Type() == ValueType::Long || value.Type() == ValueType::Integer) {
        return value.AsLong();
    }
    return ToLong(value);
}

std::int32_t LongAt(Arguments arguments, std::size_t position, std::int32_t byDefault) {
    return IsGiven(arguments, position) ? LongAt(arguments, position) : byDefault;
}

bool BooleanAt(Arguments arguments, std::size_t position, bool byDefault) {
    return IsGiven(arguments, position) ? ToBoolean(arguments[position]) : byDefault;
}

bool IsNullAt(Arguments arguments, std::size_t position) {
    const Value& value = ArgumentAt(arguments, position);
    if (value.Type() == ValueType::Object) {
        return LetValue(value).Type() == ValueType::Null;
    }
    return value.Type() == ValueType::Null;
}

TextArgument::TextArgument(const Value& value) {
    Read(value);
}

TextArgument::TextArgument(Arguments arguments, std::size_t position) {
    Read(ArgumentAt(arguments, position));
}

TextArgument::TextArgument(Arguments arguments, std::size_t position, std::string_view byDefault) {
    if (IsGiven(arguments, position)) {
        Read(arguments[position]);
    } else {
        m_view = byDefault;
    }
}

void TextArgument::Read(const Value& value) {
    if (value.Type() == ValueType::String) {
        m_body = value.TextBody();
        m_view = value.AsText();
    } else {
        m_view = ToText(value, m_buffer);
    }
}

bool TextArgument::IsAscii() const {
    return m_body ? m_body->IsAscii() : modUtf8::IsAscii(m_view);
}

std::size_t TextArgument::Length() const {
    return m_body ? m_body->Length() : modCharacters::Count(m_view);
}

std::size_t TextArgument::OffsetOf(std::size_t character) const {
    return m_body ? m_body->OffsetOf(character) : modCharacters::Skip(m_view, character);
}

std::size_t TextArgument::CharactersBefore(std::size_t offset) const {
    return m_body ? m_body->CharactersBefore(offset)
                  : modCharacters::Count(m_view.substr(0, offset));
}

Value TextArgument::AsValue() const {
    return m_body ? Value::Text(Ref<StringBody>(m_body)) : TextResult(m_view);
}

Value TextResult(std::string_view text) {
    return Value::Text(text);
}

Value TextResult(std::string&& text) {
    CheckTextSize(text.size());
    return Value::Text(std::move(text));
}

Value TextResult(std::string_view text, std::size_t characters) {
    return text.size() <= 1 ? Value::Text(text) : Value::Text(StringBody::Of(text, characters));
}

void CheckTextSize(std::size_t bytes) {
    MemoryMeter::Current().CheckString(bytes);
}

void CheckTextSize(std::size_t count, std::size_t bytes) {
    if (bytes != 0 && count > std::numeric_limits<std::size_t>::max() / bytes) {
        CheckTextSize(std::numeric_limits<std::size_t>::max());
    }
    CheckTextSize(count * bytes);
}

}  // namespace dorvik::basic
