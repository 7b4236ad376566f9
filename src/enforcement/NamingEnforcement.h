#pragma once

#include "enforcement/EventLocation.h"
#include "enforcement/NamingResult.h"
#include "enforcement/ReviewContext.h"
#include "rulebase/catalogue/ObjectType.h"
#include "rulebase/model/NameAffix.h"

#include <string>
#include <string_view>

namespace dorvik {

class NamingConvention;
class NamingConventionHelper;
class ViolationDefinition;

/// Applies naming conventions: determines from the event which types of object to test, and tests a property of the
/// object, usually its name, against prefix, suffix and body of each rule for that type. A rule raises at most one
/// violation for an object. A failure is logged under "C_VB6ProjectReview" and skips one rule.
class NamingEnforcement {
public:
    /// REQUIRES: the helper outlives this object.
    NamingEnforcement(const ReviewContext& review, NamingConventionHelper& helper)
        : m_review(review), m_helper(helper) {}

    /// Applies the rules for all types of object that are tested at the event.
    void EnforceNamingConventions(const EventLocation& location);

private:
    /// Applies the rules for one type of object to the object in scope of that name. With `endEvent`
    /// a violation is reported at the object's start.
    void ApplyObjectNamingConventions(
        const EventLocation& location, std::string_view objectName, ObjectType type, bool endEvent);

    void ApplyNamingConvention(
        const EventLocation& location,
        std::string_view objectName,
        NamingConvention& rule,
        bool endEvent);
    /// The violation of the first test that the name does not pass; null if it passes all.
    const ViolationDefinition* FailedTest(
        const EventLocation& location,
        std::string_view objectName,
        std::string_view name,
        NamingConvention& rule);
    /// A prefix or a suffix to test, with the text before and after its pattern, its anchor, and what it has matched.
    struct Affix {
        const NameAffix& Required;
        std::string_view Before;
        std::string_view After;
        std::string Match = {};
    };

    /// `NoMatch`, `UnknownControl`, or `Success`, also if it cannot be tested.
    NamingResult TestAffix(
        const EventLocation& location,
        std::string_view objectName,
        std::string_view name,
        const NamingConvention& rule,
        Affix& affix);
    /// Tests a text against a pattern of the rule. `match` may be null.
    NamingResult Test(
        const NamingConvention& rule,
        std::string_view text,
        std::string_view pattern,
        std::string* match);
    bool BodyPasses(std::string_view body, const NamingConvention& rule);
    bool
    PropertyIs(std::string_view objectName, std::string_view propertyName, std::string_view text);
    bool IsPublic(std::string_view objectName);

    bool HasRulesFor(ObjectType type) const;
    // Whether the object in scope is of that type, one of those that are tested at the event.
    bool IsOfType(ParserEvent event, ObjectType type);
    bool IsVariableOfType(ObjectType type);
    bool IsLocalVariableOfType(ObjectType type);
    bool IsProcedureOfType(ObjectType type);
    bool IsFileOfType(ObjectType type);
    bool IsFormOfType(ObjectType type);

    const ReviewContext m_review;
    NamingConventionHelper& m_helper;
};

}  // namespace dorvik
