#include "Arguments.h"
#include "BuiltinTables.h"
#include "CompareMode.h"
#include "StrictForm.h"
#include "base/modTextCase.h"
#include "basic/library/TextSearch.h"
#include "basic/values/Characters.h"
#include "basic/values/LongWork.h"
#include "basic/values/ScriptContext.h"

namespace dorvik::basic {

namespace {

/// The 1-based number of the character that begins at an offset, as a Long.
Value PositionOf(const TextArgument& text, std::size_t offset) {
    return Value::Long(static_cast<std::int32_t>(text.CharactersBefore(offset)) + 1);
}

bool IsWhole(const Value& value) {
    return value.Type() == ValueType::Integer || value.Type() == ValueType::Long;
}

/// Whether the argument names one of the two ways to compare, and then which.
bool ReadsCompare(const Value& argument, bool& ignoresCase) {
    if (!IsWhole(argument) || (argument.AsLong() != 0 && argument.AsLong() != 1)) {
        return false;
    }
    ignoresCase = argument.AsLong() == 1;
    return true;
}

/// Looks for a text from `from` on, and counts how far the search has gone. One without regard to case
/// may have read all that is left.
TextSearch::Match Searched(
    ScriptContext& context,
    std::string_view text,
    std::string_view sought,
    bool ignoresCase,
    std::size_t from) {
    const auto match = TextSearch::First(context, text, sought, ignoresCase, from);
    const bool stopsEarly = match.IsFound() && !ignoresCase;
    context.CountText(sought.size() + (stopsEarly ? match.Start : text.size()) - from);
    return match;
}

/// The usual question, between two texts. False: it is not that.
bool AnswersInStr(ScriptContext& context, Arguments arguments, Value& answer) {
    const bool hasStart = arguments.size() >= 3 && IsWhole(arguments[0]);
    bool ignoresCase = context.ComparesText();
    if ((!hasStart && arguments.size() != 2) ||
        (arguments.size() == 4 && !ReadsCompare(arguments[3], ignoresCase))) {
        return false;
    }
    const Value& text = arguments[hasStart ? 1 : 0];
    const Value& sought = arguments[hasStart ? 2 : 1];
    const std::int64_t start = hasStart ? arguments[0].AsLong() : 1;
    if (text.Type() != ValueType::String || sought.Type() != ValueType::String || start < 1 ||
        sought.AsText().empty() || text.AsText().empty()) {
        return false;
    }
    const StringBody& body = *text.TextBody();
    const std::size_t from = body.OffsetOf(static_cast<std::size_t>(start - 1));
    const auto match = Searched(context, body.Text(), sought.AsText(), ignoresCase, from);
    answer = Value::Long(
        match.IsFound() ? static_cast<std::int32_t>(body.CharactersBefore(match.Start)) + 1 : 0);
    return true;
}

/// Without a start the texts are one argument earlier.
Value InStr(ScriptContext& context, Arguments arguments) {
    Value answer;
    if (AnswersInStr(context, arguments, answer)) {
        return answer;
    }
    const bool hasStart = IsGiven(arguments, 2);
    if (hasStart && !IsGiven(arguments, 1)) {
        RaiseError(runtimeerror::kArgumentNotOptional);
    }
    const std::int32_t start = hasStart ? LongAt(arguments, 0, 1) : 1;
    const std::size_t first = hasStart ? 1 : 0;
    const bool ignoresCase = IgnoresCaseAt(arguments, 3, context.ComparesText());
    if (IsNullAt(arguments, first) || IsNullAt(arguments, first + 1)) {
        return Value::Null();
    }
    if (start < 1) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    const TextArgument text(arguments, first);
    const TextArgument sought(arguments, first + 1);
    const std::size_t from = text.OffsetOf(static_cast<std::size_t>(start) - 1);
    if (from == text.View().size()) {
        return Value::Long(0);
    }
    if (sought.View().empty()) {
        return Value::Long(start);
    }
    const auto match = Searched(context, text.View(), sought.View(), ignoresCase, from);
    return match.IsFound() ? PositionOf(text, match.Start) : Value::Long(0);
}

Value InStrRev(ScriptContext& context, Arguments arguments) {
    const TextArgument text(arguments, 0);
    const TextArgument sought(arguments, 1);
    const std::int32_t start = LongAt(arguments, 2, -1);
    const bool ignoresCase = IgnoresCaseAt(arguments, 3, false);
    if (start == 0 || start < -1) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    const std::size_t length = text.Length();
    const std::size_t last = start == -1 ? length : static_cast<std::size_t>(start);
    if (last > length || length == 0) {
        return Value::Long(0);
    }
    if (sought.View().empty()) {
        return Value::Long(static_cast<std::int32_t>(last));
    }
    const auto match =
        TextSearch::Last(context, text.View(), sought.View(), ignoresCase, text.OffsetOf(last));
    return match.IsFound() ? PositionOf(text, match.Start) : Value::Long(0);
}

Value StrComp(ScriptContext& context, Arguments arguments) {
    const bool ignoresCase = IgnoresCaseAt(arguments, 2, context.ComparesText());
    if (IsNullAt(arguments, 0) || IsNullAt(arguments, 1)) {
        return Value::Null();
    }
    const TextArgument left(arguments, 0);
    const TextArgument right(arguments, 1);
    const int order = ignoresCase ? modTextCase::Compare(left.View(), right.View())
                                  : left.View().compare(right.View());
    return Value::Integer(static_cast<std::int16_t>((order > 0) - (order < 0)));
}

/// The places of the text to be replaced, at most `most`, and how many they are.
struct Replacing {
    std::string_view Text;
    std::string_view Sought;
    std::string_view With;
    bool IgnoresCase;
    std::size_t Most;
};

/// The length of the result: for the check that comes before it is made.
std::size_t ReplacedSize(ScriptContext& context, const Replacing& what) {
    TextSearch search(context, what.Text, what.Sought, what.IgnoresCase);
    std::size_t size = what.Text.size();
    std::size_t from = 0;
    for (std::size_t count = 0; count < what.Most; ++count) {
        const auto match = search.Next(from);
        if (!match.IsFound()) {
            break;
        }
        size = size - match.Size + what.With.size();
        from = match.Start + match.Size;
        if (count % kWorkBetweenBreaths == 0) {
            context.Breathe();
        }
    }
    return size;
}

std::string Replaced(ScriptContext& context, const Replacing& what, std::size_t size) {
    TextSearch search(context, what.Text, what.Sought, what.IgnoresCase);
    std::string result;
    result.reserve(size);
    std::size_t from = 0;
    for (std::size_t count = 0; count < what.Most; ++count) {
        const auto match = search.Next(from);
        if (!match.IsFound()) {
            break;
        }
        result += what.Text.substr(from, match.Start - from);
        result += what.With;
        from = match.Start + match.Size;
        if (count % kWorkBetweenBreaths == 0) {
            context.Breathe();
        }
    }
    result += what.Text.substr(from);
    return result;
}

Value Replace(ScriptContext& context, Arguments arguments) {
    const TextArgument text(arguments, 0);
    const TextArgument sought(arguments, 1);
    const TextArgument with(arguments, 2);
    const std::int32_t start = LongAt(arguments, 3, 1);
    const std::int32_t count = LongAt(arguments, 4, -1);
    const bool ignoresCase = IgnoresCaseAt(arguments, 5, false);
    if (start < 1 || count < -1) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    const std::size_t from = text.OffsetOf(static_cast<std::size_t>(start) - 1);
    const std::string_view rest = text.View().substr(from);
    if (sought.View().empty() || count == 0 || rest.empty()) {
        return from == 0 ? text.AsValue() : TextResult(rest);
    }
    const Replacing what{
        rest,
        sought.View(),
        with.View(),
        ignoresCase,
        count < 0 ? std::string_view::npos : static_cast<std::size_t>(count)};
    const bool mayGrow = with.View().size() > sought.View().size();
    const std::size_t size = mayGrow ? ReplacedSize(context, what) : rest.size();
    CheckTextSize(size);
    return TextResult(Replaced(context, what, size));
}

constexpr auto kCountsItsTexts = BuiltinFunction::TextCost::CountedByItself;

constexpr BuiltinFunction kRows[] = {
    {"InStr",
     "Start String1 ?String2 ?Compare",
     DeclaredKind::Variant,
     InStr,
     false,
     kCountsItsTexts,
     false,
     BuiltinId::InStr},
    {"InStrRev", "StringCheck StringMatch ?Start ?Compare", DeclaredKind::Long, InStrRev},
    {"Replace", "Expression Find Replace ?Start ?Count ?Compare", DeclaredKind::String, Replace},
    {"StrComp", "String1 String2 ?Compare", DeclaredKind::Variant, StrComp},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::SearchFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
