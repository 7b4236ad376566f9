#include "ParseErrorNumber.h"

#include <algorithm>
#include <iterator>

namespace dorvik::basic::parseerror {

namespace {

struct Row {
    std::int32_t Number;
    std::string_view Text;
};

constexpr Row kRows[] = {
    {kUnknownProcedure, "Sub, Function, or Property not defined"},
    {kUndeclaredName, "Variable is undefined"},
    {kOutOfMemory, "Out of memory"},
    {kSyntax, "Syntax error"},
    {kExpectedColon, "Expected ':'"},
    {kExpectedLeftParenthesis, "Expected '('"},
    {kExpectedRightParenthesis, "Expected ')'"},
    {kExpectedRightBracket, "Expected ']'"},
    {kExpectedIdentifier, "Expected identifier"},
    {kExpectedEqual, "Expected '='"},
    {kExpectedIf, "Expected 'If'"},
    {kExpectedTo, "Expected 'To'"},
    {kExpectedEnd, "Expected 'End'"},
    {kExpectedFunction, "Expected 'Function'"},
    {kExpectedSub, "Expected 'Sub'"},
    {kExpectedThen, "Expected 'Then'"},
    {kExpectedWend, "Expected 'Wend'"},
    {kExpectedLoop, "Expected 'Loop'"},
    {kExpectedNext, "Expected 'Next'"},
    {kExpectedCase, "Expected 'Case'"},
    {kExpectedSelect, "Expected 'Select'"},
    {kExpectedExpression, "Expected expression"},
    {kExpectedStatement, "Expected statement"},
    {kExpectedEndOfStatement, "Expected end of statement"},
    {kExpectedInteger, "Expected integer constant"},
    {kExpectedWhileOrUntil, "Expected 'While' or 'Until'"},
    {kExpectedWhileUntilOrEnd, "Expected 'While', 'Until' or end of statement"},
    {kExpectedWith, "Expected 'With'"},
    {kIdentifierTooLong, "Identifier too long"},
    {kInvalidNumber, "Invalid number"},
    {kInvalidCharacter, "Invalid character"},
    {kLoopWithoutDo, "'Loop' without 'Do'"},
    {kInvalidExit, "Invalid 'Exit' statement"},
    {kInvalidForVariable, "Invalid 'For' loop control variable"},
    {kNameRedefined, "Name redefined"},
    {kMustBeFirst, "Must be first statement on the line"},
    {kParenthesesInCall, "Cannot use parentheses when calling a Sub"},
    {kExpectedLiteral, "Expected literal constant"},
    {kExpectedIn, "Expected 'In'"},
    {kExpectedLetSetGet, "Expected Let, Set or Get"},
    {kExpectedProperty, "Expected 'Property'"},
    {kInconsistentProperty, "Number of arguments must be consistent across properties"},
    {kPropertyNeedsArgument, "Property Let or Set needs an argument"},
    {kUnexpectedNext, "Unexpected 'Next'"},
};

static_assert(std::is_sorted(std::begin(kRows), std::end(kRows), [](const Row& a, const Row& b) {
    return a.Number < b.Number;
}));

}  // namespace

std::string_view TextOf(std::int32_t number) {
    const Row* row = std::lower_bound(
        std::begin(kRows), std::end(kRows), number, [](const Row& r, std::int32_t n) {
            return r.Number < n;
        });
    return row != std::end(kRows) && row->Number == number ? row->Text : "Syntax error";
}

}  // namespace dorvik::basic::parseerror
