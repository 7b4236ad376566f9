#pragma once

#include "foundation/lists/StringArrayList.h"
#include "platform/host/ITypeLibraries.h"
#include "source/VirtualComponent.h"
#include "source/VirtualReference.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// The type names of the library of one reference or component of a project.
class VirtualTypeLibrary {
public:
    enum class Source : std::int32_t { Component = 1, Reference = 2 };

    /// `libraries` may be null: no library can then be loaded. REQUIRES: it outlives this object.
    explicit VirtualTypeLibrary(const ITypeLibraries* libraries) : m_libraries(libraries) {}

    /// Loads the library of a reference or component. False for one of the design environment, which
    /// has no type library, and for a library that cannot be loaded.
    bool LoadVirtualReferenceTypeLib(const VirtualReference& reference);
    bool LoadVirtualComponentTypeLib(const VirtualComponent& component);

    /// The library's own name, such as "VB".
    const std::string& Name() const { return m_name; }
    Source TLType() const { return m_type; }

    bool IsEnumItem(std::string_view name) const {
        return m_enumerations.ContainsValue(std::string(name));
    }
    bool IsClassItem(std::string_view name) const {
        return m_classes.ContainsValue(std::string(name));
    }
    bool IsUDTItem(std::string_view name) const {
        return m_userDefinedTypes.ContainsValue(std::string(name));
    }

    /// Adds a type of the library, unless its kind is not used by naming conventions.
    void AddTypeKind(std::string_view name, std::int32_t typeKind);

private:
    bool LoadVersion(std::string_view guid, std::string_view version, std::int32_t lcid);
    bool LoadTypeLibrary(
        std::string_view guid, std::int32_t major, std::int32_t minor, std::int32_t lcid);

    const ITypeLibraries* m_libraries;
    std::string m_name;
    StringArrayList m_enumerations;
    StringArrayList m_userDefinedTypes;
    StringArrayList m_classes;
    Source m_type = Source::Reference;
};

}  // namespace dorvik
