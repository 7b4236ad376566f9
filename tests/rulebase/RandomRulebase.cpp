#include "rulebase/RandomRulebase.h"

#include "foundation/xml/KyXMLElement.h"
#include "rulebase/model/TableItem.h"

#include <limits>
#include <string_view>

namespace dorvik::test {

namespace {

constexpr std::string_view kPieces[] = {
    "Sub ",   "If a Then", "\r\n",  "\t",   "<",      ">",      "&",      "\"",     "'",    "\n",
    "\r",     " ",         "   ",   "é",    "Ж",      "ルール", "😀",      "|",      ";",    "]]>",
    "<!-- x", "&amp;",     "&#10;", "%",    "%File.", "Name%",  "100%",   "{0}",    "\\",   "\\b",
    "[A-Z]+", "0",         "-1",    "True", "x",      "\u00A0", "\u2028", "\u200F", "\x7F", "ÿ",
};

bool Survives(const std::string& text) {
    return KyXMLElement::RestoreIllegalChars(KyXMLElement::ReplaceIllegalChars(text)) == text;
}

}  // namespace

std::int32_t RandomRulebase::Number(std::int32_t below) {
    return static_cast<std::int32_t>(m_engine() % static_cast<std::uint32_t>(below));
}

std::int32_t RandomRulebase::Long() {
    using Limits = std::numeric_limits<std::int32_t>;
    switch (Number(6)) {
        case 0: return Limits::min();
        case 1: return Limits::max();
        case 2: return -Number(10);
        case 3: return Number(10);
        default: return static_cast<std::int32_t>(m_engine());
    }
}

std::int16_t RandomRulebase::Integer() {
    return static_cast<std::int16_t>(Number(5) == 0 ? -32768 : Long());
}

std::string RandomRulebase::Text() {
    const std::int32_t kind = Number(2000);
    std::string text;
    if (kind == 0) {
        text = std::string(60000, 'x');
    }
    for (std::int32_t pieces = kind < 400 ? 0 : Number(8); pieces > 0; --pieces) {
        text += kPieces[Number(static_cast<std::int32_t>(std::size(kPieces)))];
    }
    return Survives(text) ? text : "tag word";
}

std::unique_ptr<Rulebase> RandomRulebase::Make() {
    auto rulebase = std::make_unique<Rulebase>();
    FillProperties(*rulebase);
    FillTags(rulebase->ControlTags(), true);
    FillTags(rulebase->DataTypeTags(), false);
    FillTags(rulebase->ScopeTags(), false);
    FillDefaultViolations(rulebase->DefaultViolations());
    FillCategories(rulebase->CategoryList());
    FillSeverities(rulebase->SeverityList());
    FillAuthorisedItems(*rulebase);
    FillRules(rulebase->RuleLists());
    FillReport(*rulebase);
    return rulebase;
}

void RandomRulebase::FillProperties(Rulebase& rulebase) {
    rulebase.SetTitle(Text());
    rulebase.SetAutoIncrementVersion(Flag());
    rulebase.SetVersion(
        rulebase.AutoIncrementVersion() ? "3.2.0" + std::to_string(Number(900)) : Text());
    rulebase.SetDescription(Text());
    rulebase.SetUnknownControlViolation(Flag());
    rulebase.SetUseCTagsAsDTTags(Flag());
    rulebase.SetArrayTag(Text());
    for (std::int32_t place = 1; place <= ToleranceSettings::kPlaces; ++place) {
        rulebase.Tolerances().Count.SetItem(place, Long());
        rulebase.Tolerances().Impact.SetItem(place, Long());
    }
    rulebase.SetTolerancePercentageComments(Long());
    rulebase.SetToleranceCyclomaticComplexity(Long());
}

void RandomRulebase::FillTags(TagTable& table, bool withDescriptions) {
    for (std::int32_t more = Number(6); more > 0; --more) {
        const std::string name = Text();
        if (table.Contains(name)) {
            continue;
        }
        const auto item = std::make_shared<TagItem>();
        item->SetTagName(name);
        table.Add(name, item);
    }
    for (std::int32_t index = 1; index <= table.Count(); ++index) {
        TagItem& item = *table.Item(index);
        item.SetTagValue(Text());
        item.SetTagExample(Text());
        if (withDescriptions) {
            item.SetTagDescription(Text());
        }
    }
}

void RandomRulebase::FillDefaultViolations(DefaultViolations& violations) {
    for (std::int32_t index = 1; index <= violations.Count(); ++index) {
        const std::string title = violations.Item(index).Title();
        FillViolation(violations.Item(index));
        violations.Item(index).SetTitle(title);
    }
}

void RandomRulebase::FillViolation(ViolationDefinition& definition) {
    definition.SetTitle(Text());
    definition.SetDescription(Text());
    definition.SetAdvice(Text());
    definition.SetSeverity(Long());
    definition.SetImpact(Integer());
    definition.SetCategoryID(Flag() ? 1 : Long());
}

void RandomRulebase::FillCategories(CategoryList& list) {
    for (std::int32_t number = Number(8); number >= 0; --number) {
        const auto item = std::make_shared<CategoryItem>();
        item->SetTitle(Text() + " category " + std::to_string(number));
        item->SetDescription(Text());
        item->SetHidden(Flag());
        list.Add(item, true);
    }
    list.SetLastID(Long());
    list.Sort();
}

void RandomRulebase::FillSeverities(SeverityTable& table) {
    for (std::int32_t level = 1; level <= 5 + Number(3); ++level) {
        const std::string key = SeverityKeyOf(level);
        if (!table.Contains(key)) {
            const auto item = std::make_shared<SeverityItem>();
            item->SetKey(key);
            item->SetSeverityLevel(level);
            item->SetSeverityLevelText(Text());
            table.Add(key, item, true);
        }
        SeverityItem& item = *table.Item(key);
        item.SetTitle(Text());
        item.SetDescription(Text());
        item.SetColour(Long());
        item.SetImpact(Integer());
    }
}

void RandomRulebase::FillAuthorisedItems(Rulebase& rulebase) {
    for (std::int32_t number = Number(5); number > 0; --number) {
        const std::string libID = Text() + std::to_string(number);
        rulebase.AuthorisedComponents().Add(libID, Text(), Text(), Text());
        rulebase.AuthorisedReferences().Add(libID, Text(), Text(), Text(), Text());
    }
}

void RandomRulebase::FillRules(RuleLists& rules) {
    for (std::int32_t number = Number(20); number > 0; --number) {
        std::shared_ptr<IRule> rule;
        switch (Number(3)) {
            case 0: rule = Keyword(); break;
            case 1: rule = Coding(); break;
            default: rule = Naming(); break;
        }
        rule->SetRuleID(number % 4 == 0 ? -number : number * 1000003);
        rules.AddConvention(rule, false);
    }
    rules.SetLastID(Long());
}

template <class Rule>
void RandomRulebase::FillBasics(Rule& rule) {
    rule.SetRuleActive(Flag());
    rule.SetTitle(Text());
    rule.SetDescription(Text());
    rule.SetCondition(Text());
    FillViolation(rule.ViolationDefinition());
}

template <class Rule>
void RandomRulebase::FillEvents(Rule& rule) {
    for (std::int32_t events = Number(5); events > 0; --events) {
        rule.AddParserEventID(Flag() ? Number(40) : Long());
    }
}

std::shared_ptr<UnauthorisedKeyword> RandomRulebase::Keyword() {
    auto rule = std::make_shared<UnauthorisedKeyword>();
    FillBasics(*rule);
    FillEvents(*rule);
    return rule;
}

std::shared_ptr<CodingConvention> RandomRulebase::Coding() {
    auto rule = std::make_shared<CodingConvention>();
    FillBasics(*rule);
    FillEvents(*rule);
    rule->SetPendingViolation(Flag());
    rule->SetEndEventID(Long());
    return rule;
}

void RandomRulebase::FillNameItems(ObjectArrayList<PrefixSuffixItem>& items) {
    const std::int32_t used = Number(NameAffix::kItemCount + 1);
    for (std::int32_t slot = 1; slot <= used; ++slot) {
        const std::int32_t type = Flag() ? 1 + Number(6) : Long();
        items.Item(slot)->PSType = type == 0 ? 1 : type;
        items.Item(slot)->Value = Text();
    }
}

std::shared_ptr<NamingConvention> RandomRulebase::Naming() {
    auto rule = std::make_shared<NamingConvention>();
    FillBasics(*rule);
    rule->SetCaseSensitive(Flag());
    rule->SetObjectType(Long());
    rule->SetPropertyType(Long());
    rule->SetPropertyName(Text());
    rule->SetExclusionList(Text());
    rule->Prefix().SetActive(Flag());
    rule->Prefix().SetAdvice(Text());
    rule->SetBodyActive(Flag());
    rule->SetBodyPattern(Text());
    rule->SetMaxBodyLength(Integer());
    rule->SetMinBodyLength(Integer());
    rule->SetBodyAdvice(Text());
    rule->Suffix().SetActive(Flag());
    rule->Suffix().SetAdvice(Text());
    if (rule->Prefix().Active()) {
        FillNameItems(rule->Prefix().Items());
    }
    if (rule->Suffix().Active()) {
        FillNameItems(rule->Suffix().Items());
    }
    return rule;
}

void RandomRulebase::FillReport(Rulebase& rulebase) {
    const auto& rules = rulebase.RuleLists().AllConventions();
    for (std::int32_t sections = Number(5); sections > 0; --sections) {
        if (Flag()) {
            const auto table = std::make_shared<TableItem>();
            table->SetTableKey(Text());
            table->SetTableText(Text());
            table->SetTableTitle(Text());
            table->SetTableType(Long());
            rulebase.Report().Sections().Add(table);
        } else if (rules.Count() > 0) {
            const CategoryItem& category =
                *rulebase.CategoryList().Item(1 + Number(rulebase.CategoryList().Count()));
            const auto section = std::make_shared<CategoryItem>();
            section->SetID(category.ID());
            section->SetTitle(category.Title());
            section->SetDescription(category.Description());
            for (std::int32_t shown = Number(4); shown >= 0; --shown) {
                section->CategoryRules().Add(rules.Item(1 + Number(rules.Count())));
            }
            rulebase.Report().Sections().Add(section);
        }
    }
}

}  // namespace dorvik::test
