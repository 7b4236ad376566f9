#pragma once

#include "rulebase/model/CategoryList.h"
#include "rulebase/model/Rulebase.h"
#include "source/Severity.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

/// The names that pages show: titles and colours of the severities, titles of the categories, as the
/// rulebase of the review has them.
class ReportLegend {
public:
    /// Replaces the categories, and those severities that are in the table.
    void Load(const SeverityTable& severities, const CategoryList& categories);

    /// The style element, with the colours of the severities.
    std::string GetStyleSheet() const;
    /// The name of a colour by its index 1 to 16; empty for any other number.
    static std::string_view LongColourToTextColour(std::int32_t colour);
    /// Title of the severity of that number; empty for any other number.
    const std::string& GetSeverityText(std::int32_t number) const;
    /// Its class in the style sheet, likewise.
    static std::string_view GetSeverityClass(std::int32_t number);

    const CategoryList& Categories() const { return m_categories; }
    /// Title of a category, "Unallocated" for -1; empty for an unknown ID.
    std::string GetCategoryText(std::int32_t categoryId) const;

private:
    struct SeverityStyle {
        std::string Title;
        std::string Colour;  // a name
    };

    std::array<SeverityStyle, kSeverities.size()> m_severities;  // in the order of `kSeverities`
    CategoryList m_categories;
};

}  // namespace dorvik
