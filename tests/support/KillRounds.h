#pragma once

namespace dorvik::test {

/// How often a test kills its process: as often as DORVIK_KILL_ROUNDS in the environment says, which the
/// nightly run sets, else `usual` times. Anything but a number from 1 is an error of the test.
int KillRounds(int usual);

}  // namespace dorvik::test
