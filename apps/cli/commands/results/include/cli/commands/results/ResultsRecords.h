#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace dorvik {

class JsonOutput;
class ResultsDB;

/// How a command of `dorvik results` prints what it found. At most one is set; a table without either.
struct ResultsForm {
    bool Json = false;
    bool Csv = false;
};

/// A value for programs to read; none where there is nothing to tell.
using RecordValue = std::variant<std::monostate, bool, std::int32_t, std::string>;

/// Records for programs to read: the same names and values as JSON and as comma-separated values.
class ResultsRecords {
public:
    explicit ResultsRecords(std::vector<std::string_view> names) : m_names(std::move(names)) {}

    /// REQUIRES: a value for each name.
    void Add(std::vector<RecordValue> values) { m_records.push_back(std::move(values)); }

    /// As an array of objects under that key.
    void WriteTo(JsonOutput& json, std::string_view key) const;
    /// As one JSON document: the database, its project and the records under `key`.
    void PrintAsJson(ResultsDB& database, std::string_view key) const;
    /// A header of the names, then a line a record. No value is an empty text.
    void PrintAsCsv() const;

private:
    std::vector<std::string_view> m_names;
    std::vector<std::vector<RecordValue>> m_records;
};

/// The first two members of every JSON document about a results database.
void WriteResultsHead(JsonOutput& json, ResultsDB& database);

}  // namespace dorvik
