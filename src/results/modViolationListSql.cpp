#include "results/modViolationListSql.h"

namespace dorvik::modViolationListSql {

namespace {

constexpr std::string_view kAll = "SELECT ItemID & '_' & ItemType As ItemIDType, * FROM Violations";

std::string OfItem(std::int32_t itemType, std::int32_t itemId) {
    return std::string(kAll) + " WHERE ItemID = " + std::to_string(itemId) +
           " AND ItemType = " + std::to_string(itemType);
}

std::string Base(Scope scope, std::int32_t id) {
    constexpr std::int32_t kFileItem = 2;
    constexpr std::int32_t kProcedureItem = 3;
    switch (scope) {
        case Scope::All: return std::string(kAll);
        case Scope::ProjectFile: return OfItem(kFileItem, id);
        case Scope::Procedure: return OfItem(kProcedureItem, id);
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

}  // namespace dorvik::modViolationListSql
