#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string>
#include <string_view>
#include <utility>

namespace dorvik {

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

/// What a session puts out: objects of JSON, each a line of its own.
namespace modSessionJson {

/// U+FFFD stands for every byte that belongs to no character.
void Text(JsonWriter& writer, std::string_view text);
void Key(JsonWriter& writer, std::string_view key);

inline void Member(JsonWriter& writer, std::string_view key, std::string_view text) {
    Key(writer, key);
    Text(writer, text);
}
inline void Member(JsonWriter& writer, std::string_view key, const char* text) {
    Member(writer, key, std::string_view(text));
}
/// A number or a boolean.
template <std::integral Value>
void Member(JsonWriter& writer, std::string_view key, Value value) {
    Key(writer, key);
    if constexpr (std::same_as<Value, bool>) {
        writer.Bool(value);
    } else {
        writer.Int64(static_cast<std::int64_t>(value));
    }
}

/// An object whose members `fill` writes.
template <typename Fill>
void Object(JsonWriter& writer, Fill&& fill) {
    writer.StartObject();
    fill();
    writer.EndObject();
}

/// A member that is an array: `write` writes what it has for each of the items, one value or none.
template <typename Items, typename Write>
void Array(JsonWriter& writer, std::string_view key, const Items& items, Write&& write) {
    Key(writer, key);
    writer.StartArray();
    for (const auto& item : items) {
        write(item);
    }
    writer.EndArray();
}

/// The same for the numbers from 0 to one below `count`.
template <typename Write>
void CountedArray(JsonWriter& writer, std::string_view key, std::size_t count, Write&& write) {
    Key(writer, key);
    writer.StartArray();
    for (std::size_t index = 0; index < count; ++index) {
        write(index);
    }
    writer.EndArray();
}

/// A line with one object; `fill` takes its writer.
template <typename Fill>
std::string Line(Fill&& fill) {
    rapidjson::StringBuffer text;
    JsonWriter writer(text);
    Object(writer, [&] { fill(writer); });
    return {text.GetString(), text.GetSize()};
}

/// The line of a dump: an object whose first member says what it is of.
template <typename Fill>
std::string Dump(std::string_view what, Fill&& fill) {
    return Line([&](JsonWriter& writer) {
        Member(writer, "dump", what);
        fill(writer);
    });
}

}  // namespace modSessionJson

}  // namespace dorvik
