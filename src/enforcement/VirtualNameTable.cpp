#include "enforcement/VirtualNameTable.h"

#include "base/modTextCase.h"

#include <algorithm>

namespace dorvik {

void VirtualNameTable::AddName(
    std::string_view name, NameKind kind, std::string_view module, std::string_view scope) {
    const bool isPrivate = modTextCase::Equal(scope, "Private");
    Entries* list = &m_sourceFiles;
    if (kind == NameKind::Enumeration) {
        list = isPrivate ? &m_privateEnumerations : &m_publicEnumerations;
    } else if (kind == NameKind::UserDefinedType) {
        list = isPrivate ? &m_privateTypes : &m_publicTypes;
    }
    list->push_back({std::string(name), std::string(module), kind});
}

std::optional<NameKind>
VirtualNameTable::FindName(std::string_view typeName, std::string_view module) const {
    const std::size_t dot = typeName.find('.');
    const bool qualified = dot != std::string_view::npos && dot > 0;
    const std::string_view qualifier = qualified ? typeName.substr(0, dot) : std::string_view();
    const std::string_view bare =
        dot == std::string_view::npos ? typeName : typeName.substr(dot + 1);
    const auto named = [](std::string_view name) {
        return [name](const Entry& entry) {
            return modTextCase::Equal(entry.Name, name);
        };
    };
    const auto inModule = [bare](std::string_view wanted) {
        return [bare, wanted](const Entry& entry) {
            return modTextCase::Equal(entry.Name, bare) &&
                   (wanted.empty() || modTextCase::Equal(entry.Module, wanted));
        };
    };
    if (!qualified) {
        const auto file = std::find_if(m_sourceFiles.begin(), m_sourceFiles.end(), named(typeName));
        if (file != m_sourceFiles.end()) {
            return file->Kind;
        }
    }
    const auto has = [&](const Entries& entries, std::string_view wanted) {
        return std::any_of(entries.begin(), entries.end(), inModule(wanted));
    };
    // A file without a name has no private names that anybody could ask for.
    if (!module.empty() && has(m_privateEnumerations, module)) {
        return NameKind::Enumeration;
    }
    if (!module.empty() && has(m_privateTypes, module)) {
        return NameKind::UserDefinedType;
    }
    if (has(m_publicEnumerations, qualifier)) {
        return NameKind::Enumeration;
    }
    if (has(m_publicTypes, qualifier)) {
        return NameKind::UserDefinedType;
    }
    return std::nullopt;
}

}  // namespace dorvik
