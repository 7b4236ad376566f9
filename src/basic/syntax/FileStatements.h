#pragma once

#include "Keywords.h"

#include <span>

namespace dorvik::basic {

/// A statement on files, which a script must not act on. It is recognised by a `#` after its word (`TakesFile`) or by the
/// word `Mark` in it; with `IsCall` also where it looks like a call.
struct FileStatementRow {
    Keyword Word;
    bool TakesFile;
    bool IsCall;
    Keyword Mark;  // a word that the statement has and a call cannot have
};
std::span<const FileStatementRow> FileStatements();
/// Whether what looks like a call of that word is such a statement.
bool IsFileStatementCall(Keyword word);

}  // namespace dorvik::basic
