#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace dorvik {

/// The one way to print a result as JSON: UTF-8, indented by two blanks, one document a command.
/// Every value is valid UTF-8, whatever bytes a file held, and what would steer a terminal is escaped.
///
/// Calls must nest as the document does. A key comes first in an object and never in an array:
///
///     JsonOutput json;
///     json.BeginObject();
///     json.Text("title", rulebase.Title());
///     json.BeginArray("rules");
///     json.Number(5000);
///     json.EndArray();
///     json.EndObject();
///     json.Print();
class JsonOutput {
public:
    JsonOutput();
    ~JsonOutput();
    JsonOutput(const JsonOutput&) = delete;
    JsonOutput& operator=(const JsonOutput&) = delete;

    void BeginObject();
    void BeginObject(std::string_view key);
    void EndObject();
    void BeginArray();
    void BeginArray(std::string_view key);
    void EndArray();

    void Text(std::string_view value);
    void Text(std::string_view key, std::string_view value);
    void Number(std::int64_t value);
    void Number(std::string_view key, std::int64_t value);
    void Real(std::string_view key, double value);
    void Flag(std::string_view key, bool value);
    void Null(std::string_view key);

    /// The document so far, without a line end.
    std::string Result() const;
    /// To standard output, with a line end.
    void Print() const;

private:
    void PutKey(std::string_view key);

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace dorvik
