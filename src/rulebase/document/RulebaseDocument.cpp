#include "rulebase/document/RulebaseDocument.h"

#include "RulebaseDocumentStyle.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/text/modHtmlText.h"
#include "rulebase/model/CategoryItem.h"
#include "rulebase/model/modRuleFacts.h"

#include <algorithm>

namespace dorvik {

using modHtmlText::Escape;

namespace {

/// Nothing but the page's own style may act, whatever a text should ever slip past the escaping.
constexpr std::string_view kContentPolicy =
    "default-src 'none'; style-src 'unsafe-inline'; base-uri 'none'; form-action 'none'";

constexpr std::int32_t kNoCategory = -1;

const std::string kDot = " \xC2\xB7 ";

/// What the head of a rule already says.
constexpr std::string_view kSaidInTheHead[] = {
    "Kind", "Active", "Severity", "Impact", "Category", "Description"};

std::string Counted(std::int32_t number, std::string_view one, std::string_view many) {
    return std::to_string(number).append(" ").append(number == 1 ? one : many);
}

std::string Values(const RuleFact& fact) {
    switch (fact.Form) {
        case FactForm::Text: return Escape(fact.Text);
        case FactForm::Pattern: return "<code>" + Escape(fact.Text) + "</code>";
        case FactForm::Script: return "<pre>" + Escape(fact.Text) + "</pre>";
    }
    return {};
}

bool IsSaidInTheHead(const RuleFact& fact, const IRule& rule) {
    return std::find(std::begin(kSaidInTheHead), std::end(kSaidInTheHead), fact.Label) !=
               std::end(kSaidInTheHead) ||
           (fact.Label == "Violation" && fact.Text == rule.Title());
}

std::vector<const IRule*> Pointers(const ObjectArrayList<IRule>& list) {
    std::vector<const IRule*> rules;
    for (const auto& item : list) {
        rules.push_back(item.get());
    }
    return rules;
}

}  // namespace

std::string RulebaseDocument::Write() {
    m_introduction.clear();
    m_body.clear();
    m_headings.clear();
    WriteIntroduction();
    m_rulebase.Report().Sections().Count() > 0 ? WriteDefinedSections() : WriteWholeRulebase();
    return Page();
}

std::string RulebaseDocument::Page() const {
    std::string page = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta http-equiv=\"Content-Security-Policy\" content=\"";
    page += std::string(kContentPolicy) + "\">\n";
    page += "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>";
    page += Escape(m_rulebase.Title()) + "</title>\n<style>";
    page += std::string(kRulebaseDocumentStyle) + "</style>\n</head>\n<body>\n" + m_introduction;
    if (m_headings.size() > 1) {
        page += "<nav aria-label=\"Contents\">\n<p>Contents</p>\n<ol>\n";
        for (const Heading& heading : m_headings) {
            page +=
                "<li><a href=\"#" + heading.Anchor + "\">" + Escape(heading.Title) + "</a></li>\n";
        }
        page += "</ol>\n</nav>\n";
    }
    return page + "<main>\n" + m_body + "</main>\n</body>\n</html>\n";
}

void RulebaseDocument::WriteIntroduction() {
    m_body = "<header>\n";
    Element("h1", "", m_rulebase.Title());
    std::string facts = "Version " + m_rulebase.Version();
    facts += kDot + Counted(m_rulebase.RuleLists().AllConventions().Count(), "rule", "rules");
    const std::int32_t items =
        m_rulebase.AuthorisedComponents().Count() + m_rulebase.AuthorisedReferences().Count();
    if (items > 0) {
        facts += kDot + Counted(items, "authorised item", "authorised items");
    }
    Element("p", "facts", facts);
    Paragraphs(m_rulebase.Description(), "lead");
    m_introduction = m_body + "</header>\n";
    m_body.clear();
}

std::vector<const IRule*> RulebaseDocument::RulesOfCategory(std::int32_t categoryID) const {
    std::vector<const IRule*> rules =
        Pointers(m_rulebase.RuleLists().ConventionsListByCatID(categoryID));
    // Worst first; of one severity they stay in the order of their titles.
    std::stable_sort(rules.begin(), rules.end(), [](const IRule* left, const IRule* right) {
        return left->ViolationDefinition().Severity() < right->ViolationDefinition().Severity();
    });
    return rules;
}

void RulebaseDocument::WriteWholeRulebase() {
    const CategoryList& categories = m_rulebase.CategoryList();
    for (const auto& category : categories) {
        if (!category->Hidden()) {
            WriteCategory(
                category->Title(), category->Description(), RulesOfCategory(category->ID()));
        }
    }
    const std::vector<const IRule*> others = RulesOfCategory(kNoCategory);
    if (!others.empty()) {
        WriteCategory("Without a category", "", others);
    }
    struct TableRow {
        const char* Key;
        const char* Title;
    };
    static constexpr TableRow kTables[] = {
        {"Severities", "Severities"},
        {"Tolerances", "Tolerances"},
        {"ControlTags", "Tags of controls"},
        {"DataTypeTags", "Tags of data types"},
        {"ScopeTags", "Tags of scopes"},
        {"AuthorisedComponents", "Authorised components"},
        {"AuthorisedReferences", "Authorised references"},
    };
    for (const TableRow& table : kTables) {
        BeginSection(table.Title);
        WriteTableOf(table.Key);
        EndSection();
    }
}

void RulebaseDocument::WriteDefinedSections() {
    const Report::SectionList& sections = m_rulebase.Report().Sections();
    for (const auto& section : sections) {
        if (const auto* category = dynamic_cast<const CategoryItem*>(section.get())) {
            WriteCategory(
                category->Title(), category->Description(), Pointers(category->CategoryRules()));
        } else if (const auto* table = dynamic_cast<const TableItem*>(section.get())) {
            WriteTable(*table);
        }
    }
}

void RulebaseDocument::WriteCategory(
    const std::string& title,
    const std::string& description,
    const std::vector<const IRule*>& rules) {
    BeginSection(title);
    Paragraphs(description, "lead");
    for (const IRule* rule : rules) {
        WriteRule(*rule);
    }
    if (rules.empty()) {
        Element("p", "none", "No rules.");
    }
    EndSection();
}

void RulebaseDocument::WriteRule(const IRule& rule) {
    const ViolationDefinition& violation = rule.ViolationDefinition();
    m_body += "<article class=\"rule s" + std::to_string(violation.Severity()) + "\">\n";
    Element(
        "h3", "", rule.Title().empty() ? "Rule " + std::to_string(rule.RuleID()) : rule.Title());
    m_body += "<p class=\"marks\"><span class=\"severity\">" +
              Escape(modRuleFacts::SeverityTitle(m_rulebase, violation.Severity())) + "</span>" +
              kDot + std::string(modRuleFacts::KindName(rule.RuleType())) + " " +
              std::to_string(rule.RuleID()) + kDot + "impact " +
              std::to_string(violation.Impact()) +
              (rule.RuleActive() ? "" : kDot + "<span class=\"off\">disabled</span>") + "</p>\n";
    Paragraphs(rule.Description(), "");
    m_body += "<dl>\n";
    for (const RuleFact& fact : modRuleFacts::Of(rule, m_rulebase)) {
        if (!IsSaidInTheHead(fact, rule)) {
            m_body += "<dt>" + Escape(fact.Label) + "</dt><dd>" + Values(fact) + "</dd>\n";
        }
    }
    m_body += "</dl>\n</article>\n";
}

void RulebaseDocument::WriteTable(const TableItem& table) {
    BeginSection(table.TableTitle());
    Paragraphs(table.TableText(), "lead");
    WriteTableOf(table.TableKey());
    EndSection();
}

void RulebaseDocument::BeginSection(const std::string& title) {
    const std::string anchor = "section-" + std::to_string(m_headings.size() + 1);
    m_headings.push_back({anchor, title});
    m_body += "<section id=\"" + anchor + "\">\n";
    Element("h2", "", title);
}

void RulebaseDocument::EndSection() {
    m_body += "</section>\n";
}

void RulebaseDocument::Paragraphs(std::string_view text, std::string_view className) {
    if (!modText::Trim(text).empty()) {
        Element("p", className, text);
    }
}

void RulebaseDocument::Element(
    std::string_view tag, std::string_view className, std::string_view text) {
    const std::string name(tag);
    m_body += "<" + name;
    if (!className.empty()) {
        m_body += " class=\"" + std::string(className) + "\"";
    }
    m_body += ">" + Escape(text) + "</" + name + ">\n";
}

}  // namespace dorvik
