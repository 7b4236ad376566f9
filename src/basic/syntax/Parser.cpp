#include "basic/syntax/Parser.h"

#include "ErrorHints.h"
#include "Lexer.h"
#include "ModuleParser.h"
#include "Preprocessor.h"
#include "SourceLines.h"
#include "base/modUtf8.h"

namespace dorvik::basic {

ParsedModule ParseModule(std::string_view source) {
    source = modUtf8::WithoutByteOrderMark(source);
    std::string valid;
    if (!modUtf8::IsValid(source)) {
        valid = modUtf8::WithValidCharacters(source);
        source = valid;
    }
    ParsedModule parsed;
    const std::vector<std::string_view> lines = SplitLines(source);
    parsed.Module.Lines.assign(lines.begin(), lines.end());
    ErrorList errors;
    Lexer lexer(lines, errors);
    Preprocessor preprocessor(lexer, errors);
    TokenCursor cursor(errors);
    ModuleParser(cursor, preprocessor, parsed.Module).Parse();
    parsed.Errors = errors.Take();
    AddHints(parsed.Errors, lines);
    return parsed;
}

}  // namespace dorvik::basic
