#include "base/modUtf8.h"
#include "basic/machine/Machine.h"
#include "basic/values/LikePattern.h"

#include <string_view>

// Rows of instructions done in one go. Whatever is out of the ordinary goes the long way: the first instruction is
// done, and the loop goes on with the next.

namespace dorvik::basic {

namespace {

/// A longer text costs more than a step, and the functions themselves count that.
constexpr std::size_t kShortText = 1024;

bool IsShortText(const Value& value) {
    return value.Type() == ValueType::String && value.AsText().size() <= kShortText;
}

}  // namespace

void Machine::PropertyRow(Instruction in, Value* base) {
    const Instruction* const row = m_at;
    const Value& object = m_program->Constants[static_cast<std::size_t>(in.Wide())];
    const Value& property = m_program->Constants[static_cast<std::size_t>(row[1].Wide())];
    const ExtensionCall& call = m_program->ExtensionCalls[row[3].Target()];
    const Value* const known = call.Extension->Recall(call.Member, object, property);
    if (known != nullptr && known->Type() == ValueType::String) {
        base[row[4].A] = *known;
        m_next = row + 6;
        return;
    }
    Value* const first = base + in.A;
    first[0] = object;
    first[1] = property;
    first[2] = base[row[2].B];
    m_at = row + 3;
    RunExtension(row[3], base);
    m_next = row + 4;
    if (first[2].Type() != ValueType::String) {
        return;
    }
    base[row[4].A] = std::move(first[2]);
    ReleaseArguments(row[5], base);
    m_next = row + 6;
}

void Machine::LeftRow(Instruction in, Value* base) {
    const Instruction* const row = m_at;
    const Value& source = base[in.B];
    if (source.Type() == ValueType::String) {
        const std::string_view text = source.AsText();
        const auto count = static_cast<std::size_t>(
            m_program->Constants[static_cast<std::size_t>(row[1].Wide())].AsLong());
        const std::string_view start = text.substr(0, count);
        if (modUtf8::IsAscii(start)) {
            base[row[2].A] = start.size() == text.size() ? source : Value::Text(start);
            m_next = row + 3;
            return;
        }
    }
    base[in.A] = source;
}

void Machine::LeftCasesRow(Instruction in, Value* base) {
    constexpr std::size_t kFirst = 4;
    const Instruction* const row = m_at;
    const Value& source = base[in.B];
    const auto constantOf = [this](const Instruction& load) -> const Value& {
        return m_program->Constants[static_cast<std::size_t>(load.Wide())];
    };
    const auto count = static_cast<std::size_t>(constantOf(row[1]).AsLong());
    const bool isText = source.Type() == ValueType::String;
    const std::string_view start = isText ? source.AsText().substr(0, count) : std::string_view();
    if (!isText || !modUtf8::IsAscii(start)) {
        base[in.A] = source;
        return;
    }
    const Instruction* at = row + kFirst;
    while (at->Code != Opcode::Jump && constantOf(*at).AsText() != start) {
        at += 3;
    }
    m_next = at->Code == Opcode::Jump ? at : CodeOfTop() + at[2].Wide();
}

void Machine::InStrRow(Instruction in, Value* base) {
    const Instruction* const row = m_at;
    const Value& source = base[in.B];
    if (IsShortText(source)) {
        const std::string_view text = source.AsText();
        const std::size_t place =
            text.find(m_program->Constants[static_cast<std::size_t>(row[1].Wide())].AsText());
        const bool isFound = place != std::string_view::npos;
        if (!isFound || modUtf8::IsAscii(text.substr(0, place))) {
            base[row[2].A] = Value::Long(isFound ? static_cast<std::int32_t>(place) + 1 : 0);
            m_next = row + 3;
            return;
        }
    }
    base[in.A] = source;
}

void Machine::LenRow(Instruction in, Value* base) {
    const Instruction* const row = m_at;
    const Value& source = base[in.B];
    if (source.Type() != ValueType::String) {
        base[in.A] = source;
        return;
    }
    const StringBody* const body = source.TextBody();
    const auto length = static_cast<std::int32_t>(body != nullptr ? body->Length() : 0);
    base[row[1].A] = Value::Long(length);
    m_next = row + 2;
}

void Machine::LikeRow(Instruction in, Value* base) {
    const Instruction* const row = m_at;
    const Value& pattern = m_program->Constants[static_cast<std::size_t>(in.Wide())];
    const Value& source = base[row[1].B];
    if (!IsShortText(source)) {
        base[in.A] = pattern;
        return;
    }
    m_at = row + 1;
    base[row[1].A] = Value::Boolean(MatchesValidLike(source.AsText(), pattern.AsText()));
    m_next = row + 2;
}

}  // namespace dorvik::basic
