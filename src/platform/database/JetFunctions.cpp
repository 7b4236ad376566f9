#include "JetFunctions.h"

#include "base/modTextCase.h"

#include <sqlite3.h>

#include <cmath>
#include <cstdint>
#include <string_view>

namespace dorvik::modJetFunctions {

namespace {

int CompareTexts(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return modTextCase::Compare(
        {static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
        {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

bool IsNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

/// A fraction rounds half to even, as it does wherever a whole number is needed.
std::int64_t WholeNumber(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_FLOAT
               ? static_cast<std::int64_t>(std::nearbyint(sqlite3_value_double(value)))
               : sqlite3_value_int64(value);
}

/// Null, unless the other operand decides alone: 0 for And, -1 for Or.
void AnswerWithNull(sqlite3_context* context, sqlite3_value** operands, std::int64_t decidesAlone) {
    for (int index = 0; index < 2; ++index) {
        if (!IsNull(operands[index]) && WholeNumber(operands[index]) == decidesAlone) {
            sqlite3_result_int64(context, decidesAlone);
            return;
        }
    }
    sqlite3_result_null(context);
}

void And(sqlite3_context* context, int, sqlite3_value** operands) {
    if (IsNull(operands[0]) || IsNull(operands[1])) {
        AnswerWithNull(context, operands, 0);
    } else {
        sqlite3_result_int64(context, WholeNumber(operands[0]) & WholeNumber(operands[1]));
    }
}

void Or(sqlite3_context* context, int, sqlite3_value** operands) {
    if (IsNull(operands[0]) || IsNull(operands[1])) {
        AnswerWithNull(context, operands, -1);
    } else {
        sqlite3_result_int64(context, WholeNumber(operands[0]) | WholeNumber(operands[1]));
    }
}

}  // namespace

void Register(sqlite3* engine) {
    constexpr int kKind = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    sqlite3_create_function_v2(
        engine, "JetAnd", 2, kKind, nullptr, &And, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(engine, "JetOr", 2, kKind, nullptr, &Or, nullptr, nullptr, nullptr);
    sqlite3_create_collation_v2(engine, "NOCASE", SQLITE_UTF8, nullptr, &CompareTexts, nullptr);
}

}  // namespace dorvik::modJetFunctions
