#pragma once

#include "parser/VB6ParserState.h"
#include "source/VirtualProject.h"
#include "source/VirtualReference.h"
#include "source/VirtualSourceFile.h"

#include <string>

/// The virtual objects that stand in scope from outside the file parser: project, project file,
/// references and files. Whoever walks a project attaches them through these functions, so that a
/// review and a bare event stream show the same objects.
namespace dorvik::modProjectScope {

/// Attaches "Project" with its member counts and "VBP" with the names of the project file.
void AttachProject(VB6ParserState& state, VirtualProject& project);
void DetachProject(VB6ParserState& state);

/// Attaches "Reference".
void AttachReference(VB6ParserState& state, const VirtualReference& reference, bool isAuthorised);
void DetachReference(VB6ParserState& state);

/// Attaches "File" with its member counts at zero.
void AttachFile(VB6ParserState& state, VirtualSourceFile& file);

/// Detaches whatever a file that ended too early may have left attached. Each that is not is logged.
void DetachOpenObjects(VB6ParserState& state);

/// Detaches of the same objects those that a file left attached although it was read to its end: the rest
/// of a layout that ended too early, or a block without its end. They would stand in the way of the next
/// file. Returns their names, separated by ", "; empty if there were none.
std::string DetachLeftObjects(VB6ParserState& state);

}  // namespace dorvik::modProjectScope
