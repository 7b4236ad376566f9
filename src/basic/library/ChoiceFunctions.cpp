#include "Arguments.h"
#include "ArrayResult.h"
#include "BuiltinTables.h"
#include "basic/library/BuiltinLookup.h"
#include "basic/values/Coercion.h"
#include "basic/values/Operators.h"
#include "basic/values/ScriptContext.h"
#include "basic/values/ScriptObject.h"

#include <algorithm>
#include <array>
#include <string>

namespace dorvik::basic {

namespace {

Value IIf(ScriptContext&, Arguments arguments) {
    return ArgumentAt(arguments, IsTrue(ArgumentAt(arguments, 0)) ? 1 : 2);
}

Value Choose(ScriptContext&, Arguments arguments) {
    const std::int32_t index = LongAt(arguments, 0);
    if (index < 1 || static_cast<std::size_t>(index) >= arguments.size()) {
        return Value::Null();
    }
    return arguments[static_cast<std::size_t>(index)];
}

Value Switch(ScriptContext&, Arguments arguments) {
    if (arguments.size() % 2 != 0) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    for (std::size_t pair = 0; pair < arguments.size(); pair += 2) {
        if (IsTrue(arguments[pair])) {
            return arguments[pair + 1];
        }
    }
    return Value::Null();
}

std::string AlignedRight(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

/// The range of the number as "lower:upper", both as wide as the widest bound, and open at an end
/// outside `start` to `stop`.
Value Partition(ScriptContext&, Arguments arguments) {
    for (std::size_t position = 0; position < 4; ++position) {
        if (IsNullAt(arguments, position)) {
            return Value::Null();
        }
    }
    const std::int64_t number = LongAt(arguments, 0);
    const std::int64_t start = LongAt(arguments, 1);
    const std::int64_t stop = LongAt(arguments, 2);
    const std::int64_t interval = LongAt(arguments, 3);
    if (start < 0 || stop <= start || interval < 1) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    const std::size_t width =
        std::max(std::to_string(start - 1).size(), std::to_string(stop + 1).size());
    std::string lower;
    std::string upper;
    if (number < start) {
        upper = std::to_string(start - 1);
    } else if (number > stop) {
        lower = std::to_string(stop + 1);
    } else {
        const std::int64_t first = start + (number - start) / interval * interval;
        lower = std::to_string(first);
        upper = std::to_string(std::min(first + interval - 1, stop));
    }
    return TextResult(AlignedRight(lower, width) + ":" + AlignedRight(upper, width));
}

Value Rgb(ScriptContext&, Arguments arguments) {
    std::int32_t colour = 0;
    for (std::size_t part = 0; part < 3; ++part) {
        const std::int32_t share = LongAt(arguments, part);
        if (share < 0) {
            RaiseError(runtimeerror::kInvalidProcedureCall);
        }
        colour |= std::min(share, 0xFF) << static_cast<int>(part * 8);
    }
    return Value::Long(colour);
}

Value QBColor(ScriptContext&, Arguments arguments) {
    constexpr std::array<std::int32_t, 16> kColours = {
        0x000000,
        0x800000,
        0x008000,
        0x808000,
        0x000080,
        0x800080,
        0x008080,
        0xC0C0C0,
        0x808080,
        0xFF0000,
        0x00FF00,
        0xFFFF00,
        0x0000FF,
        0xFF00FF,
        0x00FFFF,
        0xFFFFFF};
    const std::int32_t number = LongAt(arguments, 0);
    if (number < 0 || number > 15) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return Value::Long(kColours[static_cast<std::size_t>(number)]);
}

Value Array(ScriptContext&, Arguments arguments) {
    Ref<ArrayBody> array = VariantArray(arguments.size());
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        array->Elements()[index] = arguments[index].DeepCopy();
    }
    return Value::Array(array);
}

Value CreateObject(ScriptContext&, Arguments arguments) {
    const TextArgument programId(arguments, 0);
    return CreateScriptObject(programId.View());
}

InvokeKind KindOf(std::int32_t callType) {
    switch (callType) {
        case 1: return InvokeKind::Call;
        case 2: return InvokeKind::Get;
        case 4: return InvokeKind::Let;
        case 8: return InvokeKind::Set;
        default: RaiseError(runtimeerror::kInvalidProcedureCall);
    }
}

Value CallByName(ScriptContext&, Arguments arguments) {
    const Value& target = ArgumentAt(arguments, 0);
    if (target.Type() != ValueType::Object) {
        RaiseError(runtimeerror::kObjectRequired);
    }
    if (!target.AsObject()) {
        RaiseError(runtimeerror::kObjectNotSet);
    }
    const TextArgument name(arguments, 1);
    const InvokeKind kind = KindOf(LongAt(arguments, 2));
    const int member = target.AsObject()->FindMember(name.View());
    const Arguments rest = arguments.subspan(std::min<std::size_t>(3, arguments.size()));
    if (member == kNoMember) {
        RaiseError(runtimeerror::kNoSuchMember);
    }
    if (rest.empty() && (kind == InvokeKind::Let || kind == InvokeKind::Set)) {
        RaiseError(runtimeerror::kWrongArgumentCount);
    }
    return target.AsObject()->Invoke(member, kind, rest);
}

Value DoEvents(ScriptContext& context, Arguments) {
    context.Breathe();
    return Value::Integer(0);
}

Value Beep(ScriptContext&, Arguments) {
    return Value();
}

constexpr auto kVariant = DeclaredKind::Variant;

constexpr BuiltinFunction kRows[] = {
    {"Array", "...", kVariant, Array},
    {"Beep", "", kVariant, Beep},
    {"CallByName", "Object ProcName CallType ...", kVariant, CallByName},
    {"Choose", "Index ...", kVariant, Choose},
    {"CreateObject", "Class ?ServerName", kVariant, CreateObject},
    {"DoEvents",
     "",
     DeclaredKind::Integer,
     DoEvents,
     false,
     BuiltinFunction::TextCost::CountedByCaller,
     false,
     BuiltinId::DoEvents},
    {"IIf", "Expression TruePart FalsePart", kVariant, IIf},
    {"Partition", "Number Start Stop Interval", kVariant, Partition},
    {"QBColor", "Color", DeclaredKind::Long, QBColor},
    {"RGB", "Red Green Blue", DeclaredKind::Long, Rgb},
    {"Switch", "...", kVariant, Switch},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::ChoiceFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
