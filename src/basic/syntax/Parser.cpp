#include "basic/syntax/Parser.h"

#include "ErrorHints.h"
#include "Lexer.h"
#include "ModuleParser.h"
#include "Preprocessor.h"
#include "SourceLines.h"
#include "base/modUtf8.h"

namespace dorvik::basic {

ParsedModule ParseModule(std::string_view source) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (source.starts_with(kMark)) {
        source.remove_prefix(kMark.size());
    }
    std::string valid;
    if (!modUtf8::IsValid(source)) {
        valid = WithValidCharacters(source);
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
