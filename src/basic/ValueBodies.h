#pragma once

#include "basic/Value.h"

#include <cstddef>
#include <vector>

namespace dorvik::basic {

/// The text of a string value, UTF-8. A lone half of a surrogate pair (from `ChrW`) is kept in its
/// three-byte form. What a script sees as lengths and positions counts characters; `IsAscii` says
/// that bytes are characters.
class StringBody final : public ReferenceCounted {
public:
    explicit StringBody(std::string text);
    ~StringBody() override;

    const std::string& Text() const { return m_text; }
    bool IsAscii() const;        // known after the first question
    std::size_t Length() const;  // characters
    /// Appends in place. REQUIRES: !IsShared(). Raises 14 beyond the string limit.
    void Append(std::string_view text);

private:
    std::string m_text;
    mutable std::int64_t m_length = -1;  // characters, -1 until asked
    mutable std::int8_t m_ascii = -1;
};

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
    /// (upper = lower - 1 is an empty array, which only functions make), 7 beyond the memory limit,
    /// 10 while locked. `initial` is the initial value of an element.
    void Dimension(std::vector<Bounds> dimensions, const Value& initial);
    /// The same, keeping the elements: only the last upper bound may differ, else 9.
    void Redimension(std::vector<Bounds> dimensions, const Value& initial);
    void Clear();  // undimensioned; 10 while locked

    /// The place of an element; raises 9 for a wrong count or an index out of bounds.
    std::size_t Offset(const std::int32_t* indices, std::size_t count) const;

    /// While locked (a reference to an element is out, or a For Each walks it) the array can be neither
    /// redimensioned nor erased nor assigned to: 10.
    void Lock() { ++m_locks; }
    void Unlock() { --m_locks; }
    bool IsLocked() const { return m_locks != 0; }

private:
    DeclaredType m_element;
    bool m_isFixed;
    std::vector<Bounds> m_dimensions;
    std::vector<Value> m_elements;
    std::uint32_t m_locks = 0;
    std::size_t m_charged = 0;  // bytes told to the memory meter
};

/// A value of a `Type`: its members in their order. The compiler knows names and types.
class RecordBody final : public ReferenceCounted {
public:
    RecordBody(std::int32_t type, std::vector<Value> members)
        : m_type(type), m_members(std::move(members)) {}

    std::int32_t Type() const { return m_type; }  // index of the module's Type
    std::vector<Value>& Members() { return m_members; }
    const std::vector<Value>& Members() const { return m_members; }

private:
    std::int32_t m_type;
    std::vector<Value> m_members;
};

/// A number of 96 bits with 0 to 28 decimal places.
class DecimalBody final : public ReferenceCounted {
public:
    DecimalBody(unsigned __int128 magnitude, int scale, bool isNegative)
        : m_magnitude(magnitude), m_scale(scale), m_isNegative(isNegative) {}

    unsigned __int128 Magnitude() const { return m_magnitude; }  // below 2^96
    int Scale() const { return m_scale; }
    bool IsNegative() const { return m_isNegative; }

private:
    unsigned __int128 m_magnitude;
    int m_scale;
    bool m_isNegative;
};

}  // namespace dorvik::basic
