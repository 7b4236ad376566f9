#pragma once

/// The requests to end that come from outside: Ctrl-C, a request to terminate, a terminal that goes away, an output
/// whose reader went away.
namespace dorvik::modHostInterrupt {

/// From here on they are only noted, so that the work at hand can end in order. A second request ends the program at
/// once, after `UnfinishedFile::RemoveAll`. A request that the caller of the program wants ignored stays ignored.
void Watch();
/// Whether there was one since `Watch`.
bool Requested();
/// They do again what they did before `Watch`.
void Unwatch();

}  // namespace dorvik::modHostInterrupt
