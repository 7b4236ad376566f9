#include "basic/values/ArrayBody.h"

#include "basic/values/MemoryMeter.h"
#include "basic/values/RuntimeErrors.h"

#include <limits>
#include <utility>

namespace dorvik::basic {

namespace {

constexpr std::size_t kTooMany = std::numeric_limits<std::size_t>::max() / (2 * sizeof(Value));

/// The number of elements; beyond all memory, `kTooMany`. Raises 9 for bounds in the wrong order.
std::size_t CountOf(const std::vector<Bounds>& dimensions) {
    bool isEmpty = dimensions.empty();
    std::size_t count = 1;
    for (const Bounds& bounds : dimensions) {
        const std::int64_t extent = std::int64_t{bounds.Upper} - bounds.Lower + 1;
        if (extent < 0) {
            RaiseError(runtimeerror::kSubscriptOutOfRange);
        }
        isEmpty = isEmpty || extent == 0;
        if (__builtin_mul_overflow(count, static_cast<std::size_t>(extent), &count) ||
            count > kTooMany) {
            count = kTooMany;
        }
    }
    return isEmpty ? 0 : count;
}

bool NeedsDeepCopy(const Value& value) {
    return value.Type() == ValueType::Array || value.Type() == ValueType::Record;
}

bool DifferOnlyInLastUpper(const std::vector<Bounds>& before, const std::vector<Bounds>& after) {
    if (before.size() != after.size() || before.back().Lower != after.back().Lower) {
        return false;
    }
    return std::equal(before.begin(), before.end() - 1, after.begin());
}

}  // namespace

ArrayBody::ArrayBody(DeclaredType element, bool isFixed) : m_element(element), m_isFixed(isFixed) {
    ChargeFor(0);
}

ArrayBody::~ArrayBody() {
    MemoryMeter::Current().Refund(m_charged);
}

void ArrayBody::Dimension(std::vector<Bounds> dimensions, const Value& initial) {
    CheckUnlocked();
    const std::size_t count = CountOf(dimensions);
    std::vector<Value> old = std::exchange(m_elements, {});
    m_dimensions.clear();
    old.clear();
    old.shrink_to_fit();
    Resize(count, initial);
    m_dimensions = std::move(dimensions);
}

void ArrayBody::Redimension(std::vector<Bounds> dimensions, const Value& initial) {
    if (m_dimensions.empty()) {
        Dimension(std::move(dimensions), initial);
        return;
    }
    CheckUnlocked();
    if (!DifferOnlyInLastUpper(m_dimensions, dimensions)) {
        RaiseError(runtimeerror::kSubscriptOutOfRange);
    }
    // The last index runs slowest, so the kept elements stay where they are.
    Resize(CountOf(dimensions), initial);
    m_dimensions = std::move(dimensions);
}

void ArrayBody::Clear() {
    CheckUnlocked();
    m_dimensions.clear();
    std::vector<Value>().swap(m_elements);
    ChargeFor(0);
}

Ref<ArrayBody> ArrayBody::Copy(bool isFixed) const {
    Ref<ArrayBody> copy = MakeRef<ArrayBody>(m_element, isFixed);
    copy->ChargeFor(m_elements.size());
    copy->m_elements.reserve(m_elements.size());
    for (const Value& element : m_elements) {
        copy->m_elements.push_back(element.DeepCopy());
    }
    copy->m_dimensions = m_dimensions;
    return copy;
}

std::size_t ArrayBody::OffsetOfMany(const std::int32_t* indices, std::size_t count) const {
    if (count != m_dimensions.size() || count == 0) {
        RaiseError(runtimeerror::kSubscriptOutOfRange);
    }
    std::size_t offset = 0;
    std::size_t stride = 1;
    for (std::size_t i = 0; i < count; ++i) {
        const Bounds& bounds = m_dimensions[i];
        if (indices[i] < bounds.Lower || indices[i] > bounds.Upper) {
            RaiseError(runtimeerror::kSubscriptOutOfRange);
        }
        offset += stride * static_cast<std::size_t>(std::int64_t{indices[i]} - bounds.Lower);
        stride *= static_cast<std::size_t>(std::int64_t{bounds.Upper} - bounds.Lower + 1);
    }
    return offset;
}

void ArrayBody::Resize(std::size_t count, const Value& initial) {
    ChargeFor(count);
    if (!NeedsDeepCopy(initial)) {
        m_elements.resize(count, initial);
        return;
    }
    if (count < m_elements.size()) {
        m_elements.resize(count);
        return;
    }
    m_elements.reserve(count);
    while (m_elements.size() < count) {
        m_elements.push_back(initial.DeepCopy());
    }
}

void ArrayBody::ChargeFor(std::size_t count) {
    MemoryMeter& meter = MemoryMeter::Current();
    const std::size_t bytes = sizeof(ArrayBody) + count * sizeof(Value);
    if (bytes > m_charged) {
        meter.Charge(bytes - m_charged);
    } else {
        meter.Refund(m_charged - bytes);
    }
    m_charged = bytes;
}

void ArrayBody::CheckUnlocked() const {
    if (IsLocked()) {
        RaiseError(runtimeerror::kArrayFixedOrLocked);
    }
}

}  // namespace dorvik::basic
