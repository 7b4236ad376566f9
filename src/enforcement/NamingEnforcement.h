#pragma once

#include "enforcement/EventPlace.h"
#include "enforcement/NamingResult.h"
#include "enforcement/ReviewContext.h"
#include "foundation/lists/ObjectArrayList.h"
#include "rulebase/catalogue/ObjectType.h"
#include "rulebase/model/PrefixSuffixItem.h"

#include <string>
#include <string_view>

namespace dorvik {

class NamingConvention;
class NamingConventionHelper;
class ViolationDefinition;

/// Applies naming conventions: works out from the event which kinds of object it stands for, and tests
/// a property of the object, usually its name, against prefix, suffix and body of each rule for
/// that kind. A rule raises one violation at most for an object. Failures are logged under
/// "C_VB6ProjectReview" and cost one rule.
class NamingEnforcement {
public:
    /// REQUIRES: the helper outlives this object.
    NamingEnforcement(const ReviewContext& review, NamingConventionHelper& helper)
        : m_review(review), m_helper(helper) {}

    /// Applies the rules for all kinds of object that the event stands for.
    void EnforceNamingConventions(const EventPlace& place);

    /// Applies the rules for one kind of object to the object in scope of that name. With `endEvent`
    /// a violation is reported at the object's start.
    void ApplyObjectNamingConventions(
        const EventPlace& place, std::string_view objectName, ObjectType type, bool endEvent);

    void ApplyNamingConvention(
        const EventPlace& place,
        std::string_view objectName,
        NamingConvention& rule,
        bool endEvent);

private:
    /// The first test that a name does not pass decides what is raised; null: it passes.
    const ViolationDefinition* FailedTest(
        const EventPlace& place,
        std::string_view objectName,
        std::string_view name,
        NamingConvention& rule);
    /// A prefix or a suffix to test, and the anchor that goes with it.
    struct Affix {
        const ObjectArrayList<PrefixSuffixItem>& Items;
        std::string_view Before;
        std::string_view Behind;
    };

    /// `Success` also for what cannot be tested; otherwise `NoMatch` or `UnknownControl`.
    NamingResult TestAffix(
        const EventPlace& place,
        std::string_view objectName,
        std::string_view name,
        const NamingConvention& rule,
        const Affix& affix,
        std::string& match);
    /// Tests a text against a pattern of the rule; null for `match`: it is not wanted.
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
    // Whether the object in scope is of that type, one of those that the event can stand for.
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
