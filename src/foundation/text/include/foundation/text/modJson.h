#pragma once

#include "base/modUtf8.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string>
#include <string_view>

/// Texts in JSON, read and written with any writer of the library.
namespace dorvik::modJson {

inline std::string_view TextOf(const rapidjson::Value& text) {
    return {text.GetString(), text.GetStringLength()};
}

/// The member of an object; null where there is none of that name.
inline const rapidjson::Value* FindMember(const rapidjson::Value& object, const char* name) {
    const auto member = object.FindMember(name);
    return member == object.MemberEnd() ? nullptr : &member->value;
}

/// The value as JSON without blanks.
inline std::string Written(const rapidjson::Value& value) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    value.Accept(writer);
    return {buffer.GetString(), buffer.GetSize()};
}

template <typename Writer>
void Key(Writer& writer, std::string_view key) {
    writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
}

/// Writes U+FFFD for every byte that belongs to no character.
template <typename Writer>
void Text(Writer& writer, std::string_view text) {
    if (modUtf8::IsValid(text)) {
        writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    } else {
        const std::string valid = modUtf8::WithValidCharacters(text);
        writer.String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
    }
}

}  // namespace dorvik::modJson
