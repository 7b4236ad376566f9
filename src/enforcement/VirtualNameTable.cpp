#include "enforcement/VirtualNameTable.h"

#include "base/modTextCase.h"

#include <algorithm>

namespace dorvik {

namespace {

/// The module that must have declared a name, or any module if `IsAny` is set.
struct Owner {
    std::string_view Module;
    bool IsAny;
};

}  // namespace

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
    const auto ownedBy = [bare](const Owner& owner) {
        return [bare, owner](const Entry& entry) {
            return modTextCase::Equal(entry.Name, bare) &&
                   (owner.IsAny || modTextCase::Equal(entry.Module, owner.Module));
        };
    };
    if (!qualified) {
        const auto file = std::find_if(m_sourceFiles.begin(), m_sourceFiles.end(), named(typeName));
        if (file != m_sourceFiles.end()) {
            return file->Kind;
        }
    }
    const auto has = [&](const Entries& entries, const Owner& owner) {
        return std::any_of(entries.begin(), entries.end(), ownedBy(owner));
    };
    // Required: the qualifier of a private name is ignored.
    if (has(m_privateEnumerations, Owner{module, false})) {
        return NameKind::Enumeration;
    }
    if (has(m_privateTypes, Owner{module, false})) {
        return NameKind::UserDefinedType;
    }
    if (has(m_publicEnumerations, Owner{qualifier, !qualified})) {
        return NameKind::Enumeration;
    }
    if (has(m_publicTypes, Owner{qualifier, !qualified})) {
        return NameKind::UserDefinedType;
    }
    return std::nullopt;
}

}  // namespace dorvik
