#pragma once

#include "rulebase/model/Rulebase.h"
#include "rulebase/model/TableItem.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Writes a rulebase as one HTML page for people: the standard of a team, to read, search and print.
///
/// With sections in the rulebase's report definition the page has exactly these, in their order;
/// without any it has all categories with their rules and all tables. A table of a definition is
/// chosen by its key: "ControlTags", "DataTypeTags", "ScopeTags", "AuthorisedComponents",
/// "AuthorisedReferences", "Severities" or "Tolerances", in any case; with any other key the
/// section is its text alone.
///
/// The page is one file without scripts or outside references, and all texts of the rulebase are
/// escaped. The same rulebase always gives the same bytes.
class RulebaseDocument {
public:
    /// REQUIRES: `rulebase` outlives this.
    explicit RulebaseDocument(const Rulebase& rulebase) : m_rulebase(rulebase) {}

    /// The page in UTF-8.
    std::string Write();

private:
    struct Heading {
        std::string Anchor;
        std::string Title;
    };

    void WriteWholeRulebase();
    void WriteDefinedSections();
    void WriteIntroduction();
    void WriteCategory(
        const std::string& title,
        const std::string& description,
        const std::vector<const IRule*>& rules);
    void WriteRule(const IRule& rule);
    void WriteTable(const TableItem& table);
    /// The table of that key, without a heading; nothing for a key that names none.
    void WriteTableOf(std::string_view key);
    void WriteTags(const TagTable& tags, bool described);
    void WriteComponents();
    void WriteReferences();
    void WriteSeverities();
    void WriteTolerances();
    void WriteRows(
        std::span<const std::string_view> head, const std::vector<std::vector<std::string>>& rows);
    /// Opens a section that the contents list names.
    void BeginSection(const std::string& title);
    void EndSection();
    void Paragraphs(std::string_view text, std::string_view className);
    void Element(std::string_view tag, std::string_view className, std::string_view text);
    std::vector<const IRule*> RulesOfCategory(std::int32_t categoryID) const;
    std::string Page() const;

    const Rulebase& m_rulebase;
    std::string m_introduction;
    std::string m_body;
    std::vector<Heading> m_headings;
};

}  // namespace dorvik
