#pragma once

#include "results/ResultsDB.h"
#include "workstation/controls/IGridRecords.h"

namespace dorvik {

/// The violations of a results database, for a grid. A record source is an SQL text on the table `Violations`.
class ViolationRecords final : public IGridRecords {
public:
    /// REQUIRES: `results` outlives this.
    explicit ViolationRecords(ResultsDB& results) : m_results(results) {}

    void VisitKeys(
        std::string_view recordSource, const std::function<void(std::int32_t key)>& visit) override;
    void VisitField(
        std::string_view recordSource, std::string_view field, const FieldVisitor& visit) override;
    std::vector<Variant>
    ReadRecord(std::int32_t key, const std::vector<std::string_view>& fields) override;
    bool WriteCheck(std::int32_t key, bool checked) override;

private:
    Recordset Open(std::string_view sql);

    ResultsDB& m_results;
};

}  // namespace dorvik
