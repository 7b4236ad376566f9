#include "platform/database/Recordset.h"

#include "RecordsetState.h"
#include "base/BasicError.h"
#include "base/modTextCase.h"
#include "platform/database/Database.h"

namespace dorvik {

int RecordsetState::FieldPosition(std::string_view name) {
    const int count = FieldCount();
    for (int tried = 0; tried < count; ++tried) {
        m_lastField = m_lastField + 1 < count ? m_lastField + 1 : 0;
        if (modTextCase::Equal(FieldName(m_lastField), name)) {
            return m_lastField;
        }
    }
    throw BasicError(
        databaseerror::kUnknownField, "Item not found in this collection: " + std::string(name));
}

Recordset::Recordset(std::unique_ptr<RecordsetState> state) : m_state(std::move(state)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

RecordsetState& Recordset::State() {
    if (m_state == nullptr) {
        throw BasicError(databaseerror::kObjectInvalid, "Object invalid or no longer set.");
    }
    m_state->RequireOpen();
    return *m_state;
}

bool Recordset::BOF() {
    return State().BOF();
}

bool Recordset::EOF_() {
    return State().AtEnd();
}

void Recordset::MoveFirst() {
    State().MoveFirst();
}

void Recordset::MoveNext() {
    State().MoveNext();
}

void Recordset::AddNew() {
    State().AddNew();
}

void Recordset::Edit() {
    State().Edit();
}

void Recordset::Update() {
    State().Update();
}

std::int32_t Recordset::LastAddedKey() {
    return State().LastAddedKey();
}

Variant Recordset::Value(std::string_view field) {
    RecordsetState& state = State();
    return state.Value(state.FieldPosition(field));
}

Variant Recordset::Value(int position) {
    RecordsetState& state = State();
    if (position < 0 || position >= state.FieldCount()) {
        throw BasicError(
            databaseerror::kUnknownField,
            "Item not found in this collection: " + std::to_string(position));
    }
    return state.Value(position);
}

void Recordset::SetValue(std::string_view field, Variant value) {
    RecordsetState& state = State();
    state.SetValue(state.FieldPosition(field), std::move(value));
}

void Recordset::Close() {
    m_state.reset();
}

}  // namespace dorvik
