#include "basic/BuiltinFunction.h"

#include "base/modTextCase.h"
#include "basic/BuiltinTables.h"

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

/// The next name of a list of parameters, cut from its front.
std::string_view TakeName(std::string_view& parameters) {
    const std::size_t end = std::min(parameters.find(' '), parameters.size());
    const std::string_view name = parameters.substr(0, end);
    parameters.remove_prefix(std::min(end + 1, parameters.size()));
    return name;
}

constexpr std::string_view kAnyNumber = "...";

}  // namespace

int BuiltinFunction::LeastArguments() const {
    int least = 0;
    for (std::string_view rest = Parameters; !rest.empty();) {
        const std::string_view name = TakeName(rest);
        if (name.front() == '?' || name == kAnyNumber) {
            break;
        }
        ++least;
    }
    return least;
}

int BuiltinFunction::MostArguments() const {
    int most = 0;
    for (std::string_view rest = Parameters; !rest.empty(); ++most) {
        if (TakeName(rest) == kAnyNumber) {
            return -1;
        }
    }
    return most;
}

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
