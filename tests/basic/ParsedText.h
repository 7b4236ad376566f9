#pragma once

#include "basic/AstText.h"
#include "basic/syntax/Parser.h"

#include <string>
#include <string_view>

namespace dorvik::basic {

/// The errors of a module, "line:column number text" each on a line of its own.
inline std::string ErrorLines(const ParsedModule& parsed) {
    std::string lines;
    for (const CompileError& error : parsed.Errors) {
        if (!lines.empty()) {
            lines += '\n';
        }
        lines += std::to_string(error.Place.Line) + ":" + std::to_string(error.Place.Column) + " " +
                 std::to_string(error.Number) + " " + error.Text;
    }
    return lines;
}

/// The items of a module, "; " between them, or its errors.
inline std::string ModuleText(std::string_view source) {
    const ParsedModule parsed = ParseModule(source);
    if (!parsed.Errors.empty()) {
        return ErrorLines(parsed);
    }
    std::string text;
    for (const ModuleItem& item : parsed.Module.Items) {
        text += (text.empty() ? "" : "; ") + AstText(item);
    }
    return text;
}

/// The statements of a Sub's body, which begins in line 2, or the errors.
inline std::string BodyText(const std::string& body) {
    const ParsedModule parsed = ParseModule("Sub Main()\n" + body + "\nEnd Sub\n");
    if (!parsed.Errors.empty()) {
        return ErrorLines(parsed);
    }
    return AstText(std::get<ProcedureNode>(parsed.Module.Items.at(0)).Body);
}

/// An expression on the right of `=`, or the errors.
inline std::string ExpressionText(const std::string& expression) {
    const std::string text = BodyText("r = " + expression);
    return text.starts_with("r = ") ? text.substr(4) : text;
}

}  // namespace dorvik::basic
