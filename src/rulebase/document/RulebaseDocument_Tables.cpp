#include "base/modTextCase.h"
#include "foundation/text/modHtmlText.h"
#include "rulebase/document/RulebaseDocument.h"
#include "rulebase/model/modRuleFacts.h"

#include <algorithm>
#include <array>

namespace dorvik {

using modHtmlText::Escape;

namespace {

using Rows = std::vector<std::vector<std::string>>;

/// Leaves out the columns, all but the first, of which no row has anything to say.
std::vector<bool> ShownColumns(std::size_t count, const Rows& rows) {
    std::vector<bool> shown(count, false);
    for (std::size_t column = 0; column < count; ++column) {
        shown[column] = column == 0 || std::any_of(rows.begin(), rows.end(), [&](const auto& row) {
                            return !row[column].empty();
                        });
    }
    return shown;
}

}  // namespace

void RulebaseDocument::WriteRows(
    std::span<const std::string_view> head, const std::vector<std::vector<std::string>>& rows) {
    if (rows.empty()) {
        Element("p", "none", "None.");
        return;
    }
    const std::vector<bool> shown = ShownColumns(head.size(), rows);
    m_body += "<div class=\"scroll\"><table>\n<thead><tr>";
    for (std::size_t column = 0; column < head.size(); ++column) {
        if (shown[column]) {
            m_body += "<th scope=\"col\">" + Escape(head[column]) + "</th>";
        }
    }
    m_body += "</tr></thead>\n<tbody>\n";
    for (const std::vector<std::string>& row : rows) {
        m_body += "<tr>";
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (shown[column]) {
                m_body += "<td>" + Escape(row[column]) + "</td>";
            }
        }
        m_body += "</tr>\n";
    }
    m_body += "</tbody>\n</table></div>\n";
}

void RulebaseDocument::WriteTags(const TagTable& tags, bool described) {
    static constexpr std::array<std::string_view, 4> kHead{"Name", "Tag", "Example", "Description"};
    Rows rows;
    for (const auto& tag : tags) {
        // A row without a tag says nothing: names of that kind are not tested.
        if (!tag->TagValue().empty()) {
            rows.push_back(
                {tag->TagName(),
                 tag->TagValue(),
                 tag->TagExample(),
                 described ? tag->TagDescription() : ""});
        }
    }
    WriteRows(kHead, rows);
}

void RulebaseDocument::WriteComponents() {
    static constexpr std::array<std::string_view, 4> kHead{
        "File", "Versions", "Type library", "Advice"};
    Rows rows;
    const AuthorisedComponents& list = m_rulebase.AuthorisedComponents();
    for (const auto& item : list) {
        rows.push_back({item->Filename(), item->VersionList(), item->LibID(), item->Advice()});
    }
    WriteRows(kHead, rows);
}

void RulebaseDocument::WriteReferences() {
    static constexpr std::array<std::string_view, 5> kHead{
        "Library", "File", "Versions", "Type library", "Advice"};
    Rows rows;
    const AuthorisedReferences& list = m_rulebase.AuthorisedReferences();
    for (const auto& item : list) {
        rows.push_back(
            {item->Description(),
             item->Filename(),
             item->VersionList(),
             item->LibID(),
             item->Advice()});
    }
    WriteRows(kHead, rows);
}

void RulebaseDocument::WriteSeverities() {
    static constexpr std::array<std::string_view, 4> kHead{
        "Level", "Severity", "Impact", "Meaning"};
    Rows rows;
    const SeverityTable& table = m_rulebase.SeverityList();
    for (const auto& item : table) {
        rows.push_back(
            {std::to_string(item->SeverityLevel()),
             item->Title(),
             std::to_string(item->Impact()),
             item->Description()});
    }
    WriteRows(kHead, rows);
}

void RulebaseDocument::WriteTolerances() {
    static constexpr std::array<std::string_view, 2> kHead{"Measure", "Limit"};
    Rows rows;
    for (const RuleFact& fact : modRuleFacts::Tolerances(m_rulebase)) {
        rows.push_back({fact.Label, fact.Text});
    }
    WriteRows(kHead, rows);
}

void RulebaseDocument::WriteTableOf(std::string_view key) {
    struct KeyRow {
        std::string_view Key;
        void (*Write)(RulebaseDocument& document);
    };
    static constexpr KeyRow kKeys[] = {
        {"ControlTags",
         [](RulebaseDocument& d) {
             d.WriteTags(d.m_rulebase.ControlTags(), true);
         }},
        {"DataTypeTags",
         [](RulebaseDocument& d) {
             d.WriteTags(d.m_rulebase.DataTypeTags(), false);
         }},
        {"ScopeTags",
         [](RulebaseDocument& d) {
             d.WriteTags(d.m_rulebase.ScopeTags(), false);
         }},
        {"AuthorisedComponents",
         [](RulebaseDocument& d) {
             d.WriteComponents();
         }},
        {"AuthorisedReferences",
         [](RulebaseDocument& d) {
             d.WriteReferences();
         }},
        {"Severities",
         [](RulebaseDocument& d) {
             d.WriteSeverities();
         }},
        {"Tolerances",
         [](RulebaseDocument& d) {
             d.WriteTolerances();
         }},
    };
    for (const KeyRow& row : kKeys) {
        if (modTextCase::Equal(row.Key, key)) {
            row.Write(*this);
            return;
        }
    }
}

}  // namespace dorvik
