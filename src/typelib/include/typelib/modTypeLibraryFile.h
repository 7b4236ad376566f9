#pragma once

#include "typelib/TypeLibraryFacts.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// A library of a file, with the number that a project file writes after the file's name
/// (`MSVBVM60.DLL\3`): that of the resource. The library of a loose file has number 1.
struct NumberedTypeLibrary {
    std::int32_t Number = 1;
    TypeLibraryFacts Facts;
};

/// What reading a file gave: the libraries that are intact, in the order of their numbers, and a
/// sentence for each thing that is wrong, which names the file and the place.
struct TypeLibraryFile {
    std::vector<NumberedTypeLibrary> Libraries;
    std::vector<std::string> Faults;
    /// The file is of another kind, or a program without type libraries. `Faults` says so, for
    /// a caller that named this file; a search of a folder skips it.
    bool IsOther = false;
};

/// Where a project file says that a library is: a file, and the number of the resource in it.
struct TypeLibraryPlace {
    std::string Path;
    std::int32_t Number = 1;
};

/// Type libraries in files: loose ones (*.tlb, *.olb, of either format) and resources of 32-bit and
/// 64-bit programs (*.dll, *.ocx, *.exe). The content decides, the extension means nothing. No file,
/// however damaged, does more harm than a sentence in `Faults`; one that cannot be opened too.
/// Paths are the program's own, with backslashes.
namespace modTypeLibraryFile {

/// Above this size a file is not read but reported in `Faults`.
inline constexpr std::int64_t kLargestFile = std::int64_t{256} * 1024 * 1024;

/// Every library in the file. A number that is there in several languages comes several times.
TypeLibraryFile ReadAll(std::string_view path);

/// The library with this number: one library, or at least one fault.
TypeLibraryFile Read(std::string_view path, std::int32_t number);

/// `C:\WINDOWS\MSVBVM60.DLL\3` is number 3 of the file; a path without such a number means number 1.
TypeLibraryPlace PlaceOf(std::string_view path);

/// Every library in these bytes; `name` is what the faults call the file.
TypeLibraryFile ReadBytes(std::string_view bytes, std::string_view name);

}  // namespace modTypeLibraryFile

}  // namespace dorvik
