#include "rulebase/model/RuleLists.h"

#include "base/BasicError.h"
#include "base/modKyErrors.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "foundation/log/Trap.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace dorvik {

namespace {

constexpr std::int32_t kAllObjectTypes = -1;

/// The events of a list joined with "|"; an empty text names none.
std::vector<std::int32_t> EventsOf(std::string_view eventList) {
    std::vector<std::int32_t> events;
    if (!eventList.empty()) {
        for (const std::string_view part : modText::Split(eventList, '|')) {
            events.push_back(modText::LeadingLong(part));
        }
    }
    return events;
}

/// Takes the first entry with that ID out of the list; null if there is none. A missing list is a failure.
template <class Rule>
std::shared_ptr<IRule> TakeOut(ObjectArrayList<Rule>* list, std::int32_t ruleID) {
    if (list == nullptr) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    for (std::int32_t index = 1; index <= list->Count(); ++index) {
        if (list->Item(index)->RuleID() == ruleID) {
            const std::shared_ptr<IRule> rule = list->Item(index);
            list->Remove(index);
            return rule;
        }
    }
    return nullptr;
}

/// Appends a rule that was taken out of another list, unless it is there already.
template <class Rule>
void AppendOnce(ObjectArrayList<Rule>& list, const std::shared_ptr<IRule>& rule) {
    if (rule == nullptr) {
        RaiseRuntimeError(runtimeerror::kObjectNotSet);
    }
    const auto typed = std::static_pointer_cast<Rule>(rule);
    if (!list.ContainsValue(typed)) {
        list.Add(typed);
    }
}

/// The place of a rule in a list sorted by title: the first that is not less.
std::vector<std::shared_ptr<IRule>>::iterator
SortedPlace(std::vector<std::shared_ptr<IRule>>& sorted, const IRule& rule) {
    return std::lower_bound(
        sorted.begin(), sorted.end(), rule.Title(), [](const auto& left, const std::string& title) {
            return modTextCase::Compare(left->Title(), title) < 0;
        });
}

}  // namespace

bool RuleLists::Dirty() const {
    for (const auto& rule : m_allConventions) {
        if (rule->Dirty()) {
            return true;
        }
    }
    return m_dirty;
}

void RuleLists::SetDirty(bool dirty) {
    for (const auto& rule : m_allConventions) {
        rule->SetDirty(dirty);
    }
    m_dirty = dirty;
}

void RuleLists::SetLastID(std::int32_t lastID) {
    m_lastID = lastID;
    m_dirty = true;
}

ObjectArrayList<CodingConvention>* RuleLists::ParserEventCCList(std::int32_t event, bool create) {
    return create ? &m_parserEventCC.FindOrCreate(event) : m_parserEventCC.Find(event);
}

ObjectArrayList<UnauthorisedKeyword>*
RuleLists::ParserEventUKList(std::int32_t event, bool create) {
    return create ? &m_parserEventUK.FindOrCreate(event) : m_parserEventUK.Find(event);
}

ObjectArrayList<NamingConvention>* RuleLists::ObjectNCList(std::int32_t objectType, bool create) {
    return create ? &m_objectNC.FindOrCreate(objectType) : m_objectNC.Find(objectType);
}

const ObjectArrayList<CodingConvention>* RuleLists::ParserEventCCList(std::int32_t event) const {
    return m_parserEventCC.Find(event);
}

const ObjectArrayList<UnauthorisedKeyword>* RuleLists::ParserEventUKList(std::int32_t event) const {
    return m_parserEventUK.Find(event);
}

const ObjectArrayList<NamingConvention>* RuleLists::ObjectNCList(std::int32_t objectType) const {
    return m_objectNC.Find(objectType);
}

const ObjectArrayList<CodingConvention>* RuleLists::PendingViolations(std::int32_t endEvent) const {
    return m_pending.Find(endEvent);
}

void RuleLists::AddConvention(const std::shared_ptr<IRule>& rule, bool isNew) {
    Trap({"RuleLists", "AddConvention"}, [&] {
        const std::int32_t number = isNew ? m_lastID + 1 : rule->RuleID();
        const bool isInUse = IsInUse(number);
        if (isNew) {
            SetLastID(number);
            rule->SetRuleID(number);
        }
        if (isInUse) {
            modKyErrors::RaiseError(
                modKyErrors::kyErrKeyInUse, "KeyedArrayList::Add", rule->RuleKey());
        }
        AddToAll(rule);
        AddToListsOfItsKind(rule);
        m_dirty = true;
    });
}

bool RuleLists::IsInUse(std::int32_t ruleID) const {
    return m_usedNumbers.contains(ruleID) || m_heldNumbers->Contains(ruleID);
}

void RuleLists::AddToAll(const std::shared_ptr<IRule>& rule) {
    m_allConventions.Add(rule->RuleKey(), rule, false, false);
    m_usedNumbers.insert(rule->RuleID());
    m_heldNumbers->Add(rule->RuleID());
    rule->SetHeldNumbers(m_heldNumbers);
}

void RuleLists::AddToListsOfItsKind(const std::shared_ptr<IRule>& rule) {
    switch (rule->RuleType()) {
        case ruleTypeCoding:
            AddCodingConvention(std::static_pointer_cast<CodingConvention>(rule));
            break;
        case ruleTypeKeyword:
            AddUnauthorisedKeyword(std::static_pointer_cast<UnauthorisedKeyword>(rule));
            break;
        case ruleTypeNaming:
            AddNamingConvention(std::static_pointer_cast<NamingConvention>(rule));
            break;
        case ruleTypeComponent:
        case ruleTypeReference:
        case ruleTypeDocumentation: break;  // no rule object is of these kinds
    }
}

void RuleLists::AddCodingConvention(const std::shared_ptr<CodingConvention>& rule) {
    m_codingConventions.Add(rule->RuleKey(), rule, false, false);
    for (const std::int32_t event : rule->ParserEvents()) {
        m_parserEventCC.FindOrCreate(event).Add(rule);
    }
    if (rule->PendingViolation()) {
        AddRuleToPendingList(rule, rule->EndEventID());
    }
}

void RuleLists::AddUnauthorisedKeyword(const std::shared_ptr<UnauthorisedKeyword>& rule) {
    m_unauthorisedKeywords.Add(rule->RuleKey(), rule, false, false);
    for (const std::int32_t event : rule->ParserEvents()) {
        m_parserEventUK.FindOrCreate(event).Add(rule);
    }
}

void RuleLists::AddNamingConvention(const std::shared_ptr<NamingConvention>& rule) {
    m_namingConventions.Add(rule->RuleKey(), rule, false, false);
    m_objectNC.FindOrCreate(rule->ObjectType()).Add(rule);
}

void RuleLists::RemoveRule(std::string_view ruleKey) {
    Trap({"RuleLists", "RemoveRule"}, [&] {
        const std::shared_ptr<IRule> rule = m_allConventions.Item(ruleKey);
        RemoveFromListsOfItsKind(*rule, ruleKey);
        RemoveFromAll(ruleKey);
        m_dirty = true;
    });
}

void RuleLists::RemoveFromListsOfItsKind(const IRule& rule, std::string_view ruleKey) {
    switch (rule.RuleType()) {
        case ruleTypeCoding:
            m_codingConventions.Remove(ruleKey);
            for (const std::int32_t event : static_cast<const EventRule&>(rule).ParserEvents()) {
                RemoveRuleFromPECCList(modText::LeadingLong(ruleKey), event);
            }
            break;
        case ruleTypeKeyword:
            m_unauthorisedKeywords.Remove(ruleKey);
            for (const std::int32_t event : static_cast<const EventRule&>(rule).ParserEvents()) {
                RemoveRuleFromPEUKList(modText::LeadingLong(ruleKey), event);
            }
            break;
        case ruleTypeNaming:
            m_namingConventions.Remove(ruleKey);
            RemoveRuleFromObjectNCList(
                rule.RuleID(), static_cast<const NamingConvention&>(rule).ObjectType());
            break;
        case ruleTypeComponent:
        case ruleTypeReference:
        case ruleTypeDocumentation: break;  // no rule object is of these kinds
    }
}

void RuleLists::RemoveFromAll(std::string_view ruleKey) {
    const std::shared_ptr<IRule> rule = m_allConventions.Item(ruleKey);
    m_allConventions.Remove(ruleKey);
    m_usedNumbers.erase(modText::LeadingLong(ruleKey));
    m_heldNumbers->Remove(rule->RuleID());
    rule->SetHeldNumbers(nullptr);
}

void RuleLists::MoveCodingConvention(
    std::int32_t ruleID, std::int32_t sourceEvent, std::int32_t destinationEvent) {
    Trap({"RuleLists", "MoveCodingConvention"}, [&] {
        const std::shared_ptr<IRule> rule = RemoveRuleFromPECCList(ruleID, sourceEvent);
        AppendOnce(m_parserEventCC.FindOrCreate(destinationEvent), rule);
        m_dirty = true;
    });
}

void RuleLists::MoveNamingConvention(
    std::int32_t ruleID, std::int32_t sourceObject, std::int32_t destinationObject) {
    Trap({"RuleLists", "MoveNamingConvention"}, [&] {
        const std::shared_ptr<IRule> rule = RemoveRuleFromObjectNCList(ruleID, sourceObject);
        AppendOnce(m_objectNC.FindOrCreate(destinationObject), rule);
        m_dirty = true;
    });
}

std::shared_ptr<IRule> RuleLists::RemoveRuleFromPECCList(std::int32_t ruleID, std::int32_t event) {
    return Trapped({"RuleLists", "RemoveRuleFromPECCList"}, nullptr, [&] {
        return TakeOut(m_parserEventCC.Find(event), ruleID);
    });
}

std::shared_ptr<IRule> RuleLists::RemoveRuleFromPEUKList(std::int32_t ruleID, std::int32_t event) {
    return Trapped({"RuleLists", "RemoveRuleFromPEUKList"}, nullptr, [&] {
        return TakeOut(m_parserEventUK.Find(event), ruleID);
    });
}

std::shared_ptr<IRule>
RuleLists::RemoveRuleFromObjectNCList(std::int32_t ruleID, std::int32_t objectType) {
    return Trapped({"RuleLists", "RemoveRuleFromObjectNCList"}, nullptr, [&] {
        return TakeOut(m_objectNC.Find(objectType), ruleID);
    });
}

void RuleLists::AddRuleToPendingList(
    const std::shared_ptr<CodingConvention>& rule, std::int32_t endEvent) {
    Trap(
        {"RuleLists", "AddRuleToPendingList"}, [&] { m_pending.FindOrCreate(endEvent).Add(rule); });
}

void RuleLists::RemoveRuleFromPendingList(
    const std::shared_ptr<CodingConvention>& rule, std::int32_t endEvent) {
    Trap({"RuleLists", "RemoveRuleFromPendingList"}, [&] {
        if (ObjectArrayList<CodingConvention>* list = m_pending.Find(endEvent)) {
            list->RemoveByValue(rule);
        }
    });
}

void RuleLists::RemoveRuleFromAllPECCLists(std::int32_t ruleID, std::string_view eventList) {
    Trap({"RuleLists", "RemoveRuleFromAllPECCLists"}, [&] {
        m_codingConventions.Remove(RuleKeyOf(ruleID));
        for (const std::int32_t event : EventsOf(eventList)) {
            RemoveRuleFromPECCList(ruleID, event);
        }
        RemoveFromAll(RuleKeyOf(ruleID));
    });
}

void RuleLists::RemoveRuleFromAllPEUKLists(std::int32_t ruleID, std::string_view eventList) {
    Trap({"RuleLists", "RemoveRuleFromAllPEUKLists"}, [&] {
        m_unauthorisedKeywords.Remove(RuleKeyOf(ruleID));
        for (const std::int32_t event : EventsOf(eventList)) {
            RemoveRuleFromPEUKList(ruleID, event);
        }
        RemoveFromAll(RuleKeyOf(ruleID));
    });
}

std::int16_t RuleLists::GetNCObjectRuleCount(std::int32_t objectType) const {
    return Trapped({"RuleLists", "GetNCObjectRuleCount"}, 0, [&] {
        const ObjectArrayList<NamingConvention>* list = m_objectNC.Find(objectType);
        const std::int32_t inList = list == nullptr ? 0 : list->Count();
        const std::int32_t count =
            objectType == kAllObjectTypes ? m_namingConventions.Count() : inList;
        if (count > std::numeric_limits<std::int16_t>::max()) {
            RaiseRuntimeError(runtimeerror::kOverflow);
        }
        return static_cast<std::int16_t>(count);
    });
}

ObjectArrayList<IRule> RuleLists::ConventionsListByCatID(std::int32_t categoryID) const {
    ObjectArrayList<IRule> result;
    Trap({"RuleLists", "ConventionsListByCatID"}, [&] {
        std::vector<std::shared_ptr<IRule>> sorted;
        for (const auto& rule : m_allConventions) {
            if (rule->ViolationDefinition().CategoryID() == categoryID) {
                sorted.insert(SortedPlace(sorted, *rule), rule);
            }
        }
        for (const std::shared_ptr<IRule>& rule : sorted) {
            result.Add(rule);
        }
    });
    return result;
}

}  // namespace dorvik
