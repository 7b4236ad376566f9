#include "ViolationRecords.h"

#include "results/modViolationListSql.h"

#include <string>

namespace dorvik {

namespace {

/// The store then reads none of the other columns.
std::string OnlyFields(std::string_view fields, std::string_view recordSource) {
    return std::string("SELECT ").append(fields).append(" FROM (").append(recordSource).append(")");
}

}  // namespace

Recordset ViolationRecords::Open(std::string_view sql) {
    return m_results.OpenRecordSource(sql, OnFailure::Raise).value();
}

void ViolationRecords::VisitKeys(
    std::string_view recordSource, const std::function<void(std::int32_t key)>& visit) {
    for (auto rows = Open(OnlyFields("ViolationID", recordSource)); !rows.EOF_(); rows.MoveNext()) {
        visit(rows.Value(0).AsLong());
    }
}

void ViolationRecords::VisitField(
    std::string_view recordSource, std::string_view field, const FieldVisitor& visit) {
    const std::string fields = std::string("ViolationID, ").append(field);
    for (auto rows = Open(OnlyFields(fields, recordSource)); !rows.EOF_(); rows.MoveNext()) {
        visit(rows.Value(0).AsLong(), rows.Value(1));
    }
}

std::vector<Variant>
ViolationRecords::ReadRecord(std::int32_t key, const std::vector<std::string_view>& fields) {
    auto rows = Open(modViolationListSql::ViolationSql(key));
    std::vector<Variant> values;
    values.reserve(fields.size());
    for (const std::string_view field : fields) {
        values.push_back(rows.Value(field));
    }
    return values;
}

bool ViolationRecords::WriteCheck(std::int32_t key, bool checked) {
    return m_results.Editor().SetViolationCompleted(key, checked, OnFailure::Raise);
}

}  // namespace dorvik
