#pragma once

#include "typelib/modTypeLibraryFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// The GUID of libraries/kinds.tlb.
inline constexpr std::string_view kKinds = "{6F5B1C10-8A4E-4D3A-9B61-0C2F5E7A1D01}";

/// The bytes of libraries/<name>.tlb.
std::string LibraryBytes(std::string_view name);

/// The only library in these bytes. A test fails if there is none, more than one, or a fault.
TypeLibraryFacts OnlyLibrary(std::string_view bytes);

/// The one fault of bytes in which nothing is intact. A test fails if there is more.
std::string OnlyFault(std::string_view bytes);

/// "Shape 5", one text for each type, in the order of the library.
std::vector<std::string> TypesOf(const TypeLibraryFacts& facts);

/// The bytes with every `from` replaced by `to`, which is as long. A test fails if there is none.
std::string WithText(std::string bytes, std::string_view from, std::string_view to);

/// Reads damaged bytes: they give libraries or sentences, nothing else. Each sentence names the
/// file. A test fails otherwise.
TypeLibraryFile ReadDamaged(std::string_view bytes, const std::string& what);

}  // namespace dorvik::test
