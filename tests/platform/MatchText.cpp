#include "MatchText.h"

#include "base/BasicError.h"

#include <ostream>

namespace dorvik {

void PrintTo(const PatternCase& row, std::ostream* stream) {
    *stream << '/' << row.Pattern << '/' << row.Flags << " on '" << row.Text << "'";
}

RegularExpression ExpressionOf(std::string_view pattern, std::string_view flags) {
    RegularExpression expression(pattern);
    expression.SetGlobal(flags.find('g') != std::string_view::npos);
    expression.SetIgnoreCase(flags.find('i') != std::string_view::npos);
    expression.SetMultiline(flags.find('m') != std::string_view::npos);
    return expression;
}

std::string MatchText(RegularExpression& expression, std::string_view text) {
    std::string result;
    try {
        for (const Match& match : expression.Execute(text)) {
            result += result.empty() ? "" : ";";
            result += std::to_string(match.Index) + ":" + match.Value;
            for (const SubMatch& group : match.SubMatches) {
                result += group.TookPart ? "," + group.Value : ",~";
            }
        }
    } catch (const BasicError& error) {
        const std::string description = error.what();
        const std::string mark = "' at position ";
        const std::size_t place = description.rfind(mark);
        result = "error " + std::to_string(error.Number());
        if (place != std::string::npos) {
            result += " at " + std::to_string(std::stoul(description.substr(place + mark.size())));
        }
        return result;
    }
    return result.empty() ? "none" : result;
}

}  // namespace dorvik
