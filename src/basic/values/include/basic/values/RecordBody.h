#pragma once

#include "basic/values/MemoryMeter.h"
#include "basic/values/Value.h"

#include <utility>
#include <vector>

namespace dorvik::basic {

/// A value of a `Type`: its members in their order. The compiler knows names and types.
class RecordBody final : public ReferenceCounted {
public:
    /// Raises 7 beyond the memory limit.
    RecordBody(std::int32_t type, std::vector<Value> members)
        : m_type(type), m_members(std::move(members)) {
        MemoryMeter::Current().Charge(Cost());
    }
    ~RecordBody() override { MemoryMeter::Current().Refund(Cost()); }

    std::int32_t Type() const { return m_type; }  // index of the module's Type
    /// To change the members in place; their number never changes.
    std::vector<Value>& Members() { return m_members; }
    const std::vector<Value>& Members() const { return m_members; }

private:
    std::size_t Cost() const { return sizeof(RecordBody) + m_members.size() * sizeof(Value); }

    std::int32_t m_type;
    std::vector<Value> m_members;
};

}  // namespace dorvik::basic
