#include "rulebase/file/AttributeRow.h"

#include "base/BasicError.h"
#include "base/Variant.h"
#include "base/modText.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace dorvik {

namespace {

/// What an attribute must hold, as the default value of its row shows.
std::string ExpectedText(const std::string& defaultText) {
    if (defaultText == "True" || defaultText == "False") {
        return "True or False";
    }
    return defaultText.empty() ? "a list of whole numbers joined with '|'" : "a whole number";
}

}  // namespace

std::string
UnreadableText(const KyXMLElement& element, std::string_view attribute, std::string_view value) {
    constexpr std::size_t kLongest = 40;
    std::string shown(value.substr(0, kLongest));
    std::ranges::replace_if(
        shown, [](unsigned char c) { return c < ' '; }, ' ');
    return ": the attribute " + std::string(attribute) + " of " + element.PlaceText() + " is '" +
           shown + (value.size() > kLongest ? "...'" : "'");
}

std::string
RefusalText(const BasicError& failure, const std::string& value, const std::string& defaultText) {
    if (failure.Number() == runtimeerror::kObjectNotSet) {
        return "the attribute is missing";
    }
    if (failure.Number() == runtimeerror::kOverflow) {
        return "'" + value + "' is too large a number";
    }
    return "'" + value + "' was found where " + ExpectedText(defaultText) + " was expected";
}

void WriteAttribute(KyXMLElement& element, std::string_view name, const std::string& text) {
    element.AddAttribute(name, text);
    if (element.AttributeValueByName(name) !=
        KyXMLElement::RestoreIllegalChars(KyXMLElement::ReplaceIllegalChars(text))) {
        throw BasicError(
            runtimeerror::kInvalidProcedureCall,
            "the attribute " + std::string(name) + " of " + element.PlaceText() +
                " cannot hold its text, which has a character that no file of this kind can have");
    }
}

namespace modAttributeText {

bool ToBoolean(std::string_view text) {
    return Variant(text).AsBoolean();
}

std::int32_t ToLong(std::string_view text) {
    const std::optional<std::int32_t> number = modText::WholeNumber(text);
    if (!number.has_value()) {
        RaiseRuntimeError(runtimeerror::kTypeMismatch);
    }
    return *number;
}

std::int16_t ToInteger(std::string_view text) {
    const std::int32_t number = ToLong(text);
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max()) {
        RaiseRuntimeError(runtimeerror::kOverflow);
    }
    return static_cast<std::int16_t>(number);
}

}  // namespace modAttributeText

}  // namespace dorvik
