#pragma once

struct sqlite3;

namespace dorvik::modJetFunctions {

/// Gives the engine what the Jet spelling needs and it does not have: `JetAnd(a, b)` and `JetOr(a, b)`,
/// the logical operators on numbers bit by bit, and texts that compare without regard to case.
void Register(sqlite3* engine);

}  // namespace dorvik::modJetFunctions
