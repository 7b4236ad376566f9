#pragma once

#include "workstation/session/SessionRefusal.h"
#include "workstation/session/modSessionWords.h"

#include <string_view>

namespace dorvik {

class SessionPlayer;

/// The commands of a session script.
namespace modSessionCommands {

struct Row {
    std::string_view Name;
    std::string_view Shape;  // of the words after it, see `modSessionWords::Fit`
    SessionRefusal (*Do)(SessionPlayer&, const SessionWords&);
    /// What the shape does not show; null where it shows all.
    bool (*Accepts)(const SessionWords&) = nullptr;
};

/// Null for a word that is no command.
const Row* Find(std::string_view name);
bool Understands(const Row& command, const SessionWords& words);

}  // namespace modSessionCommands

}  // namespace dorvik
