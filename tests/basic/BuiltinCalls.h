#pragma once

#include "SampleValues.h"
#include "basic/library/BuiltinLookup.h"
#include "basic/values/ArrayBody.h"
#include "basic/values/DateText.h"
#include "basic/values/ScriptContext.h"
#include "basic/values/ScriptObject.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Calls of built-in functions and of objects' members without a machine.
namespace dorvik::basic::sample {

/// A machine that answers with fixed values and counts what it is asked.
class FixedContext final : public ScriptContext {
public:
    bool ComparesText() const override { return ComparesTextNow; }
    ErrorState& CurrentError() override { return Error; }
    void Breathe() override { ++Breaths; }
    void CountText(std::size_t bytes) override { TextCounted += bytes; }
    std::uint32_t& RandomState() override { return Random; }
    double NowInDays() override { return Now; }
    std::int32_t LastLineNumber() const override { return 120; }
    void Refuse(std::string_view what) override {
        Refused = what;
        throw BasicError(70, "Permission denied");
    }

    bool ComparesTextNow = false;
    ErrorState Error;
    int Breaths = 0;
    std::size_t TextCounted = 0;  // bytes
    std::uint32_t Random = 327680;
    double Now = 36526.75;  // 1 Jan 2000, 18:00
    std::string Refused;
};

/// A Date by its text.
inline Value At(std::string_view text) {
    return T(ReadDate(text, 2000).value());
}

inline Value
CallBuiltin(FixedContext& context, std::string_view name, std::span<const Value> arguments) {
    const BuiltinFunction* function = FindBuiltin(name);
    if (!function) {
        throw BasicError(35, "Sub, Function, or Property not defined");
    }
    return function->Call(context, arguments);
}

inline Value CallBuiltin(std::string_view name, const std::vector<Value>& arguments) {
    FixedContext context;
    return CallBuiltin(context, name, arguments);
}

/// "Long 5", "String()[a|b]" for an array, "error 5" for an error.
inline std::string ShownWhole(const Value& value) {
    if (value.Type() != ValueType::Array) {
        return Shown(value);
    }
    std::string text = TypeNameOf(value) + "[";
    for (const Value& element : value.AsArray()->Elements()) {
        text += (&element == value.AsArray()->Elements().data() ? "" : "|");
        const bool isPlain = element.Type() == ValueType::String || element.IsNumber();
        text += isPlain ? ToText(element) : ShownWhole(element);
    }
    return text + "]";
}

template <class Make>
std::string WholeOrError(Make make) {
    try {
        return ShownWhole(make());
    } catch (const BasicError& error) {
        return "error " + std::to_string(error.Number());
    }
}

struct CallCase {
    std::string_view Function;
    std::vector<Value> Arguments;
    std::string_view Expected;
};

inline void ExpectCalls(std::initializer_list<CallCase> cases, bool comparesText = false) {
    for (const CallCase& row : cases) {
        FixedContext context;
        context.ComparesTextNow = comparesText;
        std::string call(row.Function);
        for (const Value& argument : row.Arguments) {
            call += " " + ShownWhole(argument);
        }
        EXPECT_EQ(
            WholeOrError([&] { return CallBuiltin(context, row.Function, row.Arguments); }),
            row.Expected)
            << call;
    }
}

inline Value Missing() {
    return Value::Missing();
}

/// An array of Variants from 0.
inline Value A(std::initializer_list<Value> elements) {
    return CallBuiltin("Array", elements);
}

/// Uses a member of an object by its name.
inline Value
Use(const Value& object,
    std::string_view member,
    std::vector<Value> arguments = {},
    InvokeKind kind = InvokeKind::Get) {
    ScriptObject& target = *object.AsObject();
    return target.Invoke(target.FindMember(member), kind, arguments);
}

inline Value Let(const Value& object, std::string_view member, std::vector<Value> arguments) {
    return Use(object, member, std::move(arguments), InvokeKind::Let);
}

/// The elements that a For Each over the object gives, parted by blanks.
inline std::string Walked(const Value& object) {
    std::string text;
    const auto walker = object.AsObject()->Iterate();
    for (Value element; walker->Next(element);) {
        text += (text.empty() ? "" : " ") + ToText(element);
    }
    return text;
}

}  // namespace dorvik::basic::sample
