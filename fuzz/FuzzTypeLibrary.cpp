#include "typelib/modTypeLibraryFile.h"

#include <cstdint>
#include <cstdlib>

using namespace dorvik;

namespace {

bool IsSound(const NumberedTypeLibrary& library) {
    for (const TypeLibraryContents::TypeEntry& type : library.Facts.Contents.Types) {
        if (type.Name.empty() || type.Kind < 0 || type.Kind > 7) {
            return false;
        }
    }
    return library.Number >= 0;
}

}  // namespace

/// Any bytes are read as a file: they give libraries with names and kinds, or sentences that tell why not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const TypeLibraryFile file = modTypeLibraryFile::ReadBytes(bytes, "Fuzz.tlb");
    if (file.Libraries.empty() && file.Faults.empty()) {
        std::abort();
    }
    for (const NumberedTypeLibrary& library : file.Libraries) {
        if (!IsSound(library)) {
            std::abort();
        }
    }
    for (const std::string& fault : file.Faults) {
        if (!fault.starts_with("\"Fuzz.tlb\"") || !fault.ends_with(".")) {
            std::abort();
        }
    }
    return 0;
}
