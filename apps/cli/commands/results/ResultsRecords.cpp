#include "cli/commands/results/ResultsRecords.h"

#include "cli/output/Console.h"
#include "cli/output/CsvOutput.h"
#include "cli/output/JsonOutput.h"
#include "results/ResultsDB.h"

namespace dorvik {

namespace {

/// Puts a value under its name into a document.
class JsonMember {
public:
    JsonMember(JsonOutput& json, std::string_view name) : m_json(json), m_name(name) {}

    void operator()(std::monostate) const { m_json.Null(m_name); }
    void operator()(bool value) const { m_json.Flag(m_name, value); }
    void operator()(std::int32_t value) const { m_json.Number(m_name, value); }
    void operator()(const std::string& value) const { m_json.Text(m_name, value); }

private:
    JsonOutput& m_json;
    std::string_view m_name;
};

struct CsvText {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::int32_t value) const { return std::to_string(value); }
    std::string operator()(const std::string& value) const { return value; }
};

}  // namespace

void ResultsRecords::WriteTo(JsonOutput& json, std::string_view key) const {
    json.BeginArray(key);
    for (const std::vector<RecordValue>& record : m_records) {
        json.BeginObject();
        for (std::size_t place = 0; place < m_names.size(); ++place) {
            std::visit(JsonMember(json, m_names.at(place)), record.at(place));
        }
        json.EndObject();
    }
    json.EndArray();
}

void ResultsRecords::PrintAsJson(ResultsDB& database, std::string_view key) const {
    JsonOutput json;
    json.BeginObject();
    WriteResultsHead(json, database);
    WriteTo(json, key);
    json.EndObject();
    json.Print();
}

void ResultsRecords::PrintAsCsv() const {
    CsvOutput csv;
    csv.AddLine({m_names.begin(), m_names.end()});
    for (const std::vector<RecordValue>& record : m_records) {
        std::vector<std::string> line;
        line.reserve(record.size());
        for (const RecordValue& value : record) {
            line.push_back(std::visit(CsvText(), value));
        }
        csv.AddLine(line);
    }
    csv.Print();
}

void WriteResultsHead(JsonOutput& json, ResultsDB& database) {
    json.Text("database", modConsole::ShownPath(database.Filename()));
    json.Text("project", database.Items().GetProjectData("Name"));
}

}  // namespace dorvik
