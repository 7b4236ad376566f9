#include "RulesInReview.h"

#include "rulebase/file/RulebaseManager.h"
#include "rulebase/model/TagItem.h"

#include <memory>
#include <utility>

namespace dorvik::test {

RulesInReview::RulesInReview() {
    RulebaseLoadCriteria& load = m_run.Criteria().LoadCriteria();
    load.SetCodingConventions(true);
    load.SetNamingConventions(true);
    m_rulebase.SetTitle("Test rules");
}

CodingConvention& RulesInReview::AddCoding(
    const std::string& title,
    const std::vector<std::int32_t>& events,
    const std::string& script,
    std::int32_t endEvent) {
    const auto rule = std::make_shared<CodingConvention>();
    rule->SetTitle(title);
    rule->SetCondition(script);
    for (const std::int32_t event : events) {
        rule->AddParserEventID(event);
    }
    rule->SetPendingViolation(endEvent != -1);
    rule->SetEndEventID(endEvent);
    rule->ViolationDefinition().SetTitle(title);
    rule->ViolationDefinition().SetSeverity(3);
    m_rulebase.RuleLists().AddConvention(rule, true);
    return *rule;
}

NamingConvention& RulesInReview::AddNaming(const std::string& title, ObjectType object) {
    const auto rule = std::make_shared<NamingConvention>();
    rule->SetTitle(title);
    rule->SetObjectType(static_cast<std::int32_t>(object));
    rule->SetPropertyName("Name");
    rule->ViolationDefinition().SetTitle(title);
    rule->ViolationDefinition().SetSeverity(3);
    m_rulebase.RuleLists().AddConvention(rule, true);
    return *rule;
}

NamingConvention&
RulesInReview::AddLeastLength(const std::string& title, ObjectType object, std::int16_t length) {
    NamingConvention& rule = AddNaming(title, object);
    rule.SetBodyActive(true);
    rule.SetMinBodyLength(length);
    return rule;
}

UnauthorisedKeyword& RulesInReview::AddKeyword(
    const std::string& title, const std::string& pattern, const std::vector<std::int32_t>& events) {
    const auto rule = std::make_shared<UnauthorisedKeyword>();
    rule->SetTitle(title);
    rule->SetCondition(pattern);
    for (const std::int32_t event : events) {
        rule->AddParserEventID(event);
    }
    rule->ViolationDefinition().SetTitle(title);
    rule->ViolationDefinition().SetSeverity(3);
    m_rulebase.RuleLists().AddConvention(rule, true);
    return *rule;
}

SliceResult RulesInReview::Run(const std::vector<std::string>& modules) {
    std::string project = "Type=Exe\nName=\"P\"\n";
    for (const std::string& module : modules) {
        const std::size_t equals = module.find('=');
        const std::string name = module.substr(0, equals);
        project += "Module=" + name + "; " + name + ".bas\n";
        m_run.AddFile(
            name + ".bas", "Attribute VB_Name = \"" + name + "\"\n" + module.substr(equals + 1));
    }
    return RunProject(project);
}

SliceResult RulesInReview::RunProject(const std::string& projectLines) {
    RulebaseManager().Save(m_rulebase, m_run.Folder().Path("Rules.dvk"));
    m_run.AddProject("P.vbp", projectLines);
    return m_run.Run();
}

std::string Script(const std::string& body) {
    return "Sub Main\r\n" + body + "\r\nEnd Sub\r\n";
}

PrefixSuffixItem Item(PrefixSuffixType type, std::string value) {
    return {static_cast<std::int32_t>(type), std::move(value)};
}

void Fill(NameAffix& affix, const std::vector<PrefixSuffixItem>& items) {
    affix.SetActive(true);
    std::int32_t slot = 0;
    for (const PrefixSuffixItem& item : items) {
        *affix.Items().Item(++slot) = item;
    }
}

void SetTag(TagTable& tags, const std::string& row, const std::string& value) {
    if (!tags.Contains(row)) {
        const auto item = std::make_shared<TagItem>();
        item->SetTagName(row);
        tags.Add(row, item, false, true);
    }
    tags.Item(row)->SetTagValue(value);
}

void RunForm(RulesInReview& review, const std::string& text) {
    review.Review().AddFile("frmA.frm", text);
    review.RunProject("Type=Exe\nName=\"P\"\nForm=frmA.frm\n");
}

std::vector<std::string> AdviceOf(RulesInReview& review) {
    return review.Query("SELECT Advice FROM Violations");
}

}  // namespace dorvik::test
