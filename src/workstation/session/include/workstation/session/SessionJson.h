#pragma once

#include <cstdint>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string_view>

namespace dorvik {

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

/// The members of the objects that a session puts out.
namespace modSessionJson {

inline void Text(JsonWriter& writer, std::string_view text) {
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}
inline void Key(JsonWriter& writer, std::string_view key) {
    writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
}
inline void Member(JsonWriter& writer, std::string_view key, std::string_view text) {
    Key(writer, key);
    Text(writer, text);
}
inline void Member(JsonWriter& writer, std::string_view key, const char* text) {
    Member(writer, key, std::string_view(text));
}
inline void Member(JsonWriter& writer, std::string_view key, std::int32_t number) {
    Key(writer, key);
    writer.Int(number);
}
inline void Member(JsonWriter& writer, std::string_view key, bool value) {
    Key(writer, key);
    writer.Bool(value);
}

}  // namespace modSessionJson

}  // namespace dorvik
