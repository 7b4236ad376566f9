#pragma once

#include "platform/host/ITypeLibraries.h"

#include <cstdint>
#include <string>

namespace dorvik {

/// What is known of one type library, wherever the knowledge comes from: a file or the catalogue.
struct TypeLibraryFacts {
    std::string Guid;  // as a project file writes it: braces, capitals
    std::int32_t MajorVersion = 0;
    std::int32_t MinorVersion = 0;
    std::int32_t Lcid = 0;         // 0 is the neutral language
    std::string Description;       // the text that a project file shows for the library
    TypeLibraryContents Contents;  // name of the library, names and kinds of its types
};

}  // namespace dorvik
