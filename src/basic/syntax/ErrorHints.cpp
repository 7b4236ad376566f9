#include "ErrorHints.h"

#include "base/modUtf8.h"

#include <string>

namespace dorvik::basic {

namespace {

struct SignRow {
    std::string_view Sign;
    std::string_view Hint;
};

constexpr SignRow kForeignSigns[] = {
    {"!=", "'!=' is written '<>' here"},
    {"==", "'==' is written '=' here"},
    {"//", "a comment begins with ' here"},
};

constexpr std::string_view kSingleQuotes = "a ' begins a comment; a string is in double quotes";
constexpr std::string_view kNotClosed = "the text at the end of the line has no closing quote";

/// What a line holds besides statements.
struct LineShape {
    std::size_t Comment = std::string_view::npos;  // where one begins
    bool IsTextOpen = false;                       // the last text is not closed
};

LineShape ShapeOf(std::string_view line) {
    LineShape shape;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '"') {
            shape.IsTextOpen = !shape.IsTextOpen;
        } else if (line[at] == '\'' && !shape.IsTextOpen) {
            shape.Comment = at;
            break;
        }
    }
    return shape;
}

/// The foreign sign at the location; empty if none.
std::string_view SignHint(std::string_view line, std::size_t offset) {
    for (const SignRow& row : kForeignSigns) {
        const bool begins = line.substr(offset).starts_with(row.Sign);
        const bool ends = offset > 0 && line.substr(offset - 1).starts_with(row.Sign);
        if (begins || ends) {
            return row.Hint;
        }
    }
    return {};
}

std::string_view HintFor(std::string_view line, std::size_t offset) {
    if (const std::string_view hint = SignHint(line, offset); !hint.empty()) {
        return hint;
    }
    const LineShape shape = ShapeOf(line);
    // An odd quote opens a text in which nothing is a comment any more.
    if (shape.IsTextOpen) {
        return kNotClosed;
    }
    const bool isAtComment =
        shape.Comment != line.npos && line.find_first_not_of(" \t", offset) >= shape.Comment;
    const bool isQuoted = isAtComment && line.find('\'', shape.Comment + 1) != line.npos;
    return isQuoted ? kSingleQuotes : std::string_view();
}

}  // namespace

void AddHints(std::vector<CompileError>& errors, const std::vector<std::string_view>& lines) {
    for (CompileError& error : errors) {
        const auto number = static_cast<std::size_t>(error.Place.Line);
        if (number == 0 || number > lines.size() || error.Place.Column < 1) {
            continue;
        }
        const std::string_view line = lines[number - 1];
        const std::size_t offset =
            modUtf8::Left(line, static_cast<std::size_t>(error.Place.Column - 1)).size();
        if (const std::string_view hint = HintFor(line, offset); !hint.empty()) {
            error.Text.append(" (").append(hint).append(")");
        }
    }
}

}  // namespace dorvik::basic
