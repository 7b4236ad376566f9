#include "results/modViolationListSql.h"

#include "modItemSql.h"

namespace dorvik::modViolationListSql {

namespace {

constexpr std::string_view kAll = "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations";

std::string Base(Scope scope, std::int32_t id) {
    switch (scope) {
        case Scope::All: return std::string(kAll);
        case Scope::ProjectFile: return std::string(kAll) + modItemSql::OfItem(ItemType::File, id);
        case Scope::Procedure:
            return std::string(kAll) + modItemSql::OfItem(ItemType::Procedure, id);
        case Scope::SourceFile: break;
    }
    return "SELECT Violations.ItemID & '_' & Violations.ItemType As ItemIDType, Violations.* FROM "
           "(SourceFiles INNER JOIN Procedures ON SourceFiles.SourceID = Procedures.SourceID) "
           "INNER JOIN Violations ON Procedures.ProcID = Violations.ItemID WHERE "
           "(SourceFiles.SourceID = " +
           std::to_string(id) + " AND Violations.ItemType = 3)";
}

}  // namespace

std::string
ViolationListSql(Scope scope, std::int32_t id, std::string_view filter, bool withoutCompleted) {
    std::string sql = Base(scope, id);
    bool hasWhere = scope != Scope::All;
    const auto add = [&sql, &hasWhere](std::string_view clause) {
        sql.append(hasWhere ? " AND " : " WHERE ").append(clause);
        hasWhere = true;
    };
    if (!filter.empty()) {
        add(filter);
    }
    if (withoutCompleted) {
        add("Completed = False");
    }
    return sql;
}

std::string ViolationSql(std::int32_t violationId) {
    return std::string(kAll) + " WHERE ViolationID = " + std::to_string(violationId);
}

}  // namespace dorvik::modViolationListSql
