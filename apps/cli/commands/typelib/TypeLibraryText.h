#pragma once

#include "typelib/TypeLibraryFacts.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

class JsonOutput;

/// A type library with where the knowledge comes from.
struct KnownTypeLibrary {
    TypeLibraryFacts Facts;
    std::string File;         // of the library or of the catalogue, for the eyes of a person
    std::int32_t Number = 0;  // within the file, from 1; 0 for one out of the catalogue
    std::string Source;       // of the catalogue's facts
    std::string Note;
    std::string
        Place{};  // "the program's type catalogue, stdole.txt"; empty for a library's own file
};

/// How the commands show type libraries.
namespace modTypeLibraryText {

/// "2.0"
std::string Version(std::int32_t majorVersion, std::int32_t minorVersion);

/// A sentence of the readers, fit to follow "dorvik: ", with `shown` for the program's path of the file.
std::string Sentence(std::string_view fault, std::string_view path, std::string_view shown);

/// What is known of the library, then its types as a table.
void Print(const KnownTypeLibrary& library);
void WriteAsJson(JsonOutput& json, const KnownTypeLibrary& library);

}  // namespace modTypeLibraryText

}  // namespace dorvik
