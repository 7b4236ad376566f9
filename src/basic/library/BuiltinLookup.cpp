#include "basic/library/BuiltinLookup.h"

#include "BuiltinTables.h"
#include "base/modTextCase.h"

#include <algorithm>
#include <vector>

namespace dorvik::basic {

namespace {

using Table = std::span<const BuiltinFunction> (*)();

constexpr Table kTables[] = {
    modBuiltinTables::StringFunctions,
    modBuiltinTables::ByteFunctions,
    modBuiltinTables::SearchFunctions,
    modBuiltinTables::ArrayTextFunctions,
    modBuiltinTables::ConversionFunctions,
    modBuiltinTables::MathFunctions,
    modBuiltinTables::RandomNumbers,
    modBuiltinTables::DateFunctions,
    modBuiltinTables::DateIntervals,
    modBuiltinTables::FormatFunctions,
    modBuiltinTables::InformationFunctions,
    modBuiltinTables::ChoiceFunctions,
    modBuiltinTables::RefusedFunctions,
};

std::vector<BuiltinFunction> Collected() {
    std::vector<BuiltinFunction> functions;
    for (const Table table : kTables) {
        const auto rows = table();
        functions.insert(functions.end(), rows.begin(), rows.end());
    }
    std::sort(functions.begin(), functions.end(), [](const auto& left, const auto& right) {
        return modTextCase::Compare(left.Name, right.Name) < 0;
    });
    return functions;
}

}  // namespace

std::span<const BuiltinFunction> AllBuiltins() {
    static const std::vector<BuiltinFunction> functions = Collected();
    return functions;
}

const BuiltinFunction* FindBuiltin(std::string_view name) {
    const auto all = AllBuiltins();
    const auto found = std::lower_bound(
        all.begin(), all.end(), name, [](const BuiltinFunction& row, std::string_view sought) {
            return modTextCase::Compare(row.Name, sought) < 0;
        });
    if (found == all.end() || !modTextCase::Equal(found->Name, name)) {
        return nullptr;
    }
    return &*found;
}

}  // namespace dorvik::basic
