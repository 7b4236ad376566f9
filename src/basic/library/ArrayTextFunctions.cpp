#include "Arguments.h"
#include "ArrayResult.h"
#include "BuiltinTables.h"
#include "CompareMode.h"
#include "basic/library/TextSearch.h"
#include "basic/values/Characters.h"
#include "basic/values/Coercion.h"
#include "basic/values/LongWork.h"
#include "basic/values/ScriptContext.h"
#include "basic/values/ValueBodies.h"

#include <algorithm>

namespace dorvik::basic {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// The number of parts, so that the memory is requested before it is used.
std::size_t CountParts(ScriptContext& context, TextSearch search, std::size_t most) {
    std::size_t count = 1;
    for (std::size_t from = 0; count < most; ++count) {
        const auto place = search.Next(from);
        if (!place.IsFound()) {
            break;
        }
        from = place.Start + place.Size;
        if (count % kWorkBetweenBreaths == 0) {
            context.Breathe();
        }
    }
    return count;
}

Value Split(ScriptContext& context, Arguments arguments) {
    const TextArgument text(arguments, 0);
    const TextArgument delimiter(arguments, 1, " ");
    const std::int32_t limit = LongAt(arguments, 2, -1);
    const bool ignoresCase = IgnoresCaseAt(arguments, 3, false);
    if (limit < -1) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    if (text.View().empty() || limit == 0) {
        return Value::Array(TextArray(0));
    }
    if (delimiter.View().empty()) {
        Ref<ArrayBody> whole = TextArray(1);
        whole->Elements()[0] = text.AsValue();
        return Value::Array(whole);
    }
    TextSearch search(context, text.View(), delimiter.View(), ignoresCase);
    const std::size_t count =
        CountParts(context, search, limit < 0 ? kNone : static_cast<std::size_t>(limit));
    Ref<ArrayBody> parts = TextArray(count);
    std::size_t from = 0;
    for (std::size_t index = 0; index + 1 < count; ++index) {
        const auto place = search.Next(from);
        parts->Elements()[index] = TextResult(text.View().substr(from, place.Start - from));
        from = place.Start + place.Size;
        if (index % kWorkBetweenBreaths == 0) {
            context.Breathe();
        }
    }
    parts->Elements()[count - 1] = TextResult(text.View().substr(from));
    return Value::Array(parts);
}

/// The array that a function of texts works on: 13 for anything else, 5 for several dimensions.
const std::vector<Value>& ElementsAt(Arguments arguments, std::size_t position) {
    const Value& value = ArgumentAt(arguments, position);
    if (value.Type() != ValueType::Array) {
        RaiseError(runtimeerror::kTypeMismatch);
    }
    if (value.AsArray()->Dimensions().size() > 1) {
        RaiseError(runtimeerror::kInvalidProcedureCall);
    }
    return value.AsArray()->Elements();
}

Value Join(ScriptContext& context, Arguments arguments) {
    const std::vector<Value>& elements = ElementsAt(arguments, 0);
    const TextArgument delimiter(arguments, 1, " ");
    std::size_t size = 0;
    for (std::size_t index = 0; index < elements.size(); ++index) {
        size += TextArgument(elements[index]).View().size();
        size += index == 0 ? 0 : delimiter.View().size();
        if (index % kWorkBetweenBreaths == 0) {
            context.Breathe();
            CheckTextSize(size);
        }
    }
    CheckTextSize(size);
    std::string joined;
    joined.reserve(size);
    for (std::size_t index = 0; index < elements.size(); ++index) {
        if (index != 0) {
            joined += delimiter.View();
        }
        joined += TextArgument(elements[index]).View();
    }
    return TextResult(std::move(joined));
}

Value Filter(ScriptContext& context, Arguments arguments) {
    const std::vector<Value>& elements = ElementsAt(arguments, 0);
    const TextArgument sought(arguments, 1);
    const bool includes = BooleanAt(arguments, 2, true);
    const bool ignoresCase = IgnoresCaseAt(arguments, 3, false);
    std::vector<std::size_t> hits;
    for (std::size_t index = 0; index < elements.size(); ++index) {
        const TextArgument element(elements[index]);
        const bool isFound =
            sought.View().empty() ||
            TextSearch(context, element.View(), sought.View(), ignoresCase).Next(0).IsFound();
        if (isFound == includes) {
            hits.push_back(index);
        }
        if (index % kWorkBetweenBreaths == 0) {
            context.Breathe();
        }
    }
    Ref<ArrayBody> filtered = TextArray(hits.size());
    for (std::size_t index = 0; index < hits.size(); ++index) {
        filtered->Elements()[index] = TextArgument(elements[hits[index]]).AsValue();
    }
    return Value::Array(filtered);
}

constexpr BuiltinFunction kRows[] = {
    {"Filter", "SourceArray Match ?Include ?Compare", DeclaredKind::Variant, Filter},
    {"Join", "SourceArray ?Delimiter", DeclaredKind::String, Join},
    {"Split", "Expression ?Delimiter ?Limit ?Compare", DeclaredKind::Variant, Split},
};

}  // namespace

std::span<const BuiltinFunction> modBuiltinTables::ArrayTextFunctions() {
    return kRows;
}

}  // namespace dorvik::basic
