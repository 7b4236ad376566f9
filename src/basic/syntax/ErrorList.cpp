#include "ErrorList.h"

#include <algorithm>
#include <utility>

namespace dorvik::basic {

void ErrorList::Add(std::int32_t number, SourcePlace place, std::string_view detail) {
    std::string text(parseerror::TextOf(number));
    if (!detail.empty()) {
        text.append(": ").append(detail);
    }
    AddText(number, place, std::move(text));
}

void ErrorList::AddText(std::int32_t number, SourcePlace place, std::string text) {
    if (!m_errors.empty() && m_errors.back().Place.Line == place.Line) {
        return;
    }
    m_errors.push_back({number, place, std::move(text)});
}

std::vector<CompileError> ErrorList::Take() {
    auto errors = std::exchange(m_errors, {});
    std::stable_sort(
        errors.begin(), errors.end(), [](const CompileError& a, const CompileError& b) {
            return a.Place.Line < b.Place.Line;
        });
    auto sameLine = [](const CompileError& a, const CompileError& b) {
        return a.Place.Line == b.Place.Line;
    };
    errors.erase(std::unique(errors.begin(), errors.end(), sameLine), errors.end());
    return errors;
}

}  // namespace dorvik::basic
