#pragma once

#include "basic/values/Value.h"

#include <cstddef>
#include <vector>

namespace dorvik::basic {

/// One dimension of an array.
struct Bounds {
    std::int32_t Lower = 0;
    std::int32_t Upper = -1;
    friend bool operator==(const Bounds&, const Bounds&) = default;
};

/// The elements of an array, the first index running fastest. No dimensions: not dimensioned yet.
class ArrayBody final : public ReferenceCounted {
public:
    ArrayBody(DeclaredType element, bool isFixed);
    ~ArrayBody() override;

    const DeclaredType& Element() const { return m_element; }
    bool IsFixed() const { return m_isFixed; }
    const std::vector<Bounds>& Dimensions() const { return m_dimensions; }
    std::vector<Value>& Elements() { return m_elements; }
    const std::vector<Value>& Elements() const { return m_elements; }

    /// New elements with the initial value of the type. Raises 9 for a lower above an upper bound
    /// (upper = lower - 1 is an empty array, which only functions make: a `ReDim` checks
    /// that itself), 7 beyond the memory limit, 10 while locked. `initial` is the initial
    /// value of an element; arrays and records in it are copied for each.
    void Dimension(std::vector<Bounds> dimensions, const Value& initial);
    /// The same, keeping the elements: only the last upper bound may differ, else 9.
    void Redimension(std::vector<Bounds> dimensions, const Value& initial);
    void Clear();  // undimensioned; 10 while locked

    /// The place of an element; raises 9 for a wrong count or an index out of bounds.
    std::size_t Offset(const std::int32_t* indices, std::size_t count) const {
        if (count == 1 && m_dimensions.size() == 1) {
            const Bounds& bounds = m_dimensions.front();
            const std::int64_t offset = std::int64_t{*indices} - bounds.Lower;
            if (offset >= 0 && *indices <= bounds.Upper) [[likely]] {
                return static_cast<std::size_t>(offset);
            }
        }
        return OffsetOfMany(indices, count);
    }

    /// All elements, each copied whole, in an array that no one else refers to and no one has locked.
    Ref<ArrayBody> Copy(bool isFixed) const;

    /// While locked (a reference to an element is out, or a For Each traverses it) the array can be neither
    /// redimensioned nor erased nor assigned to: 10.
    void Lock() { ++m_locks; }
    void Unlock() { --m_locks; }
    bool IsLocked() const { return m_locks != 0; }

private:
    std::size_t OffsetOfMany(const std::int32_t* indices, std::size_t count) const;
    void Resize(std::size_t count, const Value& initial);
    void ChargeFor(std::size_t count);
    void CheckUnlocked() const;

    DeclaredType m_element;
    bool m_isFixed;
    std::vector<Bounds> m_dimensions;
    std::vector<Value> m_elements;
    std::uint32_t m_locks = 0;
    std::size_t m_charged = 0;  // bytes reported to the memory meter
};

}  // namespace dorvik::basic
