#pragma once

#include "CharacterSet.h"

/// Which characters a pattern takes for the same when case is ignored. ECMAScript compares the capital
/// letters, with three exceptions: a letter whose capital is written with several characters
/// stays itself, and so do a letter outside ASCII whose capital is in ASCII (the long s is not a "s") and
/// everything above U+FFFF.
namespace dorvik::modPatternCase {

/// The form in which characters are compared.
char32_t Canonical(char32_t character);

/// The characters that equal one of the set. The set itself is among them.
CharacterSet WithAllCases(const CharacterSet& set);

}  // namespace dorvik::modPatternCase
