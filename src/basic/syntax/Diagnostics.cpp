#include "basic/syntax/Diagnostics.h"

namespace dorvik::basic {

const ScriptOrigin* FindOrigin(std::span<const ScriptOrigin> origins, std::int32_t line) {
    for (const ScriptOrigin& origin : origins) {
        if (line >= origin.FirstLine && line <= origin.LastLine) {
            return &origin;
        }
    }
    return nullptr;
}

void Diagnostics::Error(
    std::int32_t number, SourcePlace place, std::string text, std::string name) {
    Errors.push_back({number, place, std::move(text), std::move(name)});
}

void Diagnostics::Warn(SourcePlace place, std::string text) {
    Warnings.push_back({place, std::move(text)});
}

std::string Diagnostics::LineText(SourcePlace place) const {
    const ScriptOrigin* origin = FindOrigin(m_origins, place.Line);
    if (origin == nullptr) {
        return "line " + std::to_string(place.Line);
    }
    return "line " + std::to_string(place.Line - origin->FirstLine + 1) + " of " + origin->Name +
           " (line " + std::to_string(place.Line) + " of the module)";
}

void Diagnostics::Redefined(std::string_view name, SourcePlace second, SourcePlace first) {
    Error(
        compileerror::kRedefined,
        second,
        "Name redefined: '" + std::string(name) + "' is defined in " + LineText(second) +
            " and in " + LineText(first));
}

}  // namespace dorvik::basic
