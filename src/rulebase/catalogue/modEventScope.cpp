#include "rulebase/catalogue/modEventScope.h"

#include "base/modText.h"
#include "base/modTextCase.h"
#include "parser/ParserEventTable.h"
#include "parser/ScopeName.h"

#include <algorithm>

namespace dorvik::modEventScope {

namespace {

constexpr std::string_view kIntroduction = "In scope: ";

/// What a source line may be in; the event of the line is raised before those of its contents.
constexpr std::string_view kOpenAtASourceLine[] = {
    scopename::kProcedure,
    scopename::kEnum,
    scopename::kType,
    scopename::kLayout,
    scopename::kLayoutProperties,
};

bool Holds(const std::vector<std::string_view>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(), [&](std::string_view known) {
        return modTextCase::Equal(known, name);
    });
}

}  // namespace

std::vector<std::string_view> DocumentedScope(std::int32_t event) {
    const ParserEventRow* row = FindParserEvent(event);
    if (row == nullptr) {
        return {};
    }
    std::string_view line = row->InScope;
    line.remove_prefix(kIntroduction.size());
    line = line.substr(0, line.find('.'));
    std::vector<std::string_view> names = modText::Split(line, ',');
    std::transform(names.begin(), names.end(), names.begin(), [](std::string_view name) {
        return modText::Trim(name);
    });
    return names;
}

bool MayBeInScope(std::int32_t event, std::string_view objectName) {
    const std::vector<std::string_view> documented = DocumentedScope(event);
    if (documented.empty()) {
        return false;
    }
    if (modTextCase::Equal(objectName, scopename::kNamingConvention) ||
        modTextCase::Equal(objectName, scopename::kProjectFile)) {
        return true;
    }
    if (modTextCase::Equal(objectName, scopename::kDeclarations)) {
        return Holds(documented, scopename::kFile);
    }
    if (event == static_cast<std::int32_t>(ParserEvent::SourceLine) &&
        std::any_of(
            std::begin(kOpenAtASourceLine),
            std::end(kOpenAtASourceLine),
            [&](std::string_view open) { return modTextCase::Equal(open, objectName); })) {
        return true;
    }
    return Holds(documented, objectName);
}

std::string Describe(std::int32_t event) {
    const ParserEventRow* row = FindParserEvent(event);
    std::string text = "event " + std::to_string(event);
    return row == nullptr ? text : text + " (" + std::string(row->Text) + ")";
}

std::string NumbersOf(
    const std::function<bool(const ParserEventRow&)>& isListed, std::string_view conjunction) {
    std::vector<std::string> numbers;
    for (const ParserEventRow& row : kParserEvents) {
        if (isListed(row)) {
            numbers.push_back(std::to_string(static_cast<std::int32_t>(row.Event)));
        }
    }
    std::string text;
    for (std::size_t position = 0; position < numbers.size(); ++position) {
        const bool isLast = position + 1 == numbers.size();
        if (position > 0) {
            text += isLast ? " " + std::string(conjunction) + " " : ", ";
        }
        text += numbers[position];
    }
    return text;
}

}  // namespace dorvik::modEventScope
