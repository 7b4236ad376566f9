#include "workstation/session/SessionJson.h"

#include "base/modUtf8.h"

namespace dorvik::modSessionJson {

namespace {

rapidjson::SizeType SizeOf(std::string_view text) {
    return static_cast<rapidjson::SizeType>(text.size());
}

std::string Repaired(std::string_view text) {
    std::string valid;
    for (std::size_t position = 0; position < text.size();) {
        const modUtf8::Character character = modUtf8::Decode(text, position);
        modUtf8::Append(valid, character.CodePoint);
        position += character.Size;
    }
    return valid;
}

}  // namespace

void Text(JsonWriter& writer, std::string_view text) {
    if (modUtf8::IsValid(text)) {
        writer.String(text.data(), SizeOf(text));
        return;
    }
    const std::string valid = Repaired(text);
    writer.String(valid.data(), SizeOf(valid));
}

void Key(JsonWriter& writer, std::string_view key) {
    Text(writer, key);  // a name may come from a file
}

}  // namespace dorvik::modSessionJson
