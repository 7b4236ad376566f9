#pragma once

#include "platform/host/IMessageBox.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace dorvik {

/// The two streams of a command line program. Findings and results go to standard output; errors,
/// progress and everything else to standard error.
namespace modConsole {

/// Once, before anything is printed or opened: a stream that the caller has closed takes nothing, and a reader
/// that goes away does not end the program.
void PrepareStreams();

/// Lines for a person, whatever is in them made harmless for a terminal.
void Print(std::string_view text);
/// What another program reads, unchanged.
void PrintData(std::string_view data);
/// Why standard output did not take everything; empty if it did, or if its reader had enough and left. Nothing
/// more is printed after such a failure.
std::string OutputFailure();

/// One sentence on standard error, after the program's name.
void PrintError(std::string_view sentence);
/// One line on standard error, for what programs read: "file:line:column: text".
void PrintErrorLine(std::string_view line);
/// Text on standard error that is harmless already. Takes no memory.
void PrintErrorAsIs(std::string_view text);

bool OutputIsTerminal();
/// Columns of the terminal that standard output is; 80 where there is none.
std::size_t OutputWidth();
/// Whether standard output takes colours: a terminal, unless NO_COLOR is set.
bool OutputIsColoured();
bool ErrorIsTerminal();
/// Columns of the terminal that standard error is; 80 where there is none.
std::size_t ErrorWidth();

/// A path of this machine as a person knows it; not yet harmless for a terminal.
std::string ShownPath(std::string_view path);

}  // namespace modConsole

/// Shows the engine's message boxes as lines on standard error. There is no prompt: a question is answered
/// by `Refusal`.
class ConsoleMessageBox final : public IMessageBox {
public:
    MessageAnswer Show(const MessageText& message) override;
};

/// Keeps the text of the last message box, for a command that puts it into a sentence of its own.
class KeptMessage final : public IMessageBox {
public:
    MessageAnswer Show(const MessageText& message) override {
        m_text = message.Text;
        return Refusal(message.Buttons);
    }
    /// Empty while there was none.
    const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};

}  // namespace dorvik
