#pragma once

#include "parser/VB6ParserState.h"
#include "source/VirtualProject.h"
#include "source/VirtualReference.h"
#include "source/VirtualSourceFile.h"

#include <string>

/// The virtual objects in scope that are not attached by the file parser: project, project file, references and
/// files. A review and a traversal without rules both attach them through these functions, so that both have the
/// same objects.
namespace dorvik::modProjectScope {

/// Attaches "Project" with its member counts and "VBP" with the names of the project file.
void AttachProject(VB6ParserState& state, VirtualProject& project);
void DetachProject(VB6ParserState& state);

/// Attaches "Reference".
void AttachReference(VB6ParserState& state, const VirtualReference& reference, bool isAuthorised);
void DetachReference(VB6ParserState& state);

/// Attaches "File" with its member counts at zero.
void AttachFile(VB6ParserState& state, VirtualSourceFile& file);

/// Detaches all objects that a file which ended too early may have left attached. Those that are not attached are
/// logged.
void DetachOpenObjects(VB6ParserState& state);

/// Detaches those of the same objects that are still attached after a file was read to its end, because its layout
/// ended too early or a block has no end. Otherwise the next file could not attach its own. Returns their names,
/// separated by ", "; empty if there were none.
std::string DetachRemainingObjects(VB6ParserState& state);

}  // namespace dorvik::modProjectScope
