#include "cli/output/JsonOutput.h"

#include "base/modUtf8.h"
#include "cli/output/Console.h"
#include "cli/output/modTerminalText.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

namespace dorvik {

namespace {

constexpr unsigned kIndent = 2;

/// The text with U+FFFD for every byte that belongs to no character.
std::string ValidText(std::string_view text) {
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const modUtf8::Character character = modUtf8::Decode(text, position);
        modUtf8::Append(result, character.CodePoint);
        position += character.Size;
    }
    return result;
}

}  // namespace

struct JsonOutput::Parts {
    rapidjson::StringBuffer Buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> Writer{Buffer};
};

JsonOutput::JsonOutput() : m_parts(std::make_unique<Parts>()) {
    m_parts->Writer.SetIndent(' ', kIndent);
}

JsonOutput::~JsonOutput() = default;

void JsonOutput::PutKey(std::string_view key) {
    m_parts->Writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
}

void JsonOutput::BeginObject() {
    m_parts->Writer.StartObject();
}

void JsonOutput::BeginObject(std::string_view key) {
    PutKey(key);
    BeginObject();
}

void JsonOutput::EndObject() {
    m_parts->Writer.EndObject();
}

void JsonOutput::BeginArray() {
    m_parts->Writer.StartArray();
}

void JsonOutput::BeginArray(std::string_view key) {
    PutKey(key);
    BeginArray();
}

void JsonOutput::EndArray() {
    m_parts->Writer.EndArray();
}

void JsonOutput::Text(std::string_view value) {
    const std::string valid = ValidText(value);
    m_parts->Writer.String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
}

void JsonOutput::Text(std::string_view key, std::string_view value) {
    PutKey(key);
    Text(value);
}

void JsonOutput::Number(std::int64_t value) {
    m_parts->Writer.Int64(value);
}

void JsonOutput::Number(std::string_view key, std::int64_t value) {
    PutKey(key);
    Number(value);
}

void JsonOutput::Real(std::string_view key, double value) {
    PutKey(key);
    m_parts->Writer.Double(value);
}

void JsonOutput::Flag(std::string_view key, bool value) {
    PutKey(key);
    m_parts->Writer.Bool(value);
}

void JsonOutput::Null(std::string_view key) {
    PutKey(key);
    m_parts->Writer.Null();
}

std::string JsonOutput::Result() const {
    return modTerminalText::HarmlessJson({m_parts->Buffer.GetString(), m_parts->Buffer.GetSize()});
}

void JsonOutput::Print() const {
    modConsole::PrintData(Result() + "\n");
}

}  // namespace dorvik
