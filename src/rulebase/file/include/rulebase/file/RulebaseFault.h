#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// What kind of thing is wrong in a rulebase.
enum class FaultKind {
    Unreadable,  // an element or attribute is missing, or its text is not what belongs there
    Duplicate,   // a number or name that must be unique is not
    Unknown,     // a number that names nothing: a category, severity, event, object or rule
    NeverFires,  // a rule, or one of its events, that can raise nothing
    Pattern,     // a regular expression that does not compile, or fits everything or nothing
    Tag,         // a text or prefix names what does not exist
    Scope,       // a text or prefix names an object where it is not in scope
    Script,      // a script that does not compile
};

/// One thing in a rulebase that would go wrong in a review, with its place.
struct RulebaseFault {
    FaultKind Kind = FaultKind::Unreadable;
    std::int32_t RuleID = 0;  // 0 where it is about no rule, or its number cannot be read
    std::string Element;      // for example "UnauthorisedKeyword 5003 'No GoTo'"
    std::string Attribute;    // as the file has it; empty if it is about the whole element
    std::string Sentence;     // without a closing point
    std::int32_t Line = 0;    // of the file; 0 where it is not known
    /// A review would leave out something that the file has, or take a default for it.
    bool CostsReview = false;

    /// "Element, Attribute: sentence".
    std::string Text() const {
        return Element + (Attribute.empty() ? "" : ", " + Attribute) + ": " + Sentence;
    }
};

/// The kind as one word, for filters and machines.
std::string_view FaultKindName(FaultKind kind);

}  // namespace dorvik
