#pragma once

namespace dorvik {

class ReviewLog;
class RuleEngine;
class Rulebase;
class VB6ParserState;
class ViolationLog;

/// What the rules of one project review work with. A set of references, to be copied freely.
/// REQUIRES: all of them outlive it.
struct ReviewContext {
    dorvik::Rulebase& Rulebase;
    dorvik::RuleEngine& RuleEngine;
    VB6ParserState& State;  // what the rules ask
    ReviewLog& Log;
    ViolationLog& Violations;
};

}  // namespace dorvik
