#include "ArrayElements.h"

#include "KeptValue.h"
#include "basic/operations/Variables.h"
#include "basic/values/Coercion.h"
#include "basic/values/RecordBody.h"
#include "basic/values/RuntimeErrors.h"

#include <array>

namespace dorvik::basic {

namespace {

constexpr std::size_t kMostDimensions = 60;

}  // namespace

ScriptObject& ObjectWithDefault(const Value& value) {
    if (value.AsObject() == nullptr) {
        RaiseError(runtimeerror::kObjectNotSet);
    }
    if (!value.AsObject()->HasDefaultMember()) {
        RaiseError(runtimeerror::kNoSuchMember);
    }
    return *value.AsObject();
}

std::size_t OffsetOf(const ArrayBody& array, std::span<const Value> indices) {
    if (indices.size() > kMostDimensions) {
        RaiseError(runtimeerror::kSubscriptOutOfRange);
    }
    std::array<std::int32_t, kMostDimensions> numbers{};
    for (std::size_t i = 0; i < indices.size(); ++i) {
        numbers[i] = ToLong(indices[i]);
    }
    return array.Offset(numbers.data(), indices.size());
}

Value ElementFrom(const Value& array, std::span<const Value> indices) {
    const ArrayBody& body = *array.AsArray();
    return body.Elements()[OffsetOf(body, indices)];
}

void StoreElement(ArrayBody& array, std::size_t offset, const Value& value, bool isSet) {
    Value& element = array.Elements()[offset];
    const DeclaredType& type = array.Element();
    if (type.Kind == DeclaredKind::Object && !isSet) {
        const Value object = element;
        ObjectWithDefault(object).Invoke(kDefaultMember, InvokeKind::Let, {&value, 1});
    } else if (type.Kind == DeclaredKind::Variant) {
        CheckUnlocked(element);
        element = value;
    } else if (type.Kind == DeclaredKind::Record) {
        const bool fits =
            value.Type() == ValueType::Record && value.AsRecord()->Type() == type.Record;
        if (!fits) {
            RaiseError(runtimeerror::kTypeMismatch);
        }
        CopyRecord(*element.AsRecord(), *value.AsRecord());
    } else {
        element = CoerceTo(value, type);
    }
}

}  // namespace dorvik::basic
