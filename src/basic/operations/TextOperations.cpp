#include "basic/operations/Operations.h"
#include "basic/operations/Reference.h"
#include "basic/values/Characters.h"
#include "basic/values/RuntimeErrors.h"

#include <algorithm>

namespace dorvik::basic::modOperations {

namespace {

constexpr std::size_t kBytesOfAUnit = 64;  // of text that is read and copied
constexpr std::size_t kMidSlots = 4;       // of a Mid statement: text, start, length, new part

std::size_t LengthOf(const Value& text) {
    return text.TextBody() != nullptr ? text.TextBody()->Length() : 0;
}

/// The first characters of a text that has as many.
std::string_view StartOf(const Value& text, std::size_t count) {
    return count == LengthOf(text) ? text.AsText()
                                   : text.AsText().substr(0, text.TextBody()->OffsetOf(count));
}

/// Whether nothing refers to the text but the variable and the slot into which it was read.
bool IsOnlyIn(const Value& text, const Value& variable) {
    constexpr std::uint32_t kBoth = 2;
    return variable.Type() == ValueType::String && variable.TextBody() == text.TextBody() &&
           text.TextBody()->References() == kBoth;
}

}  // namespace

void MidAssign(MachineState& state, Instruction in, Value* base) {
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
        state.Budget.Spend(text.AsText().size() / kBytesOfAUnit);
        text = Value::Text(StringBody::Of(text.AsText()));
    }
    state.Budget.Spend(
        text.TextBody()->Overwrite(begin, count, StartOf(part, count)) / kBytesOfAUnit);
    if (isInPlace) {
        std::fill_n(&text, kMidSlots, Value());
        state.Next = state.Frames.Code() + state.Next->Wide();
    } else {
        ++state.Next;
    }
}

void AlignText(MachineState& state, Instruction in, Value* base) {
    Value& text = base[in.A];
    const std::string_view part = base[in.A + 1].AsText();
    state.Budget.Spend((text.AsText().size() + part.size()) / kBytesOfAUnit);
    const std::size_t width = modCharacters::Count(text.AsText());
    const std::size_t count = modCharacters::Count(part);
    const std::string blanks(width > count ? width - count : 0, ' ');
    const std::string shown(part.substr(0, modCharacters::Skip(part, width)));
    text = Value::Text(in.C == 0 ? shown + blanks : blanks + shown);
}

}  // namespace dorvik::basic::modOperations
