#include "workstation/host/ProcedureKind.h"

#include "base/modTextCase.h"

namespace dorvik {

namespace {

struct KindRow {
    std::string_view Type;
    ProcedureKind Kind;
};

constexpr KindRow kKinds[] = {
    {"Property Get", ProcedureKind::PropertyGet},
    {"Property Let", ProcedureKind::PropertyLet},
    {"Property Set", ProcedureKind::PropertySet},
};

}  // namespace

ProcedureKind ProcedureKindOf(std::string_view procedureType) {
    for (const KindRow& row : kKinds) {
        if (modTextCase::Equal(row.Type, procedureType)) {
            return row.Kind;
        }
    }
    return ProcedureKind::SubOrFunction;
}

}  // namespace dorvik
