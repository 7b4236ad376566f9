#include "basic/machine/Machine.h"
#include "basic/values/Characters.h"
#include "basic/values/Coercion.h"
#include "basic/values/MemoryMeter.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

constexpr std::size_t kZone = 14;
constexpr std::size_t kBytesOfAUnit = 64;  // of text that is looked at and copied
constexpr std::int32_t kWidestGap = 32'767;

/// What Debug.Print shows of a value.
std::string ShownText(const Value& value) {
    if (value.IsMissing()) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    if (value.Type() == ValueType::Object) {
        return ShownText(LetValue(value));
    }
    if (value.Type() == ValueType::Null) {
        return "Null";
    }
    if (value.Type() == ValueType::Error) {
        return ErrorText(value);
    }
    std::string text = ToText(value);
    const bool isShownAsNumber =
        value.IsNumber() && value.Type() != ValueType::Boolean && value.Type() != ValueType::Date;
    if (!isShownAsNumber) {
        return text;
    }
    // Required: a number has a place for its sign in front and a blank behind.
    return (text.starts_with('-') ? "" : " ") + text + " ";
}

std::size_t LengthOf(const Value& text) {
    return text.TextBody() != nullptr ? text.TextBody()->Length() : 0;
}

/// Whether nobody refers to the text but the variable and the slot into which it was read.
bool IsOnlyIn(const Value& text, const Value& variable) {
    constexpr std::uint32_t kBoth = 2;
    return variable.Type() == ValueType::String && variable.TextBody() == text.TextBody() &&
           text.TextBody()->References() == kBoth;
}

}  // namespace

void Machine::MidAssign(Instruction in, Value* base) {
    Value& text = base[in.A];
    const std::int32_t start = base[in.A + 1].AsLong();
    const Value& length = base[in.A + 2];
    const Value& part = base[in.A + 3];
    const bool hasLength = !length.IsMissing();
    const std::size_t size = LengthOf(text);
    const auto begin = static_cast<std::size_t>(std::int64_t{start} - 1);
    if (start < 1 || begin >= size || (hasLength && length.AsLong() < 0)) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    std::size_t count = std::min(LengthOf(part), size - begin);
    if (hasLength) {
        count = std::min(count, static_cast<std::size_t>(length.AsLong()));
    }
    const bool isInPlace = IsOnlyIn(text, *TargetOf(base[in.B]));
    if (!isInPlace) {
        Spend(text.AsText().size() / kBytesOfAUnit);
        text = Value::Text(StringBody::Of(text.AsText()));
    }
    const std::string_view taken =
        count > 0 ? part.AsText().substr(0, part.TextBody()->OffsetOf(count)) : std::string_view();
    Spend(text.TextBody()->Overwrite(begin, count, taken) / kBytesOfAUnit);
    m_next = isInPlace ? CodeOfTop() + m_next->Wide() : m_next + 1;
}

void Machine::AlignText(Instruction in, Value* base) {
    Value& text = base[in.A];
    const std::string_view part = base[in.A + 1].AsText();
    Spend((text.AsText().size() + part.size()) / kBytesOfAUnit);
    const std::size_t width = modCharacters::Count(text.AsText());
    const std::size_t count = modCharacters::Count(part);
    const std::string blanks(width > count ? width - count : 0, ' ');
    const std::string shown(part.substr(0, modCharacters::Skip(part, width)));
    text = Value::Text(in.C == 0 ? shown + blanks : blanks + shown);
}

void Machine::PrintText(std::string_view text) {
    MemoryMeter::Current().CheckString(m_printLine.size() + text.size());
    m_printLine += text;
    const std::size_t lineEnd = text.rfind('\n');
    if (lineEnd == std::string_view::npos) {
        m_printColumn += modCharacters::Count(text);
    } else {
        m_printColumn = modCharacters::Count(text.substr(lineEnd + 1));
    }
}

void Machine::PrintValue(Instruction in, Value* base) {
    if (base[in.A].Type() == ValueType::String) {
        PrintText(base[in.A].AsText());
    } else {
        PrintText(ShownText(base[in.A]));
    }
}

void Machine::PrintPlace(Instruction in, Value* base) {
    if (in.Code == Opcode::PrintZone) {
        PrintText(std::string(kZone - m_printColumn % kZone, ' '));
        return;
    }
    const std::int32_t asked = std::min(base[in.A].AsLong(), kWidestGap);
    if (in.Code == Opcode::PrintSpaces) {
        PrintText(std::string(static_cast<std::size_t>(std::max(asked, 0)), ' '));
        return;
    }
    const auto column = static_cast<std::size_t>(std::max(asked, 1) - 1);
    if (column < m_printColumn) {
        PrintEnd(in, base);
    }
    PrintText(std::string(column - m_printColumn, ' '));
}

void Machine::PrintEnd(Instruction, Value*) {
    std::string line;
    line.swap(m_printLine);
    m_printColumn = 0;
    m_host.OnDebugPrint(line);
}

}  // namespace dorvik::basic
