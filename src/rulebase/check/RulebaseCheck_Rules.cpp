#include "base/modTextCase.h"
#include "parser/ParserEventTable.h"
#include "parser/ScopeName.h"
#include "parser/VBParserEvents.h"
#include "rulebase/catalogue/ObjectHelper.h"
#include "rulebase/catalogue/modEventScope.h"
#include "rulebase/catalogue/modNamingEvents.h"
#include "rulebase/catalogue/modReadableProperties.h"
#include "rulebase/check/IScriptChecker.h"
#include "rulebase/check/RulebaseCheck.h"
#include "rulebase/check/modTextTags.h"
#include "rulebase/model/CodingConvention.h"
#include "rulebase/model/NamingConvention.h"
#include "rulebase/model/UnauthorisedKeyword.h"
#include "source/PropertyName.h"

#include <algorithm>

namespace dorvik {

using modReadableProperties::Reading;

namespace {

constexpr std::string_view kMainProcedure = "Sub Main";

bool TestsKeywords(const ParserEventRow& row) {
    return row.Rules.TestsKeywords;
}

bool CanEndScopeAt(std::int32_t event) {
    const ParserEventRow* row = FindParserEvent(event);
    return row != nullptr && CanEndScope(*row);
}

bool Mentions(std::string_view script, std::string_view word) {
    return modTextCase::Find(script, word) != std::string_view::npos;
}

/// The property from which a tag in a prefix or suffix is computed.
struct TagSourceRow {
    PrefixSuffixType Type;
    std::string_view Name;
    std::string_view Property;
};

constexpr TagSourceRow kTagSources[] = {
    {psControlTag, "control tag", propertyname::kProgID},
    {psDataTypeTag, "data type tag", propertyname::kDataType},
    {psScopeTag, "scope tag", propertyname::kScope},
    {psArrayTag, "array tag", propertyname::kIsArray},
};

/// The scope of arguments and local constants follows from their declaration, without a property.
bool HasScopeByItself(ParserEvent event) {
    return event == ParserEvent::DeclareArgument || event == ParserEvent::EventArgument ||
           event == ParserEvent::ProcedureArgument || event == ParserEvent::LocalConst;
}

/// The pattern with "x" for each tag and property, whose values only a review knows.
std::string Composed(const ObjectArrayList<PrefixSuffixItem>& items) {
    std::string pattern;
    for (const auto& item : items) {
        if (item->PSType == static_cast<std::int32_t>(psText)) {
            const bool alternatives = item->Value.find('|') != std::string::npos;
            pattern += alternatives ? "(" + item->Value + ")" : item->Value;
        } else if (item->PSType != static_cast<std::int32_t>(psNone)) {
            pattern += "x";
        }
    }
    return pattern;
}

}  // namespace

void RulebaseCheck::CheckRule(const Rule& rule) {
    if (const auto* keyword = dynamic_cast<const UnauthorisedKeyword*>(rule.Content.get())) {
        CheckKeyword(rule, *keyword);
    } else if (const auto* coding = dynamic_cast<const CodingConvention*>(rule.Content.get())) {
        CheckCoding(rule, *coding);
    } else if (const auto* naming = dynamic_cast<const NamingConvention*>(rule.Content.get())) {
        CheckNaming(rule, *naming);
    }
}

RulebaseCheck::Events RulebaseCheck::LiveEvents(const Rule& rule, const EventRule& events) {
    const bool isKeyword = events.RuleType() == ruleTypeKeyword;
    Events live;
    for (const std::int32_t event : events.ParserEvents()) {
        const ParserEventRow* row = FindParserEvent(event);
        if (row == nullptr) {
            AddFault(
                FaultKind::Unknown,
                rule,
                "ParserEventID",
                "there is no event " + std::to_string(event) + "; events have the numbers 1 to " +
                    std::to_string(kLastParserEvent));
        } else if (isKeyword && !TestsKeywords(*row)) {
            AddFault(
                FaultKind::NeverFires,
                rule,
                "ParserEventID",
                "keywords are tested at events " + modEventScope::NumbersOf(TestsKeywords, "and") +
                    " only, not at " + modEventScope::Describe(event));
        } else {
            live.push_back(event);
        }
    }
    if (events.EventCount() == 0 && !rule.Unreadable.contains("ParserEventID")) {
        AddFault(
            FaultKind::NeverFires,
            rule,
            "ParserEventID",
            "the rule is not assigned to any event, so it is never applied");
    }
    return live;
}

void RulebaseCheck::CheckKeyword(const Rule& rule, const EventRule& keyword) {
    const Events events = LiveEvents(rule, keyword);
    if (!rule.Unreadable.contains("Condition")) {
        if (keyword.Condition().empty()) {
            AddFault(
                FaultKind::Pattern,
                rule,
                "Condition",
                "the pattern is empty, so it matches every statement");
        }
        CheckPattern(
            keyword.Condition(),
            {FaultKind::Pattern, keyword.RuleID(), rule.Element, "Condition", ""});
    }
    CheckViolationTexts(rule, events);
}

void RulebaseCheck::CheckCoding(const Rule& rule, const CodingConvention& coding) {
    Events events = LiveEvents(rule, coding);
    if (coding.PendingViolation()) {
        if (!CanEndScopeAt(coding.EndEventID())) {
            AddFault(
                FaultKind::NeverFires,
                rule,
                "EndEventID",
                "a pending violation must have an end event, which is " +
                    modEventScope::NumbersOf(CanEndScope, "or") +
                    (coding.EndEventID() == -1 ? ""
                                               : "; it is never raised at " +
                                                     modEventScope::Describe(coding.EndEventID())));
        }
        // Its tags are replaced at its end event, unless the script raises violations at once as well.
        if (!Mentions(coding.Condition(), "RaiseViolation")) {
            events.clear();
        }
        if (FindParserEvent(coding.EndEventID()) != nullptr) {
            events.push_back(coding.EndEventID());
        }
    } else if (coding.Condition().empty() && !rule.Unreadable.contains("Condition")) {
        AddFault(
            FaultKind::NeverFires,
            rule,
            "Condition",
            "the rule has no script, so it never raises its violation");
    }
    CheckScript(rule);
    CheckViolationTexts(rule, events);
}

void RulebaseCheck::CompileScripts() {
    m_scriptFaults.clear();
    if (m_scripts == nullptr) {
        return;
    }
    std::vector<RuleScript> scripts;
    std::set<std::int32_t> numbers;
    // Coding conventions are first in the module, wherever they are in the file.
    for (const bool isCoding : {true, false}) {
        for (const Rule& rule : m_contents.Rules) {
            const BasicRule& content = *rule.Content;
            const bool isTurn =
                isCoding == (dynamic_cast<const CodingConvention*>(&content) != nullptr);
            const bool isScript = isTurn &&
                                  dynamic_cast<const UnauthorisedKeyword*>(&content) == nullptr &&
                                  Mentions(content.Condition(), kMainProcedure);
            if (isScript && numbers.insert(content.RuleID()).second) {
                scripts.push_back({content.RuleID(), rule.Element, content.Condition()});
            }
        }
    }
    const std::vector<std::vector<ScriptFault>> faults = m_scripts->Check(scripts);
    for (std::size_t position = 0; position < faults.size(); ++position) {
        m_scriptFaults[scripts[position].RuleID] = faults[position];
    }
}

void RulebaseCheck::CheckScript(const Rule& rule) {
    const std::string& script = rule.Content->Condition();
    if (script.empty()) {
        return;
    }
    if (!Mentions(script, kMainProcedure)) {
        AddFault(FaultKind::Script, rule, "Condition", "the script has no 'Sub Main'");
        m_faults.back().CostsReview = rule.IsOn();
        return;
    }
    for (const ScriptFault& fault : m_scriptFaults[rule.Content->RuleID()]) {
        const std::string column =
            fault.Column > 0 ? ", column " + std::to_string(fault.Column) : "";
        AddFault(
            FaultKind::Script,
            rule,
            "Condition",
            "line " + std::to_string(fault.Line) + column + ": " + fault.Sentence);
        m_faults.back().CostsReview = rule.IsOn() && fault.IsError;
    }
}

void RulebaseCheck::CheckNaming(const Rule& rule, const NamingConvention& naming) {
    CheckScript(rule);
    const std::vector<NamingEventRow> rows = modNamingEvents::Of(naming.ObjectType());
    Events events;
    for (const NamingEventRow& row : rows) {
        events.push_back(static_cast<std::int32_t>(row.Event));
    }
    if (naming.ObjectType() < kFirstObjectType || naming.ObjectType() > kLastObjectType) {
        if (!rule.Unreadable.contains("ObjectType")) {
            AddFault(
                FaultKind::Unknown,
                rule,
                "ObjectType",
                "there is no object type " + std::to_string(naming.ObjectType()) +
                    "; object types have the numbers " + std::to_string(kFirstObjectType) + " to " +
                    std::to_string(kLastObjectType));
        }
    } else if (rows.empty()) {
        AddFault(
            FaultKind::NeverFires,
            rule,
            "ObjectType",
            "naming conventions are never applied to '" +
                std::string(ObjectHelper::ObjectName(naming.ObjectType())) + "'");
    } else if (!rule.Unreadable.contains("PropertyName")) {
        CheckProperty(
            rows.front().ObjectName,
            naming.PropertyName(),
            events,
            "'" + naming.PropertyName() + "'",
            {FaultKind::Tag, naming.RuleID(), rule.Element, "PropertyName", ""});
    }
    CheckNamePattern(rule, naming);
    CheckNameItems(rule, naming, true);
    CheckNameItems(rule, naming, false);
    CheckViolationTexts(rule, events);
    for (const auto& [active, text, place] :
         {std::tuple(naming.Prefix().Active(), &naming.Prefix().Advice(), "PrefixAdvice"),
          std::tuple(naming.BodyActive(), &naming.BodyAdvice(), "BodyAdvice"),
          std::tuple(naming.Suffix().Active(), &naming.Suffix().Advice(), "SuffixAdvice")}) {
        if (active) {
            CheckText(*text, events, rule.Element, naming.RuleID(), place);
        }
    }
}

void RulebaseCheck::CheckNamePattern(const Rule& rule, const NamingConvention& naming) {
    if (!naming.Prefix().Active() && !naming.BodyActive() && !naming.Suffix().Active()) {
        AddFault(
            FaultKind::NeverFires,
            rule,
            "",
            "prefix, body and suffix are all disabled, so the rule tests nothing");
    }
    if (!naming.BodyActive()) {
        return;
    }
    CheckPattern(
        naming.BodyPattern(),
        {FaultKind::Pattern, naming.RuleID(), rule.Element, "BodyPattern", ""});
    if (naming.MaxBodyLength() >= 1 && naming.MinBodyLength() > naming.MaxBodyLength()) {
        AddFault(
            FaultKind::Pattern,
            rule,
            "BodyMinLength",
            "it is greater than BodyMaxLength: no body has at least " +
                std::to_string(naming.MinBodyLength()) + " characters and at most " +
                std::to_string(naming.MaxBodyLength()));
    }
}

void RulebaseCheck::CheckNameItems(const Rule& rule, const NamingConvention& naming, bool prefix) {
    const NameAffix& affix = prefix ? naming.Prefix() : naming.Suffix();
    if (!affix.Active()) {
        return;
    }
    const auto& items = affix.Items();
    const std::string element = prefix ? "PrefixItem" : "SuffixItem";
    for (std::int32_t slot = 1; slot <= items.Count(); ++slot) {
        CheckNameItem(rule, naming, *items.Item(slot), element + " " + std::to_string(slot));
    }
    CheckPattern(
        prefix ? "^" + Composed(items) : Composed(items) + "$",
        {FaultKind::Pattern, naming.RuleID(), rule.Element, element + "s", ""});
}

void RulebaseCheck::CheckNameItem(
    const Rule& rule,
    const NamingConvention& naming,
    const PrefixSuffixItem& item,
    const std::string& place) {
    const std::vector<NamingEventRow> rows = modNamingEvents::Of(naming.ObjectType());
    if (item.PSType < static_cast<std::int32_t>(psNone) ||
        item.PSType > static_cast<std::int32_t>(psArrayTag)) {
        AddFault(
            FaultKind::Tag,
            rule,
            place,
            "there is no item type " + std::to_string(item.PSType) + ", so the item adds nothing");
        return;
    }
    const auto type = static_cast<PrefixSuffixType>(item.PSType);
    if (type == psProperty) {
        Events events;
        for (const NamingEventRow& row : rows) {
            events.push_back(static_cast<std::int32_t>(row.Event));
        }
        const TextTag parts = modTextTags::Split(item.Value);
        CheckProperty(
            parts.Object,
            parts.Property,
            events,
            "'" + item.Value + "'",
            {FaultKind::Tag, naming.RuleID(), rule.Element, place, ""});
        return;
    }
    for (const TagSourceRow& source : kTagSources) {
        if (source.Type != type || rows.empty()) {
            continue;
        }
        const bool scopeByItself =
            type == psScopeTag &&
            std::all_of(rows.begin(), rows.end(), [](const NamingEventRow& row) {
                return HasScopeByItself(row.Event);
            });
        if (!scopeByItself && modReadableProperties::FindReading(
                                  rows.front().ObjectName, source.Property) != Reading::Possible) {
            AddFault(
                FaultKind::Tag,
                rule,
                place,
                "'" + std::string(rows.front().ObjectName) + "' has no '" +
                    std::string(source.Property) + "', so there is no " + std::string(source.Name) +
                    " for it");
        }
    }
}

}  // namespace dorvik
