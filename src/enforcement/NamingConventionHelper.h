#pragma once

#include "enforcement/VirtualNameTable.h"
#include "enforcement/VirtualTypeLibrary.h"
#include "foundation/ObjectKeyedArrayList.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace dorvik {

class VirtualSourceFile;

/// Knows what the type names of a project stand for: its own, collected from all source files before
/// the review begins, and those of the type libraries of its references and components.
class NamingConventionHelper {
public:
    /// What `ExtractGlobalNames` gives for a file that cannot be opened.
    static constexpr std::int32_t kNotConnected = 10;

    /// Takes in the file's own name and the enumerations and types of its declarations section.
    /// 0 for success.
    std::int32_t ExtractGlobalNames(VirtualSourceFile& file);

    /// Takes in a loaded library. Raises the list's error for a key that is in use.
    void AddTypeLibrary(std::string_view key, std::shared_ptr<VirtualTypeLibrary> library);

    const VirtualNameTable& NameTable() const { return m_nameTable; }

private:
    VirtualNameTable m_nameTable;
    ObjectKeyedArrayList<VirtualTypeLibrary> m_typeLibraries;
};

}  // namespace dorvik
