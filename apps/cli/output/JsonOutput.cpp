#include "cli/output/JsonOutput.h"

#include "cli/output/Console.h"
#include "cli/output/modTerminalText.h"
#include "foundation/text/modJson.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

namespace dorvik {

namespace {

constexpr unsigned kIndent = 2;

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
    modJson::Key(m_parts->Writer, key);
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
    modJson::Text(m_parts->Writer, value);
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
