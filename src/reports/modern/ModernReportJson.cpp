#include "ModernReportColumns.h"
#include "ModernReportData.h"
#include "ModernReportPage.h"
#include "ModernReportRules.h"
#include "foundation/text/modJson.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <unordered_map>

namespace dorvik::modModernReport {

namespace {

/// Compact JSON: a record is an array of its fields.
class CompactJson {
public:
    CompactJson& Key(std::string_view key) { return modJson::Key(m_writer, key), *this; }
    CompactJson& Open() { return m_writer.StartArray(), *this; }
    CompactJson& Close() { return m_writer.EndArray(), *this; }
    CompactJson& OpenObject() { return m_writer.StartObject(), *this; }
    CompactJson& CloseObject() { return m_writer.EndObject(), *this; }
    CompactJson& Number(std::int64_t value) { return m_writer.Int64(value), *this; }
    CompactJson& Index(std::size_t value) { return m_writer.Uint64(value), *this; }

    CompactJson& Text(std::string_view text) { return modJson::Text(m_writer, text), *this; }

    std::string_view Result() const { return {m_buffer.GetString(), m_buffer.GetSize()}; }

private:
    rapidjson::StringBuffer m_buffer;
    rapidjson::Writer<rapidjson::StringBuffer> m_writer{m_buffer};
};

/// Nothing in it can end or open a script element, a comment or an entity. JSON has these characters in strings only,
/// where the escape means the same.
std::string SafeInScriptElement(std::string_view json) {
    std::string safe;
    safe.reserve(json.size() + json.size() / 16);
    for (const char character : json) {
        switch (character) {
            case '<': safe += "\\u003c"; break;
            case '>': safe += "\\u003e"; break;
            case '&': safe += "\\u0026"; break;
            default: safe += character;
        }
    }
    return safe;
}

/// Stores each text once; records refer to it by its index.
class TextPool {
public:
    std::size_t IndexOf(std::string_view text) {
        const auto [found, isNew] = m_indexes.try_emplace(text, m_texts.size());
        if (isNew) {
            m_texts.push_back(text);
        }
        return found->second;
    }
    const std::vector<std::string_view>& Texts() const { return m_texts; }

private:
    std::unordered_map<std::string_view, std::size_t> m_indexes;
    std::vector<std::string_view> m_texts;
};

constexpr std::int64_t kNone = -1;

std::int64_t IndexOrNone(const std::optional<std::size_t>& index) {
    return index ? static_cast<std::int64_t>(*index) : kNone;
}

/// How a field of a record is written. `IsDefault`, if it is set, tests for the value that the script uses for a field
/// that is missing at the end of the record.
template <typename Record>
struct Field {
    std::string_view Key;
    void (*Write)(const Record& record, CompactJson& json);
    bool (*IsDefault)(const Record& record) = nullptr;
};

/// Whether the writer and the script have the same fields in the same order.
template <typename Fields, typename Columns>
constexpr bool AgreeWith(const Fields& fields, const Columns& columns) {
    return std::equal(
        fields.begin(),
        fields.end(),
        columns.begin(),
        columns.end(),
        [](const auto& field, const auto& column) { return field.Key == column.Key; });
}

template <typename Record, std::size_t count>
void WriteRecord(
    const Record& record, const std::array<Field<Record>, count>& fields, CompactJson& json) {
    std::size_t written = count;
    while (written > 0 && fields.at(written - 1).IsDefault != nullptr &&
           fields.at(written - 1).IsDefault(record)) {
        --written;
    }
    json.Open();
    for (std::size_t index = 0; index < written; ++index) {
        fields.at(index).Write(record, json);
    }
    json.Close();
}

// ---- files ----

enum class FileVerdict : int { None = 0, Passed = 1, Failed = 2, Error = 3 };

FileVerdict VerdictOf(const ModernFile& file, bool hasTolerances) {
    if (!file.UnreviewedReason.empty()) {
        return FileVerdict::Error;
    }
    if (!hasTolerances) {
        return FileVerdict::None;
    }
    return file.Failures.empty() ? FileVerdict::Passed : FileVerdict::Failed;
}

/// Why a file did not pass, in words.
std::string ReasonOf(const ModernFile& file) {
    std::string reason = file.UnreviewedReason;
    for (const ToleranceFailure& failure : file.Failures) {
        reason += (reason.empty() ? "" : "; ") + failure.Description + " " +
                  MeasureFigure(failure, failure.ToleranceValue) + ", limit " +
                  MeasureFigure(failure, failure.ToleranceLimit);
    }
    return reason;
}

/// Tenths of a percent, so that the number in the JSON has no decimal point.
std::int64_t CommentTenths(const SourceLineStatistics& lines) {
    constexpr double kTenthsOfAll = 1000;
    const std::optional<double> share = lines.CommentShare();
    return share ? std::llround(*share * kTenthsOfAll) : kNone;
}

struct FileRecord {
    const ModernFile& File;
    bool HasTolerances;
};

constexpr auto kFileFields = std::to_array<Field<FileRecord>>({
    {"name",
     [](const auto& record, auto& json) {
         json.Text(record.File.Filename);
     }},
    {"path",
     [](const auto& record, auto& json) {
         json.Text(record.File.Path);
     }},
    {"verdict",
     [](const auto& record, auto& json) {
         json.Number(static_cast<int>(VerdictOf(record.File, record.HasTolerances)));
     }},
    {"counts",
     [](const auto& record, auto& json) {
         json.Open();
         for (const std::int32_t count : record.File.Violations.Counts()) {
             json.Number(count);
         }
         json.Close();
     }},
    {"violations",
     [](const auto& record, auto& json) {
         json.Number(record.File.Violations.TotalViolations());
     }},
    {"impact",
     [](const auto& record, auto& json) {
         json.Number(record.File.Violations.TotalImpact());
     }},
    {"lines",
     [](const auto& record, auto& json) {
         json.Number(record.File.IsProjectFile ? kNone : record.File.Lines.TotalLines());
     }},
    {"comments",
     [](const auto& record, auto& json) {
         json.Number(CommentTenths(record.File.Lines));
     }},
    {"complexity",
     [](const auto& record, auto& json) {
         json.Number(record.File.WorstComplexity ? *record.File.WorstComplexity : kNone);
     }},
    {"reason",
     [](const auto& record, auto& json) {
         json.Text(ReasonOf(record.File));
     }},
});
static_assert(AgreeWith(kFileFields, modModernReportColumns::kFiles));

// ---- procedures ----

constexpr auto kProcedureFields = std::to_array<Field<ModernProcedure>>({
    {"id",
     [](const auto& procedure, auto& json) {
         json.Number(procedure.ID);
     }},
    {"file",
     [](const auto& procedure, auto& json) {
         json.Index(procedure.File);
     }},
    {"name",
     [](const auto& procedure, auto& json) {
         json.Text(procedure.Name);
     }},
});
static_assert(AgreeWith(kProcedureFields, modModernReportColumns::kProcedures));

/// Only those with violations; the page does not need the others.
class UsedProcedures {
public:
    explicit UsedProcedures(const ModernReportData& data) : m_data(data) {
        m_indexes.assign(data.Procedures.size(), kNone);
        for (const ModernViolation& violation : data.AllViolations) {
            if (violation.Procedure && m_indexes.at(*violation.Procedure) == kNone) {
                m_indexes.at(*violation.Procedure) = static_cast<std::int64_t>(m_used.size());
                m_used.push_back(*violation.Procedure);
            }
        }
    }

    std::int64_t IndexOf(const ModernViolation& violation) const {
        return violation.Procedure ? m_indexes.at(*violation.Procedure) : kNone;
    }

    void Write(CompactJson& json) const {
        json.Key("procedures").Open();
        for (const std::size_t used : m_used) {
            WriteRecord(m_data.Procedures.at(used), kProcedureFields, json);
        }
        json.Close();
    }

private:
    const ModernReportData& m_data;
    std::vector<std::int64_t> m_indexes;
    std::vector<std::size_t> m_used;
};

// ---- violations ----

std::size_t CategoryIndex(std::int32_t id, const CategoryList& categories) {
    for (std::int32_t index = 1; index <= categories.Count(); ++index) {
        if (categories.Item(index)->ID() == id) {
            return static_cast<std::size_t>(index - 1);
        }
    }
    return static_cast<std::size_t>(categories.Count());
}

void WriteCategories(const CategoryList& categories, CompactJson& json) {
    json.Key("categories").Open();
    for (std::int32_t index = 1; index <= categories.Count(); ++index) {
        json.Text(categories.Item(index)->Title());
    }
    json.Text("Unallocated").Close();
}

struct RuleRecord {
    const ModernRule& Rule;
    const CategoryList& Categories;
};

constexpr auto kRuleFields = std::to_array<Field<RuleRecord>>({
    {"number",
     [](const auto& record, auto& json) {
         json.Number(record.Rule.RuleID);
     }},
    {"type",
     [](const auto& record, auto& json) {
         json.Number(record.Rule.RuleType);
     }},
    {"severity",
     [](const auto& record, auto& json) {
         json.Number(record.Rule.Severity);
     }},
    {"category",
     [](const auto& record, auto& json) {
         json.Index(CategoryIndex(record.Rule.CategoryID, record.Categories));
     }},
    {"impact",
     [](const auto& record, auto& json) {
         json.Number(record.Rule.Impact);
     }},
    {"title",
     [](const auto& record, auto& json) {
         json.Text(record.Rule.Title);
     }},
    {"descriptionHead",
     [](const auto& record, auto& json) {
         json.Text(record.Rule.Description.Head());
     }},
    {"descriptionTail",
     [](const auto& record, auto& json) {
         json.Text(record.Rule.Description.Tail());
     }},
    {"adviceHead",
     [](const auto& record, auto& json) {
         json.Text(record.Rule.Advice.Head());
     }},
    {"adviceTail",
     [](const auto& record, auto& json) {
         json.Text(record.Rule.Advice.Tail());
     }},
});
static_assert(AgreeWith(kRuleFields, modModernReportColumns::kRules));

/// A violation with indexes into the other lists of the data.
struct ViolationRecord {
    const ModernViolation& Item;
    std::size_t RuleIndex;
    std::int64_t Procedure;
    std::int64_t SourceLine;
    std::string_view Description;  // the part that not all violations of its rule share
    std::string_view Advice;       // likewise
};

constexpr auto kViolationFields = std::to_array<Field<ViolationRecord>>({
    {"id",
     [](const auto& record, auto& json) {
         json.Number(record.Item.ID);
     }},
    {"ruleIndex",
     [](const auto& record, auto& json) {
         json.Index(record.RuleIndex);
     }},
    {"file",
     [](const auto& record, auto& json) {
         json.Number(IndexOrNone(record.Item.File));
     }},
    {"procedure",
     [](const auto& record, auto& json) {
         json.Number(record.Procedure);
     }},
    {"line",
     [](const auto& record, auto& json) {
         json.Number(record.Item.Violation.SourceLineNumber);
     }},
    {"source",
     [](const auto& record, auto& json) {
         json.Number(record.SourceLine);
     }},
    {"description",
     [](const auto& record, auto& json) { json.Text(record.Description); },
     [](const auto& record) {
         return record.Description.empty();
     }},
    {"advice",
     [](const auto& record, auto& json) { json.Text(record.Advice); },
     [](const auto& record) {
         return record.Advice.empty();
     }},
    {"completed",
     [](const auto& record, auto& json) { json.Number(record.Item.Violation.Completed ? 1 : 0); },
     [](const auto& record) {
         return !record.Item.Violation.Completed;
     }},
});
static_assert(AgreeWith(kViolationFields, modModernReportColumns::kViolations));

void WriteViolation(
    const ModernViolation& item,
    std::size_t ruleIndex,
    const ModernRule& rule,
    std::int64_t procedure,
    TextPool& lines,
    CompactJson& json) {
    const Violation& violation = item.Violation;
    const std::int64_t sourceLine =
        violation.SourceLine.empty()
            ? kNone
            : static_cast<std::int64_t>(lines.IndexOf(violation.SourceLine));
    const ViolationRecord record{
        item,
        ruleIndex,
        procedure,
        sourceLine,
        rule.Description.MiddleOf(violation.Description),
        rule.Advice.MiddleOf(violation.Advice)};
    WriteRecord(record, kViolationFields, json);
}

void WriteViolations(const ModernReportData& data, CompactJson& json) {
    const CategoryList& categories = data.Criteria.Lists.Categories;
    const UsedProcedures procedures(data);
    procedures.Write(json);
    const ModernRuleTable table = ModernRuleTable::Of(data.AllViolations);
    json.Key("rules").Open();
    for (const ModernRule& rule : table.Rules) {
        WriteRecord(RuleRecord{rule, categories}, kRuleFields, json);
    }
    json.Close().Key("violations").Open();
    TextPool lines;
    for (std::size_t index = 0; index < data.AllViolations.size(); ++index) {
        const std::size_t rule = table.RuleOfViolation.at(index);
        const ModernViolation& item = data.AllViolations.at(index);
        WriteViolation(item, rule, table.Rules.at(rule), procedures.IndexOf(item), lines, json);
    }
    json.Close().Key("lines").Open();
    for (const std::string_view line : lines.Texts()) {
        json.Text(line);
    }
    json.Close();
}

}  // namespace

std::string DataBlock(const ModernReportData& data) {
    CompactJson json;
    json.OpenObject().Key("severities").Open();
    for (const ModernSeverity& severity : data.Severities) {
        json.Text(severity.Title);
    }
    json.Close();
    WriteCategories(data.Criteria.Lists.Categories, json);
    json.Key("files").Open();
    for (const ModernFile& file : data.Files) {
        WriteRecord(FileRecord{file, data.HasTolerances}, kFileFields, json);
    }
    json.Close();
    WriteViolations(data, json);
    json.CloseObject();
    return SafeInScriptElement(json.Result());
}

}  // namespace dorvik::modModernReport
