#pragma once

#include "rulebase/file/RulebaseFault.h"
#include "rulebase/model/BasicRule.h"
#include "rulebase/model/TagItem.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace dorvik {

class KyXMLElement;

/// What a rulebase file says, element by element and with the names of the elements for messages.
/// Unlike a loaded `Rulebase` it keeps what a load would drop: duplicates, and what follows an
/// unreadable attribute.
struct RulebaseContents {
    struct Rule {
        std::shared_ptr<BasicRule> Content;
        std::string Element;
        std::set<std::string> Unreadable;  // attributes whose values are not those of the file
        std::int32_t Line = 0;             // of the file

        /// Only such a rule takes part in a review; one of which that cannot be read counts as one.
        bool IsOn() const { return Content->RuleActive() || Unreadable.contains("RuleActive"); }
    };
    struct Tag {
        TagItem Content;
        std::string Element;
    };
    struct Violation {
        ViolationDefinition Content;
        std::string Element;
    };
    /// Something with an identifier that must be unique within its list.
    struct Identified {
        std::string Identifier;
        std::string Element;
        std::int32_t Line = 0;
    };
    struct Section {
        std::optional<std::int32_t> CategoryID;
        std::vector<std::int32_t> RuleIDs;
        std::string Element;
    };

    std::string ArrayTag;
    std::vector<Tag> ControlTags;
    std::vector<Tag> DataTypeTags;
    std::vector<Tag> ScopeTags;
    std::vector<Violation> DefaultViolations;
    std::vector<Identified> Categories;
    std::optional<std::int32_t> LastCategoryID;
    std::vector<Identified> Severities;
    std::vector<Identified> Components;
    std::vector<Identified> References;
    std::vector<Rule> Rules;
    std::optional<std::int32_t> LastRuleID;
    std::vector<Section> Sections;
};

/// Reads a document the way a load does, but continues after everything that would end a load, and
/// appends each such place to `faults`.
/// REQUIRES: `root` is of the current schema.
RulebaseContents
ReadContents(const std::shared_ptr<KyXMLElement>& root, std::vector<RulebaseFault>& faults);

}  // namespace dorvik
