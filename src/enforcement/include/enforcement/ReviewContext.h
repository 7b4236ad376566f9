#pragma once

namespace dorvik {

class ReviewLog;
class RuleEngine;
class Rulebase;
class VB6ParserState;
class ViolationLog;

/// The objects that the rules of one project review work with. A set of references, which may be copied.
/// REQUIRES: all of them outlive it.
struct ReviewContext {
    dorvik::Rulebase& Rulebase;
    dorvik::RuleEngine& RuleEngine;
    VB6ParserState& State;  // what rules read
    ReviewLog& Log;
    ViolationLog& Violations;
};

}  // namespace dorvik
