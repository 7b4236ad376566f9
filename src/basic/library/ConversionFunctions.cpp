#include "Arguments.h"
#include "BuiltinTables.h"
#include "StrictForm.h"
#include "base/modText.h"
#include "basic/values/Coercion.h"
#include "basic/values/NumberText.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

template <DeclaredKind kKind>
Value Converted(ScriptContext&, Arguments arguments) {
    return CoerceTo(ArgumentAt(arguments, 0), kKind);
}

/// The number of an Error stands for it here, as it does not in an assignment.
Value NumberIn(const Value& value) {
    const bool isError = value.Type() == ValueType::Error && !value.IsMissing();
    return isError ? Value::Long(value.AsLong()) : value;
}

template <DeclaredKind kKind>
Value Number(ScriptContext&, Arguments arguments) {
    return CoerceTo(NumberIn(ArgumentAt(arguments, 0)), kKind);
}

/// Unlike an assignment, this takes an Error too.
Value CStr(ScriptContext&, Arguments arguments) {
    const Value& value = ArgumentAt(arguments, 0);
    if (value.Type() == ValueType::Error && !value.IsMissing()) {
        return TextResult(ErrorText(value));
    }
    return CoerceTo(value, DeclaredKind::String);
}

Value CVar(ScriptContext&, Arguments arguments) {
    return LetValue(ArgumentAt(arguments, 0)).DeepCopy();
}

Value CDec(ScriptContext&, Arguments arguments) {
    return Value::Decimal(ToDecimal(NumberIn(ArgumentAt(arguments, 0))));
}

Value CVErr(ScriptContext&, Arguments arguments) {
    const std::int32_t number = LongAt(arguments, 0);
    if (number < 0 || number > 0xFFFF) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return Value::Error(number);
}

bool IsSkippedByVal(char character) {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

/// The characters at the front that are in `allowed`, without blanks.
std::string Front(std::string_view text, std::string_view allowed) {
    std::string front;
    for (const char character : text) {
        if (IsSkippedByVal(character)) {
            continue;
        }
        if (allowed.find(character) == std::string_view::npos) {
            break;
        }
        front += character;
    }
    return front;
}

/// The number after `&H`, `&O` or `&`; without digits, 0.
double RadixVal(const std::string& front) {
    const char letter = front.size() > 1 ? static_cast<char>(front[1] & ~0x20) : '\0';
    const bool isHex = letter == 'H';
    std::string_view digits = std::string_view(front).substr(isHex || letter == 'O' ? 2 : 1);
    const std::string_view allowed = isHex ? "0123456789ABCDEFabcdef" : "01234567";
    const std::size_t end = std::min(digits.find_first_not_of(allowed), digits.size());
    const bool isLong = end < digits.size() && digits[end] == '&';
    digits = digits.substr(0, end + (isLong ? 1 : 0));
    return ReadRadixDigits(digits, isHex ? 4 : 3).value_or(0);
}

Value Val(ScriptContext&, Arguments arguments) {
    const TextArgument text(arguments, 0);
    const std::string radix = Front(text.View(), "&HhOo0123456789ABCDEFabcdef");
    if (radix.starts_with('&')) {
        return Value::Double(RadixVal(radix));
    }
    return Value::Double(modText::LeadingNumber(Front(text.View(), "+-.0123456789EeDd")));
}

/// A number as text with a place for its sign, and without the zero before a point.
std::string SignedText(const Value& number) {
    std::string text = ToText(number);
    const bool isNegative = text.starts_with('-');
    if (const std::size_t digits = isNegative ? 1 : 0; text.compare(digits, 2, "0.") == 0) {
        text.erase(digits, 1);
    }
    return isNegative ? text : " " + text;
}

Value Str(ScriptContext&, Arguments arguments) {
    const Value value = LetValue(ArgumentAt(arguments, 0));
    if (value.Type() == ValueType::Null) {
        return value;
    }
    if (value.Type() == ValueType::Boolean || value.Type() == ValueType::Date) {
        return CoerceTo(value, DeclaredKind::String);
    }
    const bool isNumber = value.IsNumber();
    return TextResult(SignedText(isNumber ? value : Value::Double(ToDouble(value))));
}

std::string InRadix(std::uint32_t bits, unsigned bitsPerDigit) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    do {
        text += kDigits[bits & ((1U << bitsPerDigit) - 1)];
        bits >>= bitsPerDigit;
    } while (bits != 0);
    std::reverse(text.begin(), text.end());
    return text;
}

/// A number of 16 bits stays one: Hex(-1) is FFFF.
template <unsigned kBitsPerDigit>
Value Radix(ScriptContext&, Arguments arguments) {
    const Value value = LetValue(ArgumentAt(arguments, 0));
    if (value.Type() == ValueType::Null) {
        return value;
    }
    const bool isShort = value.Type() == ValueType::Integer || value.Type() == ValueType::Boolean;
    const auto bits = static_cast<std::uint32_t>(ToLong(value));
    return TextResult(InRadix(isShort ? bits & 0xFFFFU : bits, kBitsPerDigit));
}

constexpr auto kVariant = DeclaredKind::Variant;
constexpr auto kString = DeclaredKind::String;

constexpr auto kByCaller = BuiltinFunction::TextCost::CountedByCaller;

constexpr BuiltinFunction kRows[] = {
    {"CBool", "Expression", DeclaredKind::Boolean, Converted<DeclaredKind::Boolean>},
    {"CByte", "Expression", DeclaredKind::Byte, Number<DeclaredKind::Byte>, false, kByCaller, true},
    {"CCur",
     "Expression",
     DeclaredKind::Currency,
     Number<DeclaredKind::Currency>,
     false,
     kByCaller,
     true},
    {"CDate", "Expression", DeclaredKind::Date, Converted<DeclaredKind::Date>},
    {"CDbl",
     "Expression",
     DeclaredKind::Double,
     Number<DeclaredKind::Double>,
     false,
     kByCaller,
     true},
    {"CDec", "Expression", kVariant, CDec},
    {"CInt",
     "Expression",
     DeclaredKind::Integer,
     Number<DeclaredKind::Integer>,
     false,
     kByCaller,
     true},
    {"CLng", "Expression", DeclaredKind::Long, Number<DeclaredKind::Long>, false, kByCaller, true},
    {"CSng",
     "Expression",
     DeclaredKind::Single,
     Number<DeclaredKind::Single>,
     false,
     kByCaller,
     true},
    {"CStr", "Expression", kString, CStr},
    {"CVDate", "Expression", kVariant, Converted<DeclaredKind::Date>},
    {"CVErr", "ErrorNumber", kVariant, CVErr},
    {"CVar", "Expression", kVariant, CVar},
    {"Hex", "Number", kVariant, Radix<4>},
    {"Hex$", "Number", kString, StrictForm<Radix<4>>},
    {"Oct", "Number", kVariant, Radix<3>},
    {"Oct$", "Number", kString, StrictForm<Radix<3>>},
    {"Str", "Number", kVariant, Str},
    {"Str$", "Number", kString, StrictForm<Str>},
    {"Val", "String", DeclaredKind::Double, Val},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::ConversionFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
