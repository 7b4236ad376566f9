#pragma once

#include "workstation/session/SessionRefusal.h"
#include "workstation/session/modSessionWords.h"

#include <string>
#include <string_view>

namespace dorvik {

class Session;

/// What a session shows of its bench: an object of JSON for each part of it.
namespace modSessionDumps {

/// Whether `words`, what is to be shown and for some a name, are those of a dump.
bool Understands(const SessionWords& words);
/// The dump as one line of JSON. REQUIRES: `Understands`.
SessionRefusal Write(Session& session, const SessionWords& words, std::string& json);
/// The next dump of message boxes and of calls has those that come from now on.
void Forget(Session& session, std::string_view what);

}  // namespace modSessionDumps

}  // namespace dorvik
