#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// The kind of thing that a name of the project itself denotes.
enum class NameKind : std::int32_t {
    ClassFile = 1,
    DesignerFile = 2,
    Enumeration = 3,
    FormFile = 4,
    MDIFormFile = 5,
    ModuleFile = 6,
    PropertyPageFile = 7,
    UserDefinedType = 8,
    UserControlFile = 9,
    UserDocumentFile = 10,
};

/// The names that a project declares: its files, enumerations and user-defined types. Names and
/// modules compare without regard to case; of two entries that match the earlier one is used.
class VirtualNameTable {
public:
    /// An enumeration or a type is private with the scope "Private", otherwise public; any other
    /// kind is a source file, for which module and scope are ignored.
    void
    AddName(std::string_view name, NameKind kind, std::string_view module, std::string_view scope);

    /// The kind of `typeName` ("Name" or "Module.Name") in that module; nothing if the project does not declare
    /// it, or only as private in another module.
    std::optional<NameKind> FindName(std::string_view typeName, std::string_view module) const;

private:
    struct Entry {
        std::string Name;
        std::string Module;
        NameKind Kind;
    };
    using Entries = std::vector<Entry>;

    Entries m_sourceFiles;
    Entries m_privateEnumerations;
    Entries m_publicEnumerations;
    Entries m_privateTypes;
    Entries m_publicTypes;
};

}  // namespace dorvik
