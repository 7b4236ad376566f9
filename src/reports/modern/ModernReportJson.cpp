#include "ModernReportData.h"
#include "ModernReportPage.h"
#include "ModernReportRules.h"
#include "base/modUtf8.h"

#include <algorithm>
#include <cmath>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <unordered_map>

namespace dorvik::modModernReport {

namespace {

/// Compact JSON: records are arrays whose places the script knows.
class CompactJson {
public:
    CompactJson& Key(std::string_view key) {
        m_writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
        return *this;
    }
    CompactJson& Open() { return m_writer.StartArray(), *this; }
    CompactJson& Close() { return m_writer.EndArray(), *this; }
    CompactJson& OpenObject() { return m_writer.StartObject(), *this; }
    CompactJson& CloseObject() { return m_writer.EndObject(), *this; }
    CompactJson& Number(std::int64_t value) { return m_writer.Int64(value), *this; }
    CompactJson& Place(std::size_t value) { return m_writer.Uint64(value), *this; }

    /// U+FFFD stands for every byte that belongs to no character.
    CompactJson& Text(std::string_view text) {
        if (modUtf8::IsValid(text)) {
            m_writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
            return *this;
        }
        std::string valid;
        for (std::size_t position = 0; position < text.size();) {
            const modUtf8::Character character = modUtf8::Decode(text, position);
            modUtf8::Append(valid, character.CodePoint);
            position += character.Size;
        }
        m_writer.String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
        return *this;
    }

    std::string_view Result() const { return {m_buffer.GetString(), m_buffer.GetSize()}; }

private:
    rapidjson::StringBuffer m_buffer;
    rapidjson::Writer<rapidjson::StringBuffer> m_writer{m_buffer};
};

/// Nothing in it can end or open a script element, a comment or an entity. JSON has these characters in
/// texts alone, where the number says the same.
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

/// Each text once, to be named by its place.
class TextPool {
public:
    std::size_t PlaceOf(std::string_view text) {
        const auto [found, isNew] = m_places.try_emplace(text, m_texts.size());
        if (isNew) {
            m_texts.push_back(text);
        }
        return found->second;
    }
    const std::vector<std::string_view>& Texts() const { return m_texts; }

private:
    std::unordered_map<std::string_view, std::size_t> m_places;
    std::vector<std::string_view> m_texts;
};

constexpr std::int64_t kNone = -1;

std::int64_t PlaceOrNone(const std::optional<std::size_t>& place) {
    return place ? static_cast<std::int64_t>(*place) : kNone;
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

/// Tenths of a percent, so that a number of JSON needs no point.
std::int64_t CommentTenths(const SourceLineStatistics& lines) {
    constexpr double kTenthsOfAll = 1000;
    const std::optional<double> share = CommentShareOf(lines);
    return share ? std::llround(*share * kTenthsOfAll) : kNone;
}

void WriteFile(const ModernFile& file, bool hasTolerances, CompactJson& json) {
    json.Open()
        .Text(file.Filename)
        .Text(file.Path)
        .Number(static_cast<int>(VerdictOf(file, hasTolerances)))
        .Open();
    for (const std::int32_t count : file.Violations.Counts()) {
        json.Number(count);
    }
    json.Close()
        .Number(file.Violations.TotalViolations())
        .Number(file.Violations.TotalImpact())
        .Number(file.IsProjectFile ? kNone : file.Lines.TotalLines())
        .Number(CommentTenths(file.Lines))
        .Number(file.WorstComplexity ? *file.WorstComplexity : kNone)
        .Text(ReasonOf(file))
        .Close();
}

// ---- procedures ----

/// Those that have violations: the page has no use for the others.
class UsedProcedures {
public:
    explicit UsedProcedures(const ModernReportData& data) : m_data(data) {
        m_places.assign(data.Procedures.size(), kNone);
        for (const ModernViolation& violation : data.AllViolations) {
            if (violation.Procedure && m_places.at(*violation.Procedure) == kNone) {
                m_places.at(*violation.Procedure) = static_cast<std::int64_t>(m_used.size());
                m_used.push_back(*violation.Procedure);
            }
        }
    }

    std::int64_t PlaceOf(const ModernViolation& violation) const {
        return violation.Procedure ? m_places.at(*violation.Procedure) : kNone;
    }

    void Write(CompactJson& json) const {
        json.Key("procedures").Open();
        for (const std::size_t used : m_used) {
            const ModernProcedure& procedure = m_data.Procedures.at(used);
            json.Open().Number(procedure.ID).Place(procedure.File).Text(procedure.Name).Close();
        }
        json.Close();
    }

private:
    const ModernReportData& m_data;
    std::vector<std::int64_t> m_places;
    std::vector<std::size_t> m_used;
};

// ---- violations ----

std::size_t CategoryPlace(std::int32_t id, const CategoryList& categories) {
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

void WriteRule(const ModernRule& rule, const CategoryList& categories, CompactJson& json) {
    json.Open()
        .Number(rule.RuleID)
        .Number(rule.RuleType)
        .Number(rule.Severity)
        .Place(CategoryPlace(rule.CategoryID, categories))
        .Number(rule.Impact)
        .Text(rule.Title)
        .Text(rule.Description.Head())
        .Text(rule.Description.Tail())
        .Text(rule.Advice.Head())
        .Text(rule.Advice.Tail())
        .Close();
}

/// The last places are left out where they say nothing.
void WriteViolation(
    const ModernViolation& item,
    std::size_t ruleOfItem,
    const ModernRule& rule,
    std::int64_t procedure,
    TextPool& lines,
    CompactJson& json) {
    const Violation& violation = item.Violation;
    const std::string_view description = rule.Description.MiddleOf(violation.Description);
    const std::string_view advice = rule.Advice.MiddleOf(violation.Advice);
    json.Open()
        .Number(item.ID)
        .Place(ruleOfItem)
        .Number(PlaceOrNone(item.File))
        .Number(procedure)
        .Number(violation.SourceLineNumber)
        .Number(
            violation.SourceLine.empty()
                ? kNone
                : static_cast<std::int64_t>(lines.PlaceOf(violation.SourceLine)));
    if (!description.empty() || !advice.empty() || violation.Completed) {
        json.Text(description);
    }
    if (!advice.empty() || violation.Completed) {
        json.Text(advice);
    }
    if (violation.Completed) {
        json.Number(1);
    }
    json.Close();
}

void WriteViolations(const ModernReportData& data, CompactJson& json) {
    const CategoryList& categories = data.Criteria.Lists.Categories;
    const UsedProcedures procedures(data);
    procedures.Write(json);
    const ModernRuleTable table = ModernRuleTable::Of(data.AllViolations);
    json.Key("rules").Open();
    for (const ModernRule& rule : table.Rules) {
        WriteRule(rule, categories, json);
    }
    json.Close().Key("violations").Open();
    TextPool lines;
    for (std::size_t place = 0; place < data.AllViolations.size(); ++place) {
        const std::size_t rule = table.RuleOfViolation.at(place);
        const ModernViolation& item = data.AllViolations.at(place);
        WriteViolation(item, rule, table.Rules.at(rule), procedures.PlaceOf(item), lines, json);
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
        WriteFile(file, data.HasTolerances, json);
    }
    json.Close();
    WriteViolations(data, json);
    json.CloseObject();
    return SafeInScriptElement(json.Result());
}

}  // namespace dorvik::modModernReport
