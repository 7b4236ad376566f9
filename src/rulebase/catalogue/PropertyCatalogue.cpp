#include "rulebase/catalogue/PropertyCatalogue.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace dorvik::modPropertyCatalogue {

namespace {

constexpr std::string_view kProperty = "Property";
constexpr std::string_view kStatistic = "Statistic";

/// The picture that lists show with a property.
constexpr std::string_view IconOf(PropertyNumber number, std::string_view name) {
    const bool isTag = number == PropertyNumber::DataTypeTag ||
                       number == PropertyNumber::ControlTag || number == PropertyNumber::ScopeTag;
    if (isTag) {
        return name;
    }
    return name.ends_with("Count") ? kStatistic : kProperty;
}

constexpr PropertyRow MakeRow(PropertyNumber number, std::string_view name, PropertyType type) {
    return {number, name, type, IconOf(number, name)};
}

constexpr auto kProperties = [] {
    std::array rows = {
#define PROPERTY(number, name, type) MakeRow(PropertyNumber::name, #name, PropertyType::type),
#define OWN(number, name, type, sentence) MakeRow(PropertyNumber::name, #name, PropertyType::type),
#include "source/Properties.def"
    };
    std::ranges::sort(rows, {}, &PropertyRow::Number);
    return rows;
}();

constexpr bool IsNoNumberTwice() {
    return std::ranges::adjacent_find(kProperties, {}, &PropertyRow::Number) == kProperties.end();
}
static_assert(IsNoNumberTwice());

constexpr std::int32_t kUnusedNumbers[] = {4, 10, 11, 36, 42};

constexpr bool IsEveryNumberInUseOrKnownToBeFree() {
    std::int32_t expected = 1;
    for (const PropertyRow& row : kProperties) {
        while (std::ranges::find(kUnusedNumbers, expected) != std::end(kUnusedNumbers)) {
            ++expected;
        }
        if (static_cast<std::int32_t>(row.Number) != expected) {
            return false;
        }
        ++expected;
    }
    return true;
}
static_assert(IsEveryNumberInUseOrKnownToBeFree());

}  // namespace

std::span<const PropertyRow> Rows() {
    return kProperties;
}

const PropertyRow* Find(std::int32_t propertyNumber) {
    const PropertyNumber number{propertyNumber};
    const auto* row =
        std::ranges::lower_bound(kProperties, number, std::ranges::less{}, &PropertyRow::Number);
    return row == kProperties.end() || row->Number != number ? nullptr : row;
}

std::string_view TypeText(PropertyType type) {
    switch (type) {
        case PropertyType::None: return {};
        case PropertyType::String: return "String";
        case PropertyType::Long: return "Long";
        case PropertyType::Boolean: return "Boolean";
        case PropertyType::LongOrString: return "Long/String";
    }
    return {};
}

}  // namespace dorvik::modPropertyCatalogue
