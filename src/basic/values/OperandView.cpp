#include "OperandView.h"

#include "basic/values/Coercion.h"
#include "basic/values/RuntimeErrors.h"

namespace dorvik::basic {

namespace {

constexpr std::uint64_t kNoOperands = TypeBit(ValueType::Array) | TypeBit(ValueType::Record);

const Value& Variable(const Value& value) {
    const Value* variable = &value;
    while (variable->Type() == ValueType::Reference) {
        variable = variable->AsReference();
    }
    return *variable;
}

}  // namespace

OperandView::OperandView(const Value& value)
    : m_value(&Variable(value)), m_isOfObject(m_value->Type() == ValueType::Object) {
    if (m_isOfObject) {
        m_default = LetValue(*m_value);
        m_value = &m_default;
    }
    if (IsOneOf(*m_value, kNoOperands)) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
}

void OperandView::RefuseError() const {
    if (Type() == ValueType::Error) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
}

}  // namespace dorvik::basic
