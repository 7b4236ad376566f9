#include "workstation/host/HostProjectType.h"

#include "base/modTextCase.h"

namespace dorvik {

namespace {

struct TypeRow {
    std::string_view Name;
    HostProjectType Type;
};

constexpr TypeRow kTypes[] = {
    {"Exe", HostProjectType::StandardExe},
    {"OleExe", HostProjectType::ActiveXExe},
    {"OleDll", HostProjectType::ActiveXDll},
    {"Control", HostProjectType::ActiveXControl},
};

}  // namespace

std::string_view NameOf(HostProjectType type) {
    for (const TypeRow& row : kTypes) {
        if (row.Type == type) {
            return row.Name;
        }
    }
    return {};
}

HostProjectType HostProjectTypeOf(std::string_view name) {
    for (const TypeRow& row : kTypes) {
        if (modTextCase::Equal(row.Name, name)) {
            return row.Type;
        }
    }
    return HostProjectType::StandardExe;
}

}  // namespace dorvik
