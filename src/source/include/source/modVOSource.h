#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

class VirtualObject;

/// Turns the text of a declaration into virtual objects. The text is split at blanks and traversed with
/// a small mode counter, so blanks around "=" and "As" must be as the development environment
/// writes them. A name keeps its type suffix, which is its data type as well.
///
/// Each function logs an unexpected error and gives false; what it had extracted by then stays.
namespace modVOSource {

using VirtualObjects = std::vector<std::shared_ptr<VirtualObject>>;

/// What the layout says about a control besides its properties.
struct LayoutControl {
    std::string Name;
    std::string ControlType;  ///< as written: "VB.Label", or a braced GUID
    std::string Container;    ///< name of the object around it; empty for the outermost
    std::string Index;        ///< its place in a control array, else empty
};

/// Fills the bag of `component` from an `Object = ` line, by fixed columns.
bool ComponentFromObjectDefinition(std::string_view line, VirtualObject& component);

/// `parent` is "Procedure", "Event" or "Declare". The objects are appended to `arguments`.
bool ExtractArgsFromArgumentList(
    std::string_view list, std::string_view parent, VirtualObjects& arguments);

/// `parent` is "File" or "Procedure". The objects are appended to `objects`.
bool ExtractConstantsFromDeclaration(
    std::string_view declaration, std::string_view parent, VirtualObjects& objects);
bool ExtractVariablesFromDeclaration(
    std::string_view declaration, std::string_view parent, VirtualObjects& objects);

bool ExtractTypeElementFromDeclaration(std::string_view text, VirtualObject& element);

/// The object of that ordinal (a count of `Begin ` lines from 1) in the lines of a layout, outermost
/// `Begin` first: its properties go to the bag of `object`. It starts at the first line each time;
/// to read object after object, take a `LayoutReader`.
bool ExtractControlFromLayout(
    std::span<const std::string> lines,
    VirtualObject& object,
    std::int32_t ordinal,
    LayoutControl& control);

/// Adds "FullFilename", "Path", "Filename" and "Extension" (with its dot) to the object's bag.
/// Not trapped: raises `kyErrKeyInUse` where one of them is there.
void AddFilenameRelatedProperties(VirtualObject& object, std::string_view filename);

}  // namespace modVOSource
}  // namespace dorvik
