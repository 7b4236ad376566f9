#include "enforcement/VirtualTypeLibrary.h"

#include "base/BasicError.h"
#include "base/modText.h"
#include "foundation/log/Trap.h"

#include <vector>

namespace dorvik {

namespace {

constexpr std::string_view kModule = "C_VirtualTypeLibrary";

// TYPEKIND of OLE Automation.
constexpr std::int32_t kEnumeration = 0;
constexpr std::int32_t kRecord = 1;
constexpr std::int32_t kInterface = 3;
constexpr std::int32_t kDispatch = 4;
constexpr std::int32_t kCoClass = 5;

}  // namespace

bool VirtualTypeLibrary::LoadVirtualReferenceTypeLib(const VirtualReference& reference) {
    return Trapped({kModule, "LoadVirtualReferenceTypeLib"}, false, [&] {
        m_type = Source::Reference;
        return !reference.DesignTime &&
               LoadVersion(reference.GUID, reference.Version, reference.LCID);
    });
}

bool VirtualTypeLibrary::LoadVirtualComponentTypeLib(const VirtualComponent& component) {
    return Trapped({kModule, "LoadVirtualComponentTypeLib"}, false, [&] {
        m_type = Source::Component;
        return !component.DesignTime &&
               LoadVersion(component.GUID, component.Version, component.LCID);
    });
}

bool VirtualTypeLibrary::LoadVersion(
    std::string_view guid, std::string_view version, std::int32_t lcid) {
    const std::vector<std::string_view> parts = modText::Split(version, '.');
    if (parts.size() < 2) {
        RaiseRuntimeError(runtimeerror::kSubscriptOutOfRange);
    }
    return LoadTypeLibrary(
        guid, modText::LeadingLong(parts[0]), modText::LeadingLong(parts[1]), lcid);
}

bool VirtualTypeLibrary::LoadTypeLibrary(
    std::string_view guid, std::int32_t major, std::int32_t minor, std::int32_t lcid) {
    if (m_libraries == nullptr) {
        return false;
    }
    const auto contents = m_libraries->Open(guid, major, minor, lcid);
    if (!contents) {
        return false;
    }
    m_name = contents->Name;
    for (const TypeLibraryContents::TypeEntry& type : contents->Types) {
        AddTypeKind(type.Name, type.Kind);
    }
    return true;
}

void VirtualTypeLibrary::AddTypeKind(std::string_view name, std::int32_t typeKind) {
    if (typeKind == kEnumeration) {
        m_enumerations.Add(std::string(name));
    } else if (typeKind == kRecord) {
        m_userDefinedTypes.Add(std::string(name));
    } else if (typeKind == kInterface || typeKind == kDispatch || typeKind == kCoClass) {
        m_classes.Add(std::string(name));
    }
}

}  // namespace dorvik
