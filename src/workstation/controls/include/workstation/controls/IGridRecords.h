#pragma once

#include "base/Variant.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace dorvik {

/// The records that a grid is bound to. Each has a key, a number of its own. An operation that fails raises a
/// `BasicError`.
class IGridRecords {
public:
    using FieldVisitor = std::function<void(std::int32_t key, const Variant& value)>;

    virtual ~IGridRecords() = default;
    /// The keys of all records of a record source, in any order.
    virtual void VisitKeys(
        std::string_view recordSource, const std::function<void(std::int32_t key)>& visit) = 0;
    /// The values of a field of all records of a record source, in any order.
    virtual void VisitField(
        std::string_view recordSource, std::string_view field, const FieldVisitor& visit) = 0;
    /// The values of the fields of one record, in their order.
    virtual std::vector<Variant>
    ReadRecord(std::int32_t key, const std::vector<std::string_view>& fields) = 0;
    /// Stores a check mark of the user's. False where there is no such record any more.
    virtual bool WriteCheck(std::int32_t key, bool checked) = 0;
};

}  // namespace dorvik
