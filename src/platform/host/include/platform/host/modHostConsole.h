#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace dorvik {

enum class HostStream { Output, Error };

/// Why a stream did not take everything.
class StreamFailure {
public:
    explicit StreamFailure(int systemNumber) : m_systemNumber(systemNumber) {}

    /// The reader had enough and went away.
    bool IsReaderGone() const;
    /// In the words of the system.
    std::string Words() const;

private:
    int m_systemNumber;
};

/// The streams that the program was started with.
namespace modHostConsole {

/// Once, before anything is written or opened: a stream that the caller has closed takes nothing, and a reader
/// that goes away does not end the program.
void Prepare();

/// Nothing comes back where all of it was written. Takes no memory.
std::optional<StreamFailure> Write(HostStream stream, std::string_view bytes);

bool IsTerminal(HostStream stream);
/// The columns of the terminal; 0 where there is none.
std::size_t Width(HostStream stream);
/// A terminal, unless the user's environment refuses colours by NO_COLOR.
bool TakesColours(HostStream stream);

}  // namespace modHostConsole

}  // namespace dorvik
