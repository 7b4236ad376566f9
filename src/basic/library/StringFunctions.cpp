#include "Arguments.h"
#include "BuiltinTables.h"
#include "StrictForm.h"
#include "base/modText.h"
#include "base/modTextCase.h"
#include "base/modUtf8.h"
#include "basic/values/Characters.h"
#include "basic/values/Coercion.h"
#include "basic/values/ScriptContext.h"
#include "basic/values/TextBytes.h"
#include "basic/values/ValueBodies.h"

#include <algorithm>
#include <limits>

namespace dorvik::basic {

namespace {

using modCharacters::Skip;

/// A length that must not be negative.
std::size_t CountAt(Arguments arguments, std::size_t position) {
    const std::int32_t count = LongAt(arguments, position);
    if (count < 0) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return static_cast<std::size_t>(count);
}

Value Len(ScriptContext&, Arguments arguments) {
    if (arguments[0].Type() == ValueType::String && arguments[0].TextBody() != nullptr) {
        return Value::Long(static_cast<std::int32_t>(arguments[0].TextBody()->Length()));
    }
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const TextArgument text(arguments, 0);
    return Value::Long(static_cast<std::int32_t>(text.Length()));
}

Value Left(ScriptContext&, Arguments arguments) {
    const std::size_t count = CountAt(arguments, 1);
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const TextArgument text(arguments, 0);
    const std::size_t end = text.OffsetOf(count);
    return end == text.View().size() ? text.AsValue() : TextResult(text.View().substr(0, end));
}

Value Right(ScriptContext&, Arguments arguments) {
    const std::size_t count = CountAt(arguments, 1);
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const TextArgument text(arguments, 0);
    const std::size_t length = text.Length();
    if (count >= length) {
        return text.AsValue();
    }
    return TextResult(text.View().substr(text.OffsetOf(length - count)));
}

/// The usual question, for a part of a text. False: it is not that.
bool AnswersMid(Arguments arguments, Value& answer) {
    const auto isWhole = [](const Value& value) {
        return value.Type() == ValueType::Long || value.Type() == ValueType::Integer;
    };
    if (arguments.size() != 3 || arguments[0].Type() != ValueType::String ||
        arguments[0].TextBody() == nullptr || !isWhole(arguments[1]) || !isWhole(arguments[2]) ||
        arguments[1].AsLong() < 1 || arguments[2].AsLong() < 0) {
        return false;
    }
    const StringBody& text = *arguments[0].TextBody();
    const auto first = static_cast<std::size_t>(arguments[1].AsLong()) - 1;
    const std::size_t left = text.Length() - std::min(first, text.Length());
    const std::size_t count = std::min(static_cast<std::size_t>(arguments[2].AsLong()), left);
    std::string buffer;
    answer = TextResult(text.Part(first, count, buffer), count);
    return true;
}

Value Mid(ScriptContext&, Arguments arguments) {
    Value answer;
    if (AnswersMid(arguments, answer)) {
        return answer;
    }
    const std::int32_t start = LongAt(arguments, 1);
    if (start < 1) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    const bool hasCount = IsGiven(arguments, 2);
    const std::size_t count = hasCount ? CountAt(arguments, 2) : 0;
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const TextArgument text(arguments, 0);
    const auto first = static_cast<std::size_t>(std::int64_t{start} - 1);
    const std::size_t from = text.OffsetOf(first);
    if (!hasCount) {
        return from == 0 ? text.AsValue() : TextResult(text.View().substr(from));
    }
    return TextResult(text.View().substr(from, text.OffsetOf(first + count) - from));
}

template <std::string (*kConvert)(std::string_view)>
Value Cased(ScriptContext&, Arguments arguments) {
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const TextArgument text(arguments, 0);
    CheckTextSize(text.View().size());
    return TextResult(kConvert(text.View()));
}

template <std::string_view (*kTrim)(std::string_view)>
Value Trimmed(ScriptContext&, Arguments arguments) {
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const TextArgument text(arguments, 0);
    const std::string_view trimmed = kTrim(text.View());
    return trimmed.size() == text.View().size() ? text.AsValue() : TextResult(trimmed);
}

/// A character repeated; checked before anything is allocated.
Value Repeated(std::string_view character, std::size_t count) {
    CheckTextSize(count, character.size());
    if (character.size() == 1) {
        return TextResult(std::string(count, character[0]));
    }
    std::string text;
    text.reserve(count * character.size());
    for (std::size_t index = 0; index < count; ++index) {
        text += character;
    }
    return TextResult(std::move(text));
}

Value Space(ScriptContext&, Arguments arguments) {
    return IsNullAt(arguments, 0) ? Value::Null() : Repeated(" ", CountAt(arguments, 0));
}

std::string FirstCharacter(std::string_view text) {
    if (text.empty()) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return std::string(text.substr(0, Skip(text, 1)));
}

Value String(ScriptContext&, Arguments arguments) {
    if (IsNullAt(arguments, 0) || IsNullAt(arguments, 1)) {
        return Value::Null();
    }
    const std::size_t count = CountAt(arguments, 0);
    const Value what = LetValue(ArgumentAt(arguments, 1));
    if (what.Type() == ValueType::String) {
        return Repeated(FirstCharacter(what.AsText()), count);
    }
    const auto code = static_cast<unsigned char>(static_cast<std::uint32_t>(ToLong(what)) & 0xFFU);
    std::string character;
    modCharacters::Append(character, modCharacters::FromCodePage(code));
    return Repeated(character, count);
}

bool SeparatesWords(char character) {
    return character == ' ' || character == '\0' || (character >= '\t' && character <= '\r');
}

/// Every letter after a blank or a line end large, the others small.
std::string ProperCase(std::string_view text) {
    std::string proper = modTextCase::ToLower(text);
    std::string result;
    result.reserve(proper.size());
    bool beginsWord = true;
    for (std::size_t position = 0; position < proper.size();) {
        const std::size_t next = Skip(proper, 1, position);
        const std::string_view character =
            std::string_view(proper).substr(position, next - position);
        result += beginsWord ? modTextCase::ToUpper(character) : std::string(character);
        beginsWord = SeparatesWords(proper[position]);
        position = next;
    }
    return result;
}

/// 0 as it is, 1 upper case, 2 lower case, 3 proper case.
std::string InCase(std::int32_t which, std::string_view text) {
    switch (which) {
        case 1: return modTextCase::ToUpper(text);
        case 2: return modTextCase::ToLower(text);
        case 3: return ProperCase(text);
        default: return std::string(text);
    }
}

/// Besides the case a text can be made of the bytes of another, and bytes of a text. What there is more needs an East
/// Asian system.
Value StrConv(ScriptContext&, Arguments arguments) {
    constexpr std::int32_t kToUnicode = 64;
    constexpr std::int32_t kFromUnicode = 128;
    const std::int32_t conversion = LongAt(arguments, 1);
    const std::int32_t whichCase = conversion & 3;
    const std::int32_t other = conversion - whichCase;
    const bool isKnown =
        other == kToUnicode || other == kFromUnicode || (other == 0 && whichCase != 0);
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    if (!isKnown) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    if (other == kToUnicode) {
        const std::string bytes = modTextBytes::BytesIn(arguments[0]);
        CheckTextSize(bytes.size());
        return TextResult(InCase(whichCase, modTextBytes::FromCodePage(bytes)));
    }
    const TextArgument text(arguments, 0);
    CheckTextSize(text.View().size());
    std::string result = InCase(whichCase, text.View());
    return other == 0 ? TextResult(std::move(result))
                      : modTextBytes::ArrayOf(modTextBytes::InCodePage(result));
}

Value StrReverse(ScriptContext&, Arguments arguments) {
    const TextArgument text(arguments, 0);
    CheckTextSize(text.View().size());
    if (text.IsAscii()) {
        return TextResult(std::string(text.View().rbegin(), text.View().rend()));
    }
    std::string reversed;
    reversed.reserve(text.View().size());
    for (std::size_t end = text.View().size(); end > 0;) {
        const std::size_t start = modCharacters::Previous(text.View(), end);
        reversed += text.View().substr(start, end - start);
        end = start;
    }
    return TextResult(std::move(reversed));
}

char32_t FirstCodePoint(Arguments arguments) {
    const TextArgument text(arguments, 0);
    if (text.View().empty()) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    std::size_t position = 0;
    return modCharacters::Next(text.View(), position);
}

Value Asc(ScriptContext&, Arguments arguments) {
    return Value::Integer(modCharacters::ToCodePage(FirstCodePoint(arguments)));
}

/// The first 16 bits that the character has in UTF-16, as an Integer.
Value AscW(ScriptContext&, Arguments arguments) {
    const char32_t character = FirstCodePoint(arguments);
    const char32_t unit = character < 0x10000 ? character : 0xD7C0 + (character >> 10U);
    return Value::Integer(static_cast<std::int16_t>(static_cast<std::uint16_t>(unit)));
}

Value OneCharacter(char32_t character) {
    std::string text;
    modCharacters::Append(text, character);
    return TextResult(std::string_view(text));
}

Value Chr(ScriptContext&, Arguments arguments) {
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const std::int32_t code = LongAt(arguments, 0);
    if (code < 0 || code > 0xFF) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return OneCharacter(modCharacters::FromCodePage(static_cast<unsigned char>(code)));
}

Value ChrW(ScriptContext&, Arguments arguments) {
    if (IsNullAt(arguments, 0)) {
        return Value::Null();
    }
    const std::int32_t code = LongAt(arguments, 0);
    if (code < std::numeric_limits<std::int16_t>::min() || code > 0xFFFF) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return OneCharacter(static_cast<std::uint16_t>(code));
}

constexpr auto kVariant = DeclaredKind::Variant;
constexpr auto kString = DeclaredKind::String;

/// The result is all that a part of a text costs: to find its place takes no longer, wherever that is.
constexpr auto kTakesAPart = BuiltinFunction::TextCost::CountedByItself;

constexpr BuiltinFunction kRows[] = {
    {"Asc", "String", DeclaredKind::Integer, Asc, false, kTakesAPart},
    {"AscW", "String", DeclaredKind::Integer, AscW, false, kTakesAPart},
    {"Chr", "CharCode", kVariant, Chr},
    {"Chr$", "CharCode", kString, StrictForm<Chr>},
    {"ChrW", "CharCode", kVariant, ChrW},
    {"ChrW$", "CharCode", kString, StrictForm<ChrW>},
    {"LCase", "String", kVariant, Cased<modTextCase::ToLower>},
    {"LCase$", "String", kString, StrictForm<Cased<modTextCase::ToLower>>},
    {"LTrim", "String", kVariant, Trimmed<modText::TrimLeft>},
    {"LTrim$", "String", kString, StrictForm<Trimmed<modText::TrimLeft>>},
    {"Left", "String Length", kVariant, Left, false, kTakesAPart},
    {"Left$",
     "String Length",
     kString,
     StrictForm<Left>,
     false,
     kTakesAPart,
     false,
     BuiltinId::LeftText},
    {"Len", "Expression", kVariant, Len, false, kTakesAPart, false, BuiltinId::Len},
    {"Mid", "String Start ?Length", kVariant, Mid, false, kTakesAPart},
    {"Mid$", "String Start ?Length", kString, StrictForm<Mid>, false, kTakesAPart},
    {"RTrim", "String", kVariant, Trimmed<modText::TrimRight>},
    {"RTrim$", "String", kString, StrictForm<Trimmed<modText::TrimRight>>},
    {"Right", "String Length", kVariant, Right, false, kTakesAPart},
    {"Right$", "String Length", kString, StrictForm<Right>, false, kTakesAPart},
    {"Space", "Number", kVariant, Space},
    {"Space$", "Number", kString, StrictForm<Space>},
    {"StrConv", "String Conversion ?LCID", kVariant, StrConv},
    {"StrReverse", "Expression", kString, StrReverse},
    {"String", "Number Character", kVariant, String},
    {"String$", "Number Character", kString, StrictForm<String>},
    {"Trim", "String", kVariant, Trimmed<modText::Trim>},
    {"Trim$", "String", kString, StrictForm<Trimmed<modText::Trim>>},
    {"UCase", "String", kVariant, Cased<modTextCase::ToUpper>},
    {"UCase$", "String", kString, StrictForm<Cased<modTextCase::ToUpper>>},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::StringFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
