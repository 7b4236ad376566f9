#pragma once

#include "workstation/session/SessionRefusal.h"
#include "workstation/session/modSessionWords.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace dorvik {

class ISessionHands;
class Session;

/// Plays a script on a session, a command a line, and puts out an object of JSON for each dump, each command that the
/// bench refuses and each expectation that is not met.
class SessionPlayer {
public:
    /// How a script came out.
    struct Outcome {
        bool ExpectationsMet = true;
        std::int32_t WrongLine =
            0;  // the one that could not be understood, at which playing ended; 0 if all could be
        std::string Fault = {};    // what is wrong with it
        bool Interrupted = false;  // ended before its last line
    };
    using Output = std::function<void(const std::string& json)>;

    /// REQUIRES: `session` outlives this. `output` is called with one line at a time.
    SessionPlayer(Session& session, Output output);

    /// Who does the commands of the user; null, as at first, for the models. REQUIRES: it outlives this and the session, or
    /// null is set before it ends.
    void SetHands(ISessionHands* hands);

    Outcome Play(std::string_view script);

    // For the commands.
    Session& Bench() { return m_session; }
    std::int32_t Line() const { return m_line; }
    /// Prints a dump. `words` are what it is of and, for some, a name.
    SessionRefusal Dump(const SessionWords& words);
    /// `words` are those of a dump, then a path into it and the text of the value there.
    void Expect(const SessionWords& words);

private:
    /// Empty where the line was understood.
    std::string PlayLine(std::string_view line);
    void PrintRefusal(std::int32_t line, std::string_view why);

    Session& m_session;
    Output m_output;
    ISessionHands* m_hands = nullptr;
    std::int32_t m_line = 0;
    bool m_expectationsMet = true;
};

}  // namespace dorvik
