#pragma once

#include "rulebase/file/RulebaseFault.h"
#include "rulebase/model/Rulebase.h"
#include "rulebase/model/TableItem.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

class KyXMLElement;

/// An element that is being read, and how a fault in it is reported.
struct ReadElement {
    std::shared_ptr<KyXMLElement> Source;
    std::string Name;            // as a fault names it: "CategoryItem 3"
    std::int32_t Number = 0;     // among its neighbours, from 1
    std::string Part = {};       // of the element, for the attribute of a fault: "PrefixItem 2"
    std::string_view Loss = {};  // what a load leaves out if an attribute cannot be read
    bool CostsReview = true;

    RulebaseFault Fault(std::string_view attribute, std::string sentence) const;
};

/// What a reader does where a load would end: the policy for faults.
class IReadFaults {
public:
    virtual ~IReadFaults() = default;
    /// False ends the section: the failure continues to the trap of the section.
    virtual bool Continues(RulebaseFault fault) = 0;
};

/// Takes what a `RulebaseReader` reads, in the order of the file. An operation that returns an object
/// hands out the one into which the reader puts the attributes that follow; it stays the sink's.
class IRulebaseSink {
public:
    virtual ~IRulebaseSink() = default;

    /// Receives the properties of the rulebase.
    virtual Rulebase& Properties() = 0;
    virtual void TakeProperties(const ReadElement& element) = 0;
    /// `section` is the name of one of the three tables.
    virtual TagItem&
    Tag(std::string_view section, const std::string& name, const ReadElement& element) = 0;
    /// Raises for one beyond the last default violation.
    virtual ViolationDefinition& DefaultViolation(const ReadElement& element) = 0;
    virtual void SetLastCategoryID(std::int32_t id) = 0;
    virtual void
    Take(const std::shared_ptr<CategoryItem>& category, const ReadElement& element) = 0;
    virtual void EndCategories() = 0;
    /// The level of that number if it is there already; else null, and it is read whole.
    virtual std::shared_ptr<SeverityItem> KnownSeverity(std::int32_t level) = 0;
    virtual void Take(
        std::int32_t level,
        const std::shared_ptr<SeverityItem>& item,
        const ReadElement& element) = 0;
    virtual void
    Take(const std::shared_ptr<AuthorisedComponent>& item, const ReadElement& element) = 0;
    virtual void
    Take(const std::shared_ptr<AuthorisedReference>& item, const ReadElement& element) = 0;
    virtual void SetLastRuleID(std::int32_t id) = 0;
    virtual void Take(const std::shared_ptr<BasicRule>& rule, const ReadElement& element) = 0;
    /// Begins a section of the report; false if it is left out. There is no ID if it cannot be read.
    virtual bool
    BeginSection(std::optional<std::int32_t> categoryID, const ReadElement& element) = 0;
    /// A rule of the section begun last. `part` is the text from which the number was read.
    virtual void TakeRuleOfSection(std::string_view part, std::int32_t number) = 0;
    virtual void Take(const std::shared_ptr<TableItem>& table) = 0;
};

}  // namespace dorvik
