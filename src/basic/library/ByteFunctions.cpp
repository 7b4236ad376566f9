#include "Arguments.h"
#include "BuiltinTables.h"
#include "CompareMode.h"
#include "StrictForm.h"
#include "base/modTextCase.h"
#include "basic/library/BuiltinLookup.h"
#include "basic/values/Characters.h"
#include "basic/values/ScriptContext.h"
#include "basic/values/TextBytes.h"

#include <algorithm>
#include <vector>

// The functions with a B at the end: they count bytes of UTF-16, two or four for a character.

namespace dorvik::basic {

namespace {

std::size_t CountAt(Arguments arguments, std::size_t position) {
    const std::int32_t count = LongAt(arguments, position);
    if (count < 0) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return static_cast<std::size_t>(count);
}

/// The bytes of an argument from one on, so many or all. Of a text of ASCII no others are made than are requested.
std::string BytesAt(const Value& value, std::size_t from, std::size_t count = std::string::npos) {
    const std::string_view text = value.Type() == ValueType::String &&
                                          value.TextBody() != nullptr && value.TextBody()->IsAscii()
                                      ? value.AsText()
                                      : std::string_view();
    if (text.empty()) {
        return modTextBytes::BytesIn(value, from, count);
    }
    if (from / 2 >= text.size()) {
        return {};
    }
    const std::size_t characters = count < 2 * text.size() ? count / 2 + 2 : text.size();
    CheckTextSize(2 * std::min(characters, text.size()));
    const std::string bytes = modTextBytes::BytesOf(text.substr(from / 2, characters));
    return bytes.substr(from % 2, count);
}

Value TextOfBytes(std::string_view bytes) {
    return TextResult(modTextBytes::TextOf(bytes));
}

Value LeftB(ScriptContext&, Arguments arguments) {
    const std::size_t count = CountAt(arguments, 1);
    return IsNullAt(arguments, 0) ? Value::Null() : TextOfBytes(BytesAt(arguments[0], 0, count));
}

Value RightB(ScriptContext&, Arguments arguments) {
    const std::size_t count = CountAt(arguments, 1);
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const std::size_t size = modTextBytes::CountIn(arguments[0]);
    return TextOfBytes(BytesAt(arguments[0], size - std::min(count, size)));
}

Value MidB(ScriptContext&, Arguments arguments) {
    const std::int32_t start = LongAt(arguments, 1);
    if (start < 1) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    const std::size_t count = IsGiven(arguments, 2) ? CountAt(arguments, 2) : std::string::npos;
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    return TextOfBytes(BytesAt(arguments[0], static_cast<std::size_t>(start) - 1, count));
}

/// A text whose characters have the bytes as their codes: what counts characters there counts bytes.
Value CharacterForEachByte(ScriptContext& context, const Value& value, bool lowersCase) {
    constexpr std::size_t kBytesOfABreath = 1000;
    std::string bytes = modTextBytes::BytesIn(value);
    for (std::size_t done = kBytesOfABreath; done < bytes.size(); done += kBytesOfABreath) {
        context.Breathe();
    }
    if (lowersCase) {
        bytes = modTextBytes::BytesOf(modTextCase::ToLower(modTextBytes::TextOf(bytes)));
    }
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        modCharacters::Append(text, static_cast<unsigned char>(byte));
    }
    return TextResult(std::move(text));
}

Value InStrB(ScriptContext& context, Arguments arguments) {
    constexpr std::size_t kCompare = 3;
    const bool ignoresCase = IgnoresCaseAt(arguments, kCompare, context.ComparesText());
    const std::size_t first = IsGiven(arguments, 2) ? 1 : 0;
    std::vector<Value> asked(arguments.begin(), arguments.end());
    asked.resize(kCompare + 1, Value::Missing());
    asked[kCompare] = Value::Long(0);
    for (Value* const text : {&asked[first], &asked[first + 1]}) {
        if (!text->IsMissing() && !IsNullAt({text, 1}, 0)) {
            *text = CharacterForEachByte(context, *text, ignoresCase);
        }
    }
    return FindBuiltin("InStr")->Call(context, asked);
}

/// Of a text its bytes, of an array of bytes its elements.
Value LenB(ScriptContext&, Arguments arguments) {
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    return Value::Long(static_cast<std::int32_t>(modTextBytes::CountIn(ArgumentAt(arguments, 0))));
}

Value AscB(ScriptContext&, Arguments arguments) {
    const std::string bytes = BytesAt(ArgumentAt(arguments, 0), 0, 1);
    if (bytes.empty()) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return Value::Integer(static_cast<unsigned char>(bytes.front()));
}

Value ChrB(ScriptContext&, Arguments arguments) {
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const std::int32_t code = LongAt(arguments, 0);
    if (code < 0 || code > 0xFF) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return TextOfBytes(std::string(1, static_cast<char>(code)));
}

constexpr auto kVariant = DeclaredKind::Variant;
constexpr auto kString = DeclaredKind::String;

constexpr BuiltinFunction kRows[] = {
    {"AscB", "String", DeclaredKind::Integer, AscB},
    {"ChrB", "CharCode", kVariant, ChrB},
    {"ChrB$", "CharCode", kString, StrictForm<ChrB>},
    {"InStrB", "Start String1 ?String2 ?Compare", kVariant, InStrB},
    {"LeftB", "String Length", kVariant, LeftB},
    {"LeftB$", "String Length", kString, StrictForm<LeftB>},
    {"LenB",
     "Expression",
     kVariant,
     LenB,
     false,
     BuiltinFunction::TextCost::CountedByCaller,
     false,
     BuiltinId::LenB},
    {"MidB", "String Start ?Length", kVariant, MidB},
    {"MidB$", "String Start ?Length", kString, StrictForm<MidB>},
    {"RightB", "String Length", kVariant, RightB},
    {"RightB$", "String Length", kString, StrictForm<RightB>},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::ByteFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
