#pragma once

#include "basic/syntax/ScriptOrigin.h"
#include "foundation/lists/ObjectArrayList.h"
#include "foundation/lists/ObjectKeyedArrayList.h"
#include "rulebase/model/CodingConvention.h"
#include "rulebase/model/HeldRuleNumbers.h"
#include "rulebase/model/NamingConvention.h"
#include "rulebase/model/NumberedLists.h"
#include "rulebase/model/UnauthorisedKeyword.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace dorvik {

/// The index of the rules of one rulebase. Every rule is once in the list of all rules and
/// once in that of its kind, and is shared with per-event and per-object lists, which are built
/// when a rule is added. Rules are in each list in the order in which they were added, and a
/// review applies them in that order.
///
/// Cost. Keyed lists scan their keys, so testing each of n new keys there would take n * n / 2
/// comparisons. The numbers of the keys are therefore kept in a hash set beside the lists, and so are
/// those that the rules have now: a rule may be given another number, and its entry keeps the old key. A
/// number is in use when it is in either set, and the lists are filled without their own test.
/// Adding a rule so takes time that depends on its events only, and a rulebase of 2,000
/// rules loads in time linear in its size. A lookup at event time is one array access.
///
/// Failures inside an operation are logged under module "RuleLists"; the operation returns its
/// default. A rule whose number is in use is logged and stays out of all lists.
class RuleLists {
public:
    static constexpr std::int32_t kFirstLastID = 4999;  // so that the first new rule gets 5000

    RuleLists() = default;
    RuleLists(const RuleLists&) = delete;
    RuleLists& operator=(const RuleLists&) = delete;

    /// The own flag, or that of any rule. A write passes the value to every rule.
    bool Dirty() const;
    void SetDirty(bool dirty);

    /// Last rule ID given out. A write sets the own dirty flag.
    std::int32_t LastID() const { return m_lastID; }
    void SetLastID(std::int32_t lastID);

    const ObjectKeyedArrayList<IRule>& AllConventions() const { return m_allConventions; }
    const ObjectKeyedArrayList<CodingConvention>& CodingConventions() const {
        return m_codingConventions;
    }
    const ObjectKeyedArrayList<UnauthorisedKeyword>& UnauthorisedKeywords() const {
        return m_unauthorisedKeywords;
    }
    const ObjectKeyedArrayList<NamingConvention>& NamingConventions() const {
        return m_namingConventions;
    }

    /// The rules of a parser event or object type; null when there is no list, unless `create`
    /// requests a new empty one. The lists live as long as this object.
    ObjectArrayList<CodingConvention>* ParserEventCCList(std::int32_t event, bool create);
    ObjectArrayList<UnauthorisedKeyword>* ParserEventUKList(std::int32_t event, bool create);
    ObjectArrayList<NamingConvention>* ObjectNCList(std::int32_t objectType, bool create);
    /// The same lookups for a reader, which never create.
    const ObjectArrayList<CodingConvention>* ParserEventCCList(std::int32_t event) const;
    const ObjectArrayList<UnauthorisedKeyword>* ParserEventUKList(std::int32_t event) const;
    const ObjectArrayList<NamingConvention>* ObjectNCList(std::int32_t objectType) const;
    /// The coding conventions whose pending violations fall due at the event; null when none ever did.
    const ObjectArrayList<CodingConvention>* PendingViolations(std::int32_t endEvent) const;

    /// Adds the rule to all lists it belongs to. With `isNew` it first gets the next free ID;
    /// otherwise it keeps its own, and `LastID` stays.
    void AddConvention(const std::shared_ptr<IRule>& rule, bool isNew);
    /// Required: leaves the pending table alone; see `RemoveRuleFromPendingList`.
    void RemoveRule(std::string_view ruleKey);
    /// Moves the rule between the event lists only; the rule's own events are the caller's to change.
    void MoveCodingConvention(
        std::int32_t ruleID, std::int32_t sourceEvent, std::int32_t destinationEvent);
    void MoveNamingConvention(
        std::int32_t ruleID, std::int32_t sourceObject, std::int32_t destinationObject);

    /// Removes the first entry with that ID from the list and returns it; null if there is none.
    /// A number without a list is a failure.
    std::shared_ptr<IRule> RemoveRuleFromPECCList(std::int32_t ruleID, std::int32_t event);
    std::shared_ptr<IRule> RemoveRuleFromPEUKList(std::int32_t ruleID, std::int32_t event);
    std::shared_ptr<IRule> RemoveRuleFromObjectNCList(std::int32_t ruleID, std::int32_t objectType);

    /// Adds without a test for duplicates.
    void AddRuleToPendingList(const std::shared_ptr<CodingConvention>& rule, std::int32_t endEvent);
    void
    RemoveRuleFromPendingList(const std::shared_ptr<CodingConvention>& rule, std::int32_t endEvent);

    /// Removes the rule from the list of its kind, the lists of the events ("|" joined) and the
    /// list of all rules.
    void RemoveRuleFromAllPECCLists(std::int32_t ruleID, std::string_view eventList);
    void RemoveRuleFromAllPEUKLists(std::int32_t ruleID, std::string_view eventList);

    /// Length of the object type's list, 0 without one; -1 counts all naming conventions.
    std::int16_t GetNCObjectRuleCount(std::int32_t objectType) const;
    /// The rules of a category in a new list, sorted by title without case.
    ObjectArrayList<IRule> ConventionsListByCatID(std::int32_t categoryID) const;

    /// Writes the module of all rule scripts, of coding conventions first, then of naming
    /// conventions, each in list order, and gives its file name; empty if that failed. `origins`
    /// receives where each script is in it. The caller removes the file when its work is done
    /// (`ScriptFile::RemoveScriptFile`).
    std::string CreateScriptFile(std::vector<basic::ScriptOrigin>* origins = nullptr) const;

private:
    void AddCodingConvention(const std::shared_ptr<CodingConvention>& rule);
    void AddUnauthorisedKeyword(const std::shared_ptr<UnauthorisedKeyword>& rule);
    void AddNamingConvention(const std::shared_ptr<NamingConvention>& rule);
    void AddToListsOfItsKind(const std::shared_ptr<IRule>& rule);
    void RemoveFromListsOfItsKind(const IRule& rule, std::string_view ruleKey);
    void AddToAll(const std::shared_ptr<IRule>& rule);
    void RemoveFromAll(std::string_view ruleKey);
    bool IsInUse(std::int32_t ruleID) const;

    ObjectKeyedArrayList<IRule> m_allConventions;
    ObjectKeyedArrayList<CodingConvention> m_codingConventions;
    ObjectKeyedArrayList<UnauthorisedKeyword> m_unauthorisedKeywords;
    ObjectKeyedArrayList<NamingConvention> m_namingConventions;
    NumberedLists<CodingConvention> m_parserEventCC;
    NumberedLists<UnauthorisedKeyword> m_parserEventUK;
    NumberedLists<CodingConvention> m_pending;
    NumberedLists<NamingConvention> m_objectNC;
    std::unordered_set<std::int32_t> m_usedNumbers;  // numbers of the keys in m_allConventions
    std::shared_ptr<HeldRuleNumbers> m_heldNumbers = std::make_shared<HeldRuleNumbers>();
    bool m_dirty = false;
    std::int32_t m_lastID = kFirstLastID;
};

}  // namespace dorvik
