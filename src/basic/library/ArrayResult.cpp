#include "ArrayResult.h"

namespace dorvik::basic {

namespace {

Ref<ArrayBody> FromZero(DeclaredKind kind, std::size_t elements, const Value& initial) {
    DeclaredType type;
    type.Kind = kind;
    auto array = MakeRef<ArrayBody>(type, false);
    array->Dimension({{0, static_cast<std::int32_t>(elements) - 1}}, initial);
    return array;
}

}  // namespace

Ref<ArrayBody> TextArray(std::size_t elements) {
    return FromZero(DeclaredKind::String, elements, Value::Text(Ref<StringBody>()));
}

Ref<ArrayBody> VariantArray(std::size_t elements) {
    return FromZero(DeclaredKind::Variant, elements, Value());
}

}  // namespace dorvik::basic
